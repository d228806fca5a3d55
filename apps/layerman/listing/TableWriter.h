#pragma once

#include "layerman/listing/ListWriter.h"

/// Aligned columns for people; of several drawings each under its name.
class TableWriter : public ListWriter
{
public:
    TableWriter(ListColumns columns, bool several, Output& output)
        : m_columns(std::move(columns))
        , m_isSeveral(several)
        , m_output(output)
    { }

    void drawing(const QString& file, const std::vector<OdDbObjectId>& layers,
                 const LayerCellContext& context) override;
    void failed(const QString&, const QString&) override { }
    void finish() override { }

private:
    ListColumns m_columns;
    bool m_isSeveral;
    bool m_isFirst = true;
    Output& m_output;
};
