#include "support/reference/ForeseenFilterLoss.h"

#include <algorithm>

namespace {

const QString kUnit = QStringLiteral("mm");
const QString kDefault = QStringLiteral("Default");

bool isHarmless(const QString& text)
{
    return !text.contains(QLatin1Char('"')) && !text.contains(QStringLiteral(" OR "))
        && !text.endsWith(QStringLiteral("=="));
}

bool asksForUseAlone(LayerFilterRow row)
{
    row.m_nUsed = 0;
    return row.isEmpty();
}

} // namespace

LayerFilterRows ForeseenFilterLoss::operator()(const LayerFilterRows& rows) const
{
    LayerFilterRows after;
    for (std::size_t i = 0; i < rows.size(); ++i)
        after.push_back(row(rows[i], i + 1 == rows.size()));
    return after;
}

bool ForeseenFilterLoss::isForeseeable(const LayerFilterRows& rows)
{
    return std::all_of(rows.begin(), rows.end(), [](const LayerFilterRow& row) {
        return isHarmless(row.m_strName) && isHarmless(row.m_strDesc);
    });
}

LayerFilterRow ForeseenFilterLoss::row(const LayerFilterRow& row, bool isLast) const
{
    LayerFilterRow after = row;
    if (row.m_nNewVpFrozen != 0)
        after.m_nVpFrozen = 0;
    if (!isLast && asksForUseAlone(row) && row.m_nUsed > 2)
        after.m_nUsed = row.m_nUsed - 2;
    after.m_nLineweight = lineweight(row);
    if (row.m_nVpLineweight != LayerFilterRow::kNoLineweight) {
        const QString value = lineweightValue(row.m_nVpLineweight);
        after.m_nVpLineweight = value == kDefault ? -3 : m_parser.lineweight(value);
    }
    return after;
}

qint32 ForeseenFilterLoss::lineweight(const LayerFilterRow& row) const
{
    if (row.m_nLineweight == LayerFilterRow::kNoLineweight)
        return LayerFilterRow::kNoLineweight;
    QString value = lineweightValue(row.m_nLineweight);
    const bool unitFollows = value.contains(kUnit) || row.m_strDesc.contains(kUnit)
        || (row.m_nVpLineweight != LayerFilterRow::kNoLineweight
            && lineweightValue(row.m_nVpLineweight).contains(kUnit));
    if (unitFollows)
        value.chop(3);
    return value == kDefault ? -3 : m_parser.lineweight(value);
}

QString ForeseenFilterLoss::lineweightValue(qint32 weight) const
{
    return m_lineweightText(weight).section(QLatin1Char('"'), 0, 0);
}
