#include "layerman/choice/LayerPicker.h"

#include "database/drawing/OdDbDatabase.h"
#include "database/filters/OdLyLayerFilterManager.h"
#include "database/tables/OdDbLayerTable.h"
#include "database/tables/OdDbLayerTableRecord.h"
#include "layerman/AbridgedText.h"
#include "layerman/CompanionText.h"
#include "layerman/arguments/NearestName.h"
#include "layerman/arguments/ParsedCommand.h"
#include "layerman/arguments/UsageError.h"
#include "layermanager/filters/FilterNames.h"
#include "layermanager/layers/LayerSort.h"

#include <QStringList>

namespace {
constexpr int kNearFilters = 3;

/// As the palette's search box reads it.
WildcardPattern searchPattern(const QString& text)
{
    const bool isAll = text.isEmpty() || text == QLatin1String("~");
    return WildcardPattern(isAll ? QStringLiteral("*") : text);
}

[[noreturn]] void refuseUnknown(const OdLyLayerFilterPtr& root, const QString& name,
                                const QString& file)
{
    QStringList names;
    for (const OdLyLayerFilterPtr& filter : filtersOfTree(root))
        names << filter->name();
    QStringList near;
    for (const QString& known : nearest_name::of(name, names, kNearFilters))
        near << QLatin1Char('"') + known + QLatin1Char('"');
    throw OdError(OdResult::KeyNotFound,
                  CompanionText::tr("%1 has no filter \"%2\"; the nearest of its filters: %3.")
                      .arg(file, abridged(name), near.join(QStringLiteral(", "))));
}

OdLyLayerFilterPtr filterOf(OdDbDatabase& drawing, const QString& name, const QString& file)
{
    OdLyLayerFilterPtr root;
    OdLyLayerFilterPtr current;
    odlyGetLayerFilterManager(&drawing)->getFilters(root, current);
    OdLyLayerFilterPtr filter = findFilter(root, name);
    if (!filter)
        refuseUnknown(root, name, file);
    return filter;
}

/// What is said of an expression that is understood in parts only; empty for all others.
QString halfUnderstood(const OdLyLayerFilter& filter)
{
    if (filter.isIdFilter() || filter.isEditable() || filter.filterExpression().isEmpty())
        return {};
    return CompanionText::tr("The filter \"%1\" holds an expression of another program that rows "
                             "of criteria cannot say: %2")
        .arg(filter.name(), filter.filterExpression());
}

QString nameOf(OdDbObjectId id)
{
    const auto layer = id.openObject<OdDbLayerTableRecord>();
    return layer ? layer->getName() : QString();
}
} // namespace

LayerPicker::LayerPicker(const ParsedCommand& command)
    : m_filter(command.value(OptionId::Filter))
    , m_isInverted(command.has(OptionId::Invert))
    , m_isForChanges(command.command().id == CommandId::Set)
{
    if (m_filter && command.has(OptionId::Expr)) {
        throw UsageError(
            CompanionText::tr("--filter and --expr both say which layers; give one of them."));
    }
    if (const auto expression = command.value(OptionId::Expr))
        m_expression.emplace(*expression);
    if (const auto search = command.value(OptionId::Search))
        m_search = searchPattern(*search);
    if (m_isInverted && !isChoosy())
        throw UsageError(CompanionText::tr("--invert needs --filter, --expr or --search."));
}

LayerIds LayerPicker::chosenByFilter(OdDbDatabase& drawing, const QString& file,
                                     QString& note) const
{
    LayerIds shown;
    LayerIds others;
    if (m_filter) {
        const OdLyLayerFilterPtr filter = filterOf(drawing, *m_filter, file);
        note = halfUnderstood(*filter);
        if (m_isForChanges && !note.isEmpty())
            throw OdError(OdResult::NotApplicable, note);
        GetLayersOfFilter(drawing, *filter, shown, &others);
    } else {
        getLayersOfRows(drawing, m_expression->rows(drawing, file), shown, &others);
    }
    LayerIds chosen = m_isInverted ? others : shown;
    if (m_search)
        std::erase_if(chosen, [this](OdDbObjectId id) { return !m_search->matches(nameOf(id)); });
    return chosen;
}

LayerIds LayerPicker::chosenByName(const OdDbDatabase& drawing) const
{
    LayerIds chosen = drawing.layerTable().records();
    std::erase_if(chosen, [this](OdDbObjectId id) {
        const QString name = nameOf(id);
        return name.contains(QLatin1Char('*'))
            || (m_search && m_search->matches(name) == m_isInverted);
    });
    return chosen;
}

PickedLayers LayerPicker::pick(OdDbDatabase& drawing, const QString& file) const
{
    PickedLayers picked;
    picked.layers = m_filter || m_expression ? chosenByFilter(drawing, file, picked.note)
                                             : chosenByName(drawing);
    sortLayers(picked.layers, {}, LayerCellContext::of(drawing));
    return picked;
}
