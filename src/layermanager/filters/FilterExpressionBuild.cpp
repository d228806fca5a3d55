#include "database/drawing/OdDbDatabase.h"
#include "database/tables/OdDbLinetypeTableRecord.h"
#include "layermanager/filters/FilterExpression.h"
#include "layermanager/filters/RowCriterion.h"
#include "sdk/IKestServicesManager.h"

#include <optional>

namespace {

QLatin1String truthText(bool truth)
{
    return truth ? QLatin1String("True") : QLatin1String("False");
}

/// No blank stands behind it, unlike behind all others.
QString usedText(qint32 used)
{
    if (used < 1 || used > 4)
        return {};
    return kUsedKey + truthText(used == 1 || used == 3) + QLatin1String("\" AND ") + kOverridesKey
        + truthText(used >= 3) + QLatin1Char('"');
}

std::optional<QString> unlessEmpty(const QString& text)
{
    return text.isEmpty() ? std::nullopt : std::optional(text);
}

std::optional<QString> linetypeName(OdDbObjectId linetype)
{
    const auto record = linetype.openObject<OdDbLinetypeTableRecord>();
    return record ? std::optional(record->getName()) : std::nullopt;
}

std::optional<QString> lineweightText(qint32 weight)
{
    const IKestServicesManager* services = getServicesManagerInterface();
    if (!services || weight == LayerFilterRow::kNoLineweight)
        return std::nullopt;
    return unlessEmpty(services->lineWeightText(weight));
}

/// Nothing where the criterion is not set or cannot be said.
std::optional<QString> valueText(const RowCriterion& criterion, const LayerFilterRow& row)
{
    if (const auto* text = std::get_if<RowCriterion::Text>(&criterion.field))
        return unlessEmpty(row.**text);
    if (const auto* id = std::get_if<RowCriterion::Id>(&criterion.field))
        return linetypeName(row.**id);
    const qint32 value = row.*std::get<RowCriterion::Number>(criterion.field);
    if (criterion.kind == RowCriterion::Kind::Lineweight)
        return lineweightText(value);
    if (criterion.kind == RowCriterion::Kind::Color)
        return value == LayerFilterRow::kNoColor ? std::nullopt
                                                 : std::optional(QString::number(value));
    if (value != 1 && value != 2)
        return std::nullopt;
    return QString(truthText((value == 1) != criterion.has(RowCriterion::kFirstIsFalse)));
}

} // namespace

QString BuildRowExpression(const LayerFilterRow& row)
{
    QString text = usedText(row.m_nUsed);
    for (const RowCriterion& criterion : RowCriterion::inOrder()) {
        const std::optional<QString> value = valueText(criterion, row);
        if (!value)
            continue;
        if (!text.isEmpty() && !criterion.has(RowCriterion::kWithoutAnd))
            text += QLatin1String(" AND ");
        text += criterion.key + *value + QLatin1String("\" ");
    }
    return text;
}

void BuildFilterExpression(const LayerFilterRows& rows, QStringList& rowTexts, QString& expression)
{
    rowTexts.clear();
    expression.clear();
    for (std::size_t i = 0; i + 1 < rows.size(); ++i) {
        const QString text = BuildRowExpression(rows[i]);
        if (!rowTexts.isEmpty())
            expression += QLatin1String(" OR ");
        expression += text;
        rowTexts.append(text);
    }
}
