#include "database/filters/FilterRecords.h"

#include "base/NumberText.h"
#include "database/drawing/OdDbDatabase.h"
#include "database/filters/FilterExpressionText.h"
#include "database/objects/OdDbDictionary.h"
#include "database/objects/OdDbXrecord.h"
#include "database/tables/OdDbLayerTableRecord.h"

#include <QStringList>

namespace {

constexpr const char* kApplication = "ACAD";

/// Names of colours that filters of the old form may hold instead of an index.
QString colourIndex(const QString& text)
{
    static const QStringList names = {QStringLiteral("red"),   QStringLiteral("yellow"),
                                      QStringLiteral("green"), QStringLiteral("cyan"),
                                      QStringLiteral("blue"),  QStringLiteral("magenta"),
                                      QStringLiteral("white")};
    const qsizetype at = names.indexOf(text.toLower());
    return at < 0 ? text : QString::number(at + 1);
}

/// Two bits of an old filter's flag word: the low one says that the criterion is set, the high one
/// chooses the second value.
struct LegacyFlag
{
    int shift;
    const char* first;
    const char* second;
};
constexpr LegacyFlag kLegacyFlags[] = {
    {0, "OFF==\"False\"", "OFF==\"True\""},
    {2, "FROZEN==\"True\"", "FROZEN==\"False\""},
    {4, "VPFROZEN==\"True\"", "VPFROZEN==\"False\""},
    {6, "NEWVPFROZEN==\"True\"", "NEWVPFROZEN==\"False\""},
    {8, "LOCKED==\"True\"", "LOCKED==\"False\""},
    {10, "PLOTTABLE==\"True\"", "PLOTTABLE==\"False\""},
};

QString quoted(const char* key, const QString& value)
{
    return QLatin1String(key) + QStringLiteral("==\"") + value + QLatin1Char('"');
}

/// `texts`: name, name pattern, colour, linetype, lineweight, plot style.
QString legacyExpression(const QStringList& texts, qint64 flags)
{
    QStringList criteria;
    const auto add = [&](const char* key, const QString& value) {
        if (!value.isEmpty() && value != QLatin1String("*"))
            criteria.append(quoted(key, value));
    };
    add("NAME", texts[1]);
    for (const LegacyFlag& flag : kLegacyFlags) {
        if ((flags >> flag.shift & 1) != 0)
            criteria.append(
                QLatin1String((flags >> flag.shift & 2) != 0 ? flag.second : flag.first));
    }
    add("COLOR", colourIndex(texts[2]));
    add("LINETYPE", texts[3]);
    add("LINEWEIGHT", texts[4]);
    add("PLOTSTYLE", texts[5]);
    return criteria.join(QStringLiteral(" AND "));
}

void setExpression(const OdDbDatabase& database, OdLyLayerFilter& filter, OdDbObjectId record,
                   const QString& stored)
{
    const FilterExpressionText::Spelling spelling = FilterExpressionText::spelled(database, stored);
    filter.setOrigin({record, stored, spelling.isSayable, false}, spelling.text);
}

constexpr QLatin1String kKeyMark("*A");

} // namespace

OdLyLayerFilterPtr FilterRecords::read(const OdDbDatabase& database, OdDbObjectId record)
{
    const auto opened = record.openObject<OdDbXrecord>();
    if (!opened)
        return nullptr;
    QByteArrayView kind;
    QString name;
    QString expression;
    std::vector<OdDbObjectId> members;
    for (const GroupList::Group& group : opened->groups()) {
        if (group.code == kClass && kind.isEmpty())
            kind = group.value;
        else if (group.code == kName)
            name = QString::fromUtf8(group.value);
        else if (group.code == kExpression)
            expression = QString::fromUtf8(group.value);
        else if (group.code == kMember)
            members.push_back(
                database.getOdDbObjectId(OdDbHandle(NumberText::handle(group.value).value_or(0))));
    }
    if (kind == kGroupClass) {
        const auto group = odrxCreate<OdLyLayerGroup>(name);
        group->setOrigin({record, {}, true, false}, {});
        for (const OdDbObjectId member : members) {
            if (member.openObject<OdDbLayerTableRecord>())
                group->addLayerId(member);
        }
        return group;
    }
    if (kind != kExpressionClass)
        return nullptr;
    const auto filter = odrxCreate<OdLyLayerFilter>(name);
    setExpression(database, *filter, record, expression);
    return filter;
}

