#include "support/drawings/DrawingDigest.h"

#include "database/drawing/OdDbDatabase.h"
#include "database/filters/OdLyLayerFilterManager.h"
#include "database/objects/OdDbDictionary.h"
#include "database/objects/OdDbDictionaryVar.h"
#include "database/objects/OdDbEntity.h"
#include "database/states/LayerStates.h"
#include "database/store/HeaderVariables.h"
#include "database/store/ObjectStore.h"
#include "database/tables/OdDbLayerTable.h"
#include "database/tables/OdDbLayerTableRecord.h"
#include "database/tables/OdDbLinetypeTableRecord.h"

#include <algorithm>

namespace {

QString handle(OdDbObjectId id)
{
    if (id.isNull())
        return QStringLiteral("-");
    // Those of drawings without handles are of one session only.
    return id.database()->store().fileHasHandles() ? id.getHandle().ascii() : QStringLiteral("*");
}

QString nameOf(OdDbObjectId id)
{
    const auto record = id.openObject<OdDbSymbolTableRecord>();
    return record ? record->getName() : QStringLiteral("-");
}

QString colour(const OdCmColor& color)
{
    return QString::number(color.color(), 16) + color.bookName();
}

template <class Value, class Shown>
void append(QString& line, const char* key, const std::optional<Value>& value, Shown shown)
{
    if (value)
        line += QStringLiteral(" %1=%2").arg(QLatin1String(key), shown(*value));
}

QString overrideLine(const LayerOverride& there)
{
    const auto number = [](auto value) { return QString::number(value); };
    QString line;
    append(line, "color", there.color, colour);
    append(line, "linetype", there.linetype, nameOf);
    append(line, "lineweight", there.lineWeight, number);
    append(line, "plotstyle", there.plotStyle, handle);
    append(line, "transparency", there.transparency, number);
    return line;
}

QString layerLine(const LayerState& layer)
{
    QString line = QStringLiteral("layer %1 off%2 frozen%3 locked%4 plot%5 new%6 dependent%7 %8 %9")
                       .arg(layer.name)
                       .arg(layer.off)
                       .arg(layer.frozen)
                       .arg(layer.locked)
                       .arg(layer.plottable)
                       .arg(layer.frozenInNewViewports)
                       .arg(layer.dependent)
                       .arg(colour(layer.color), nameOf(layer.linetype));
    line += QStringLiteral(" %1 %2 %3 \"%4\"")
                .arg(layer.lineWeight)
                .arg(handle(layer.plotStyle))
                .arg(layer.transparency)
                .arg(layer.description);
    append(line, "reconciled", layer.reconciled, [](bool on) { return QString::number(on); });
    return line;
}

void addLayers(const OdDbDatabase& database, QStringList& lines)
{
    database.layerTable().generateUsageData();
    for (const OdDbObjectId id : database.layerTable().records()) {
        const auto layer = id.openObject<OdDbLayerTableRecord>();
        QString line = layerLine(layer->state());
        line += QStringLiteral(" uses=%1").arg(database.layerTable().useCount(id.slot()));
        for (const auto& [viewport, there] : layer->state().overrides) {
            if (!database.idOfSlot(viewport).isErased())
                line += QStringLiteral(" in %1:").arg(handle(database.idOfSlot(viewport)))
                    + overrideLine(there);
        }
        lines.append(line);
    }
}

void addViewports(const OdDbDatabase& database, QStringList& lines)
{
    for (const quint32 slot : database.store().viewports()) {
        const auto viewport = database.idOfSlot(slot).openObject<OdDbViewport>();
        if (!viewport)
            continue;
        QStringList frozen;
        for (const OdDbObjectId layer : viewport->frozenLayers()) {
            if (!layer.isErased())
                frozen.append(nameOf(layer));
        }
        frozen.sort(); // a set: the file keeps one that was thawed and frozen again in its place
        lines.append(QStringLiteral("viewport %1 frozen: %2")
                         .arg(handle(database.idOfSlot(slot)), frozen.join(QLatin1Char(','))));
    }
}

void addFilter(const OdLyLayerFilter& filter, const QString& indent, QStringList& lines)
{
    QString line = indent + filter.name() + QLatin1Char(' ') + filter.storedExpression();
    if (filter.isIdFilter()) {
        for (const OdDbObjectId layer : static_cast<const OdLyLayerGroup&>(filter).layerIds()) {
            if (!layer.isErased())
                line += QLatin1Char('+') + nameOf(layer);
        }
    }
    lines.append(line);
    for (const OdLyLayerFilterPtr& child : filter.getNestedFilters()) {
        if (!child->dynamicallyGenerated())
            addFilter(*child, indent + QLatin1Char(' '), lines);
    }
}

void addLinetypes(const OdDbDatabase& database, QStringList& lines)
{
    for (const OdDbObjectId id : database.table(OdDbTableKind::Linetype).records()) {
        const auto linetype = id.openObject<OdDbLinetypeTableRecord>();
        if (!linetype)
            continue;
        QString line = QStringLiteral("linetype %1 \"%2\"")
                           .arg(linetype->getName(), linetype->state().description);
        for (const double dash : linetype->state().dashes)
            line += QStringLiteral(" %1").arg(dash);
        lines.append(line);
    }
}

void addStates(const OdDbDatabase& database, QStringList& lines)
{
    const LayerStates states(const_cast<OdDbDatabase&>(database));
    // DWG drawings have them in the order of their names.
    std::vector<LayerStateSummary> all = states.list(false);
    std::sort(all.begin(), all.end(), [](const auto& a, const auto& b) { return a.name < b.name; });
    for (const LayerStateSummary& state : all) {
        lines.append(QStringLiteral("state %1 \"%2\" %3 %4 %5")
                         .arg(state.name, state.description)
                         .arg(state.inLayout)
                         .arg(state.sameAsDrawing)
                         .arg(states.restoreMask(state.name)));
        for (const LayerInfoInLS& layer : states.layers(state.name)) {
            if (layer.layerId.isNull() || layer.layerId.isErased())
                continue;
            lines.append(
                QStringLiteral(" %1 %2 %3 %4 %5 %6")
                    .arg(nameOf(layer.layerId), nameOf(layer.linetypeId), layer.plotStyleName)
                    .arg(layer.flags)
                    .arg(layer.color)
                    .arg(layer.lineWeight));
        }
    }
}

void addVariables(const OdDbDatabase& database, QStringList& lines)
{
    lines.append(QStringLiteral("current %1 model %2")
                     .arg(nameOf(database.getCLAYER()))
                     .arg(database.getTILEMODE()));
    QStringList variables;
    const auto dictionary = database.namedObject({QStringLiteral("AcDbVariableDictionary")})
                                .openObject<OdDbDictionary>();
    if (dictionary) {
        for (const DictionaryEntry& entry : dictionary->entries()) {
            const auto variable = entry.value.openObject<OdDbDictionaryVar>();
            if (variable)
                variables.append(entry.key + QLatin1Char('=') + variable->value());
        }
    }
    const QStringList sessionOnly = {QStringLiteral("$HANDSEED"), QStringLiteral("$CLAYER"),
                                     QStringLiteral("$TILEMODE")};
    for (const HeaderVariables::Variable& variable : database.header().all()) {
        if (database.header().find(variable.name) == &variable
            && !sessionOnly.contains(variable.name))
            variables.append(variable.name + QLatin1Char('=') + variable.value);
    }
    std::sort(variables.begin(), variables.end());
    lines.append(variables);
}

} // namespace

QStringList drawingDigest(const OdDbDatabase& database)
{
    QStringList lines;
    addLayers(database, lines);
    addViewports(database, lines);
    OdLyLayerFilterPtr root;
    OdLyLayerFilterPtr current;
    odlyGetLayerFilterManager(const_cast<OdDbDatabase*>(&database))->getFilters(root, current);
    addFilter(*root, {}, lines);
    lines.append(QStringLiteral("current filter ") + current->name());
    addLinetypes(database, lines);
    addStates(database, lines);
    addVariables(database, lines);
    return lines;
}

std::string digestDifference(const QStringList& a, const QStringList& b)
{
    for (qsizetype i = 0; i < std::max(a.size(), b.size()); ++i) {
        const QString left = i < a.size() ? a[i] : QStringLiteral("(nothing)");
        const QString right = i < b.size() ? b[i] : QStringLiteral("(nothing)");
        if (left != right)
            return (left + QStringLiteral("\nbut ") + right).toStdString();
    }
    return {};
}
