#include "host/text/LayerTableText.h"

#include "base/WildcardPattern.h"
#include "database/drawing/OdDbDatabase.h"
#include "database/tables/OdDbLayerTable.h"
#include "database/tables/OdDbLayerTableRecord.h"
#include "database/tables/OdDbLinetypeTableRecord.h"
#include "host/text/HostText.h"
#include "host/text/LineweightText.h"
#include "host/text/TextTable.h"

#include <algorithm>

namespace {
struct Row
{
    const OdDbLayerTableRecord& layer;
    bool current;
    bool millimetres;
};

struct Column
{
    const char* title;
    QString (*text)(const Row&);
};

QString yesNo(bool yes)
{
    return yes ? HostText::tr("Yes") : HostText::tr("No");
}

QString mark(bool set, char character)
{
    return set ? QString(QLatin1Char(character)) : QString();
}

QString linetypeName(const Row& row)
{
    const auto linetype = row.layer.linetypeObjectId().openObject<OdDbLinetypeTableRecord>();
    return linetype ? linetype->getName() : QString();
}

const Column kColumns[] = {
    {QT_TRANSLATE_NOOP("Host", "Cur"), [](const Row& r) { return mark(r.current, '*'); }},
    {QT_TRANSLATE_NOOP("Host", "Use"), [](const Row& r) { return mark(r.layer.isInUse(), 'x'); }},
    {QT_TRANSLATE_NOOP("Host", "Name"), [](const Row& r) { return r.layer.getName(); }},
    {QT_TRANSLATE_NOOP("Host", "On"), [](const Row& r) { return yesNo(!r.layer.isOff()); }},
    {QT_TRANSLATE_NOOP("Host", "Freeze"), [](const Row& r) { return yesNo(r.layer.isFrozen()); }},
    {QT_TRANSLATE_NOOP("Host", "Lock"), [](const Row& r) { return yesNo(r.layer.isLocked()); }},
    {QT_TRANSLATE_NOOP("Host", "Color"),
     [](const Row& r) { return r.layer.color().colorNameForDisplay(); }},
    {QT_TRANSLATE_NOOP("Host", "Linetype"), linetypeName},
    {QT_TRANSLATE_NOOP("Host", "Lineweight"),
     [](const Row& r) { return lineweightText(r.layer.lineWeight(), r.millimetres); }},
    {QT_TRANSLATE_NOOP("Host", "Plot Style"), [](const Row& r) { return r.layer.plotStyleName(); }},
    {QT_TRANSLATE_NOOP("Host", "Plot"), [](const Row& r) { return yesNo(r.layer.isPlottable()); }},
    {QT_TRANSLATE_NOOP("Host", "New VP Freeze"),
     [](const Row& r) { return yesNo(r.layer.VPDFLT()); }},
    {QT_TRANSLATE_NOOP("Host", "Description"), [](const Row& r) { return r.layer.description(); }},
};

std::vector<OdDbObjectId> layersByName(const OdDbDatabase& database)
{
    const OdDbLayerTable& table = database.layerTable();
    const auto& order = table.slotsInOrder();
    const auto& ranks = table.nameRanks();
    std::vector<std::pair<quint32, OdDbObjectId>> ranked;
    ranked.reserve(order.size());
    for (std::size_t i = 0; i < order.size(); ++i) {
        if (const OdDbObjectId id = database.idOfSlot(order[i]); !id.isErased())
            ranked.emplace_back(ranks[i], id);
    }
    std::sort(ranked.begin(), ranked.end());
    std::vector<OdDbObjectId> ids;
    ids.reserve(ranked.size());
    for (const auto& [rank, id] : ranked)
        ids.push_back(id);
    return ids;
}

QString countText(int total, int hidden)
{
    QString text = (total == 1 ? HostText::tr("%1 layer") : HostText::tr("%1 layers")).arg(total);
    if (hidden > 0)
        text += HostText::tr(", %1 of them not listed").arg(hidden);
    return text + QStringLiteral(".\n");
}
} // namespace

QString layerTableText(const OdDbDatabase& database, bool millimetres,
                       const WildcardPattern* pattern)
{
    QStringList titles;
    for (const Column& column : kColumns)
        titles << HostText::tr(column.title);
    TextTable text(titles);

    database.layerTable().generateUsageData();
    const OdDbObjectId current = database.getCLAYER();
    int total = 0;
    int hidden = 0;
    for (const OdDbObjectId id : layersByName(database)) {
        const auto layer = id.openObject<OdDbLayerTableRecord>();
        if (!layer || (pattern && !pattern->matches(layer->getName())))
            continue;
        ++total;
        if (layer->getName().startsWith(QLatin1Char('*'))) {
            ++hidden;
            continue;
        }
        const Row row{*layer, id == current, millimetres};
        QStringList cells;
        for (const Column& column : kColumns)
            cells << column.text(row);
        text.addRow(cells);
    }
    return text.toString() + countText(total, hidden);
}