GroupList FilterRecords::written(const OdLyLayerFilter& filter, const GroupList& before)
{
    GroupList groups;
    const bool isNew = before.isEmpty();
    if (isNew) {
        groups.append(kClass, filter.isIdFilter() ? kGroupClass : kExpressionClass);
        groups.append(kVersion, qint64(1));
        groups.append(kName, filter.name().toUtf8());
        if (!filter.isIdFilter())
            groups.append(kExpression, filter.storedExpression().toUtf8());
    }
    for (const GroupList::Group& group : before) {
        if (group.code == kName)
            groups.append(kName, filter.name().toUtf8());
        else if (group.code == kExpression)
            groups.append(kExpression, filter.storedExpression().toUtf8());
        else if (group.code != kMember)
            groups.append(group);
    }
    if (filter.isIdFilter()) {
        for (const OdDbObjectId layer : static_cast<const OdLyLayerGroup&>(filter).layerIds()) {
            if (!layer.isErased())
                groups.append(kMember, layer.getHandle().ascii().toLatin1());
        }
    }
    return groups;
}

bool FilterRecords::isMarkedCurrent(const GroupList& groups)
{
    for (const GroupList::Group& group : groups) {
        if (group.code == kCurrent)
            return NumberText::integer(group.value).value_or(0) == 1;
    }
    return false;
}

GroupList FilterRecords::markedCurrent(const GroupList& groups, bool current)
{
    GroupList marked;
    if (current)
        marked.append(kCurrent, qint64(1)); // the first group, as other programs have it
    for (const GroupList::Group& group : groups) {
        if (group.code != kCurrent)
            marked.append(group);
    }
    return marked;
}

OdLyLayerFilterPtr FilterRecords::readLegacy(const OdDbDatabase& database, OdDbObjectId record)
{
    const auto opened = record.openObject<OdDbXrecord>();
    if (!opened)
        return nullptr;
    QStringList texts;
    qint64 flags = 0;
    for (const GroupList::Group& group : opened->groups()) {
        if (group.code == 1)
            texts.append(QString::fromUtf8(group.value));
        else if (group.code == 70)
            flags = NumberText::integer(group.value).value_or(0);
    }
    if (texts.size() != 6)
        return nullptr;
    // A newer program may have added the expression itself.
    const QString mirrored = currentMark(opened->xData());
    const auto filter = odrxCreate<OdLyLayerFilter>(texts.front());
    setExpression(database, *filter, record,
                  mirrored.isEmpty() ? legacyExpression(texts, flags) : mirrored);
    return filter;
}

OdDbObjectId FilterRecords::dictionaryOf(const OdDbDatabase& database, OdDbObjectId owner,
                                         const QString& key)
{
    const auto extension = database.extensionDictionary(owner).openObject<OdDbDictionary>();
    const OdDbObjectId found = extension ? extension->getAt(key) : OdDbObjectId();
    return found.openObject<OdDbDictionary>() ? found : OdDbObjectId();
}

QString FilterRecords::keyOf(quint32 number)
{
    return kKeyMark + QString::number(number);
}

quint32 FilterRecords::numberOf(const QString& key)
{
    constexpr qsizetype kMostDigits = 9;
    const bool isNumbered = key.startsWith(kKeyMark, Qt::CaseInsensitive)
        && key.size() - kKeyMark.size() <= kMostDigits;
    return isNumbered ? QStringView(key).sliced(kKeyMark.size()).toUInt() : 0;
}

QString FilterRecords::currentMark(const GroupList& xData)
{
    bool inside = false;
    for (const GroupList::Group& group : xData) {
        if (group.code == 1001)
            inside = group.value.compare(kApplication, Qt::CaseInsensitive) == 0;
        else if (inside && group.code == 1000)
            return QString::fromUtf8(group.value);
    }
    return {};
}

GroupList FilterRecords::withCurrentMark(const GroupList& xData, const QString& mark)
{
    GroupList marked;
    bool inside = false;
    for (const GroupList::Group& group : xData) {
        if (group.code == 1001)
            inside = group.value.compare(kApplication, Qt::CaseInsensitive) == 0;
        if (!inside)
            marked.append(group);
    }
    if (!mark.isEmpty()) {
        marked.append(1001, kApplication);
        marked.append(1000, mark.toUtf8());
    }
    return marked;
}
