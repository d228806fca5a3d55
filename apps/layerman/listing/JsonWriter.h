#pragma once

#include "layerman/listing/ListWriter.h"

/// An array of one object for each drawing, {"file", "layers": [...]} or {"file", "error"}. What is
/// printed is valid once it is finished, whatever failed.
class JsonWriter : public ListWriter
{
public:
    JsonWriter(ListColumns columns, Output& output);

    void drawing(const QString& file, const std::vector<OdDbObjectId>& layers,
                 const LayerCellContext& context) override;
    void failed(const QString& file, const QString& sentence) override;
    void finish() override;

    /// A value as JSON: flags are booleans, index colors and widths numbers, and null stands for
    /// viewport columns in model space.
    static QString value(const ListColumn& column, const ListRow& row);

private:
    /// What stands before an object: its comma, line and file.
    QString head(const QString& file);

    ListColumns m_columns;
    bool m_isFirst = true;
    Output& m_output;
};
