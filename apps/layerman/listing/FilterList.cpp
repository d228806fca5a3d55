#include "layerman/listing/FilterList.h"

#include "database/drawing/OdDbDatabase.h"
#include "database/filters/OdLyLayerFilterManager.h"
#include "host/text/TextTable.h"
#include "layerman/CompanionText.h"
#include "layerman/Output.h"
#include "layerman/listing/JsonText.h"
#include "layermanager/filters/LayersOfFilter.h"

using Kind = ListedFilter::Kind;

namespace {
Kind kindOf(const OdLyLayerFilter& filter)
{
    if (filter.isIdFilter())
        return Kind::Group;
    return filter.allowDelete() ? Kind::Property : Kind::BuiltIn;
}

ListedFilter listed(OdDbDatabase& drawing, const OdLyLayerFilter& filter,
                    const OdLyLayerFilter* current)
{
    LayerIds shown;
    GetLayersOfFilter(drawing, filter, shown);
    ListedFilter result{filter.name(),
                        kindOf(filter),
                        &filter == current,
                        filter.filterExpression(),
                        0,
                        filter.isEditable(),
                        static_cast<int>(shown.size()),
                        {}};
    if (const auto* group = dynamic_cast<const OdLyLayerGroup*>(&filter))
        result.held = static_cast<int>(group->layerIds().size());
    for (const OdLyLayerFilterPtr& nested : filter.getNestedFilters())
        result.nested.push_back(listed(drawing, *nested, current));
    return result;
}

QString definition(const ListedFilter& filter)
{
    if (filter.kind == Kind::Property)
        return filter.expression;
    if (filter.kind == Kind::BuiltIn)
        return {};
    return filter.held == 1 ? CompanionText::tr("holds %1 layer").arg(filter.held)
                            : CompanionText::tr("holds %1 layers").arg(filter.held);
}

void addRows(TextTable& table, const ListedFilter& filter, int depth)
{
    table.addRow({filter.isCurrent ? QStringLiteral("*") : QString(),
                  QString(depth * 2, QLatin1Char(' ')) + Output::escaped(filter.name),
                  kindText(filter.kind), QString::number(filter.shown),
                  Output::escaped(definition(filter))});
    for (const ListedFilter& nested : filter.nested)
        addRows(table, nested, depth + 1);
}

const char* kindKey(Kind kind)
{
    switch (kind) {
    case Kind::BuiltIn:
        return QT_TRANSLATE_NOOP("layerman", "built-in");
    case Kind::Property:
        return QT_TRANSLATE_NOOP("layerman", "property");
    case Kind::Group:
        break;
    }
    return QT_TRANSLATE_NOOP("layerman", "group");
}
} // namespace

QString kindText(Kind kind)
{
    return CompanionText::tr(kindKey(kind));
}

ListedFilter listedFilters(OdDbDatabase& drawing)
{
    OdLyLayerFilterPtr root;
    OdLyLayerFilterPtr current;
    odlyGetLayerFilterManager(&drawing)->getFilters(root, current);
    return listed(drawing, *root, current.get());
}

int countOf(const ListedFilter& filter)
{
    int count = 1;
    for (const ListedFilter& nested : filter.nested)
        count += countOf(nested);
    return count;
}

QString filterTable(const ListedFilter& root)
{
    TextTable table({CompanionText::tr("Cur"), CompanionText::tr("Filter"),
                     CompanionText::tr("Kind"), CompanionText::tr("Layers"),
                     CompanionText::tr("Definition")});
    addRows(table, root, 0);
    return table.toString();
}

QString filterJson(const ListedFilter& filter, int indent)
{
    using namespace json_text;
    const auto name = [](const char* text) { return key(QLatin1String(text)); };
    QString text = QLatin1Char('{') + name("name") + string(filter.name) + QStringLiteral(", ")
        + name("kind") + string(QLatin1String(kindKey(filter.kind))) + QStringLiteral(", ")
        + name("current") + boolean(filter.isCurrent);
    if (filter.kind == Kind::Property)
        text += QStringLiteral(", ") + name("expression") + string(filter.expression)
            + QStringLiteral(", ") + name("editable") + boolean(filter.isEditable);
    if (filter.kind == Kind::Group)
        text += QStringLiteral(", ") + name("held") + QString::number(filter.held);
    text += QStringLiteral(", ") + name("layers") + QString::number(filter.shown)
        + QStringLiteral(", ") + name("filters") + QLatin1Char('[');
    const QString line = QLatin1Char('\n') + QString(indent + 2, QLatin1Char(' '));
    for (std::size_t i = 0; i < filter.nested.size(); ++i)
        text +=
            (i == 0 ? line : QLatin1Char(',') + line) + filterJson(filter.nested[i], indent + 2);
    return text + QStringLiteral("]}");
}
