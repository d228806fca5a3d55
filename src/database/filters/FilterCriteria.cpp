#include "database/filters/FilterCriteria.h"

#include "database/drawing/OdDbDatabase.h"
#include "database/tables/OdDbLinetypeTableRecord.h"
#include "database/values/OdCmColor.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>

namespace {

using FilterCriteria::Criterion;
using FilterCriteria::Kind;

constexpr auto kCriteria = std::to_array<Criterion>({
    {"USED", Kind::Truth},
    {"VPOVERRIDES", Kind::Truth},
    {"NAME", Kind::Text},
    {"OFF", Kind::Truth},
    {"FROZEN", Kind::Truth},
    {"LOCKED", Kind::Truth},
    {"COLOR", Kind::Colour},
    {"LINETYPE", Kind::Linetype},
    {"LINEWEIGHT", Kind::Lineweight},
    {"PLOTTABLE", Kind::Truth},
    {"NEWVPFROZEN", Kind::Truth},
    {"VPFROZEN", Kind::Truth},
    {"VPCOLOR", Kind::Colour},
    {"VPLINETYPE", Kind::Linetype},
    {"VPLINEWEIGHT", Kind::Lineweight},
    {"DESC", Kind::Text},
});

consteval std::size_t position(std::string_view key)
{
    std::size_t at = 0;
    while (kCriteria.at(at).key != key)
        ++at;
    return at;
}
constexpr std::size_t kUsed = position("USED");
constexpr std::size_t kOverrides = position("VPOVERRIDES");
constexpr std::size_t kName = position("NAME");
constexpr std::size_t kNewViewportFrozen = position("NEWVPFROZEN");
constexpr std::size_t kViewportFrozen = position("VPFROZEN");
constexpr std::size_t kDescription = position("DESC");

using Values = std::array<QString, kCriteria.size()>; ///< null: not set

/// In hundredths of a millimetre. 211 is left out: its text "2.11" reads back as 210.
constexpr int kLineweights[] = {0,  5,  9,  13, 15, 18,  20,  25,  30,  35,  40, 50,
                                53, 60, 70, 80, 90, 100, 106, 120, 140, 158, 200};

QString truth(const QString& value)
{
    if (value.compare(QLatin1String("True"), Qt::CaseInsensitive) == 0)
        return QStringLiteral("True");
    if (value.compare(QLatin1String("False"), Qt::CaseInsensitive) == 0)
        return QStringLiteral("False");
    return {};
}

QString colour(const QString& value)
{
    bool isNumber = false;
    const int index = value.trimmed().toInt(&isNumber);
    if (isNumber)
        return index >= 1 && index <= 255 ? QString::number(index) : QString();
    for (int named = 1; named <= 7; ++named) {
        if (OdCmColor::fromIndex(named).colorNameForDisplay().compare(value, Qt::CaseInsensitive)
            == 0)
            return QString::number(named);
    }
    return {};
}

QString linetype(const OdDbDatabase& database, const QString& value)
{
    const auto record =
        database.table(OdDbTableKind::Linetype).getAt(value).openObject<OdDbLinetypeTableRecord>();
    return record ? record->getName() : QString();
}

QString lineweight(const QString& value)
{
    if (value.compare(QLatin1String("Default"), Qt::CaseInsensitive) == 0)
        return QStringLiteral("Default");
    QString number = value.trimmed();
    if (number.endsWith(QLatin1String("mm"), Qt::CaseInsensitive))
        number.chop(2);
    bool isNumber = false;
    const double hundredths = number.trimmed().toDouble(&isNumber) * 100;
    const auto known =
        std::find_if(std::begin(kLineweights), std::end(kLineweights),
                     [&](int weight) { return std::abs(weight - hundredths) < 0.001; });
    if (!isNumber || known == std::end(kLineweights))
        return {};
    return QString::number(*known / 100.0, 'f', 2) + QStringLiteral(" mm");
}

/// The value as this system writes it; null where it cannot.
QString ownValue(const OdDbDatabase& database, Kind kind, const QString& value)
{
    switch (kind) {
    case Kind::Truth:
        return truth(value);
    case Kind::Text:
        return value.isEmpty() || value.contains(QLatin1String(" OR ")) ? QString() : value;
    case Kind::Colour:
        return colour(value);
    case Kind::Linetype:
        return linetype(database, value);
    case Kind::Lineweight:
        return lineweight(value);
    }
    return {};
}

enum class Outcome { Sayable, Contradiction, NotSayable };

Outcome valuesOf(const OdDbDatabase& database, const FilterRow& row, Values& values)
{
    for (const FilterCriterion& criterion : row) {
        const Criterion* known = FilterCriteria::find(criterion.key);
        const QString own = known ? ownValue(database, known->kind, criterion.value) : QString();
        if (own.isNull())
            return Outcome::NotSayable;
        QString& value = values[static_cast<std::size_t>(known - kCriteria.data())];
        if (!value.isNull() && value != own)
            return known->kind == Kind::Text ? Outcome::NotSayable : Outcome::Contradiction;
        value = own;
    }
    // Read back, the one would hide the other.
    if (!values[kNewViewportFrozen].isNull() && !values[kViewportFrozen].isNull())
        return Outcome::NotSayable;
    return Outcome::Sayable;
}

QString rowText(const Values& values)
{
    QString text;
    for (std::size_t i = 0; i < values.size(); ++i) {
        if (values[i].isNull())
            continue;
        if (!text.isEmpty() && i != kDescription)
            text += QLatin1String(" AND ");
        text +=
            QLatin1String(kCriteria[i].key) + QLatin1String("==\"") + values[i] + QLatin1Char('"');
        if (i != kUsed && i != kOverrides)
            text += QLatin1Char(' ');
    }
    return text;
}

/// USED and VPOVERRIDES are one choice of four here: where a row sets one only, two rows say it.
std::vector<Values> withBothOfUsed(const Values& values)
{
    const bool used = !values[kUsed].isNull();
    const bool overrides = !values[kOverrides].isNull();
    if (used == overrides)
        return {values};
    std::vector<Values> both = {values, values};
    const std::size_t open = used ? kOverrides : kUsed;
    both[0][open] = QStringLiteral("False");
    both[1][open] = QStringLiteral("True");
    return both;
}

/// A row that ends in VPOVERRIDES=="True" loses its last quote when another row follows.
bool mustStandLast(const Values& values)
{
    return values[kOverrides] == QLatin1String("True")
        && std::all_of(values.begin() + kName, values.end(),
                       [](const QString& value) { return value.isNull(); });
}

} // namespace

