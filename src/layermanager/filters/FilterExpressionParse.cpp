#include "database/drawing/OdDbDatabase.h"
#include "database/tables/OdDbSymbolTable.h"
#include "layermanager/filters/FilterExpression.h"
#include "layermanager/filters/LeadingNumber.h"
#include "layermanager/filters/RowCriterion.h"

#include <optional>

namespace {

bool isTrue(QStringView value)
{
    return value.compare(QLatin1String("TRUE"), Qt::CaseInsensitive) == 0;
}

/// What stands between quotes, `rest` beginning behind the first one. Empty without a second one.
QStringView quoted(QStringView rest)
{
    return rest.first(qMax(qsizetype(0), rest.indexOf(QLatin1Char('"'))));
}

/// The row behind the first place of a key. Only that place counts: where it is the tail of a
/// longer key, a later one is not looked for.
std::optional<QStringView> behindKey(QStringView row, QLatin1String key,
                                     const char* longerKeyEndsIn = "")
{
    const qsizetype at = row.indexOf(key);
    if (at < 0 || (at > 0 && QLatin1String(longerKeyEndsIn).contains(row[at - 1])))
        return std::nullopt;
    return row.sliced(at + key.size());
}

qint32 usedOf(QStringView row)
{
    const auto used = behindKey(row, kUsedKey);
    if (!used)
        return 0;
    const auto overrides = behindKey(row, kOverridesKey);
    const bool hasOverrides = overrides && isTrue(quoted(*overrides));
    return (isTrue(quoted(*used)) ? 1 : 2) + (hasOverrides ? 2 : 0);
}

OdDbObjectId linetypeOf(const OdDbDatabase& database, QStringView name)
{
    const auto linetypes = database.getLinetypeTableId().openObject<OdDbSymbolTable>();
    return linetypes ? linetypes->getAt(name.toString()) : OdDbObjectId();
}

/// The unit counts as present wherever "mm" stands behind the key, be it in another value:
/// deliberately so, since texts read this way are about.
qint32 lineweightOf(QStringView rest, bool cutsUnit)
{
    constexpr qsizetype kUnitLength = 3; // " mm"
    QStringView value = quoted(rest);
    if (cutsUnit && rest.contains(QLatin1String("mm")))
        value.chop(qMin(kUnitLength, value.size()));
    if (value.compare(QLatin1String("Default"), Qt::CaseInsensitive) == 0)
        return -3;
    return ParseLineweightText(value.toString());
}

qint32 numberOf(const RowCriterion& criterion, QStringView rest)
{
    switch (criterion.kind) {
    case RowCriterion::Kind::Truth:
        return isTrue(quoted(rest)) != criterion.has(RowCriterion::kFirstIsFalse) ? 1 : 2;
    case RowCriterion::Kind::Color:
        return leadingInteger(quoted(rest));
    default:
        return lineweightOf(rest, criterion.has(RowCriterion::kCutsUnit));
    }
}

void readCriterion(const OdDbDatabase& database, const RowCriterion& criterion, QStringView rest,
                   LayerFilterRow& row)
{
    if (const auto* text = std::get_if<RowCriterion::Text>(&criterion.field)) {
        const bool runsOn =
            criterion.has(RowCriterion::kRunsOn) && !rest.contains(QLatin1Char('"'));
        row.** text = (runsOn ? rest : quoted(rest)).toString();
    } else if (const auto* id = std::get_if<RowCriterion::Id>(&criterion.field)) {
        row.** id = linetypeOf(database, quoted(rest));
    } else {
        row.*std::get<RowCriterion::Number>(criterion.field) = numberOf(criterion, rest);
    }
}

/// False only for an empty text.
bool parseRow(const OdDbDatabase& database, QStringView text, LayerFilterRows& rows)
{
    if (text.isEmpty())
        return false;
    LayerFilterRow row;
    row.m_nUsed = usedOf(text);
    for (const RowCriterion& criterion : RowCriterion::inOrder()) {
        if (const auto rest = behindKey(text, criterion.key, criterion.longerKeyEndsIn))
            readCriterion(database, criterion, *rest, row);
    }
    if (!row.isEmpty())
        rows.push_back(std::move(row));
    return true;
}

} // namespace

bool ParseRowExpression(const OdDbDatabase& database, const QString& rowText, LayerFilterRows& rows)
{
    return parseRow(database, rowText, rows);
}

void ParseFilterExpression(const OdDbDatabase& database, const QString& expression,
                           LayerFilterRows& rows)
{
    constexpr QLatin1String kOr(" OR ");
    QStringView rest = expression;
    if (rest.isEmpty())
        return;
    for (qsizetype at = rest.indexOf(kOr); at >= 0; at = rest.indexOf(kOr)) {
        // The character before the mark is not the row's: criteria end in a blank. A row without
        // any ends the text.
        if (!parseRow(database, rest.first(qMax(qsizetype(0), at - 1)), rows))
            return;
        // The blank that ends this mark may begin the next one.
        rest = rest.sliced(at + kOr.size() - 1);
    }
    parseRow(database, rest, rows);
}
