#pragma once

#include "layerman/listing/ListWriter.h"

/// Comma-separated values after RFC 4180, in UTF-8, with a line of column names. Lines end with a
/// line feed alone, as the tools of a shell expect it.
class CsvWriter : public ListWriter
{
public:
    CsvWriter(ListColumns columns, Output& output);

    void drawing(const QString& file, const std::vector<OdDbObjectId>& layers,
                 const LayerCellContext& context) override;
    void failed(const QString&, const QString&) override { }
    void finish() override { }

    static QString field(const QString& text);

private:
    ListColumns m_columns;
    Output& m_output;
};
