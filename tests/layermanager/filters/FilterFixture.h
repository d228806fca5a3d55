#pragma once

#include "../LayerDrawing.h"
#include "layermanager/filters/FilterExpression.h"
#include "support/FakeHost.h"
#include "support/reference/ReferenceFilterParser.h"

#include <gtest/gtest.h>
#include <ostream>

/// Rows of criteria over a small drawing that has the linetypes ByLayer, Continuous and DASHED.
class FilterFixture : public testing::Test
{
protected:
    static constexpr const char16_t* kLineweightUnits = u"LWUNITS";

    FilterFixture()
        : m_database(m_host.open(layer_drawing::make({{"Walls"}, {"Doors"}})))
    { }

    OdDbObjectId linetype(const char* name) const
    {
        return m_database.table(OdDbTableKind::Linetype).getAt(QString::fromLatin1(name));
    }
    void setLineweightUnits(int units)
    {
        m_host.ints[QString::fromUtf16(kLineweightUnits)] = units;
    }
    void makeLineweightUnitsUnreadable()
    {
        m_host.unreadable.insert(QString::fromUtf16(kLineweightUnits));
    }

    LayerFilterRows parsed(const QString& expression) const
    {
        LayerFilterRows rows;
        ParseFilterExpression(m_database, expression, rows);
        return rows;
    }
    /// The row of a text; an empty row where it gives none.
    LayerFilterRow parsedRow(const QString& text) const
    {
        LayerFilterRows rows;
        EXPECT_EQ(ParseRowExpression(m_database, text, rows), !text.isEmpty());
        EXPECT_LE(rows.size(), 1U);
        return rows.empty() ? LayerFilterRow() : rows.front();
    }
    ReferenceFilterParser reference() const
    {
        const QString units = QString::fromUtf16(kLineweightUnits);
        const bool isReadable = !m_host.unreadable.contains(units);
        return {[this](const QString& name) {
                    return m_database.table(OdDbTableKind::Linetype).getAt(name);
                },
                isReadable ? std::optional(m_host.ints.value(units)) : std::nullopt};
    }
    /// The text of rows and the grid's blank last line behind them.
    static QString built(LayerFilterRows rows)
    {
        rows.emplace_back();
        QStringList rowTexts;
        QString expression;
        BuildFilterExpression(rows, rowTexts, expression);
        return expression;
    }

    FakeHost m_host;
    OdDbDatabase& m_database;
};

inline void PrintTo(const LayerFilterRow& row, std::ostream* out)
{
    *out << "used " << row.m_nUsed << " on " << row.m_nOn << " frozen " << row.m_nFrozen
         << " locked " << row.m_nLocked << " plottable " << row.m_nPlottable << " newvp "
         << row.m_nNewVpFrozen << " vp " << row.m_nVpFrozen << " color " << row.m_nColor << '/'
         << row.m_nVpColor << " name '" << row.m_strName.toStdString() << "' desc '"
         << row.m_strDesc.toStdString() << "' linetype " << row.m_idLinetype.slot() << '/'
         << row.m_idVpLinetype.slot() << " weight " << row.m_nLineweight << '/'
         << row.m_nVpLineweight;
}