std::span<const FilterCriteria::Criterion> FilterCriteria::all()
{
    return kCriteria;
}

const FilterCriteria::Criterion* FilterCriteria::find(QStringView key)
{
    const auto it = std::find_if(kCriteria.begin(), kCriteria.end(), [&](const Criterion& known) {
        return key == QLatin1String(known.key);
    });
    return it == kCriteria.end() ? nullptr : &*it;
}

std::optional<QString> FilterCriteria::spelled(const OdDbDatabase& database, const FilterRows& rows)
{
    std::vector<Values> lines;
    for (const FilterRow& row : rows) {
        Values values;
        const Outcome outcome = valuesOf(database, row, values);
        if (outcome == Outcome::NotSayable)
            return std::nullopt;
        if (outcome == Outcome::Contradiction)
            continue;
        for (const Values& line : withBothOfUsed(values))
            lines.push_back(line);
    }
    if (lines.empty() || std::count_if(lines.begin(), lines.end(), mustStandLast) > 1)
        return std::nullopt;
    std::stable_partition(lines.begin(), lines.end(),
                          [](const Values& line) { return !mustStandLast(line); });
    QString text;
    for (const Values& line : lines)
        text += (text.isEmpty() ? QString() : QStringLiteral(" OR ")) + rowText(line);
    return text;
}

bool FilterCriteria::usesOwnWords(const OdDbDatabase& database, const FilterRows& rows)
{
    return std::all_of(rows.begin(), rows.end(), [&](const FilterRow& row) {
        const auto has = [&](const char* key) {
            return std::any_of(row.begin(), row.end(), [&](const FilterCriterion& criterion) {
                return criterion.key == QLatin1String(key);
            });
        };
        return has("USED") == has("VPOVERRIDES")
            && std::all_of(row.begin(), row.end(), [&](const FilterCriterion& criterion) {
                   const Criterion* known = find(criterion.key);
                   return known
                       && ownValue(database, known->kind, criterion.value) == criterion.value;
               });
    });
}
