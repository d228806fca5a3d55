#include "layerman/listing/ColumnTable.h"

#include "database/tables/OdDbLayerTableRecord.h"
#include "layerman/AbridgedText.h"
#include "layerman/CompanionText.h"
#include "layerman/arguments/NearestName.h"
#include "layerman/arguments/UsageError.h"

#include <algorithm>

using enum LayerColumn;
namespace {
constexpr ListColumn kColumns[] = {
    {"status",
     Status,
     {},
     ColumnKind::Text,
     nullptr,
     QT_TRANSLATE_NOOP("layerman", "Current layer, In use or Not in use.")},
    {"name",
     Name,
     {},
     ColumnKind::Text,
     nullptr,
     QT_TRANSLATE_NOOP("layerman", "The layer's name.")},
    {"on", On, {}, ColumnKind::Flag, nullptr, QT_TRANSLATE_NOOP("layerman", "yes or no.")},
    {"freeze",
     Freeze,
     {},
     ColumnKind::Flag,
     nullptr,
     QT_TRANSLATE_NOOP("layerman", "Whether it is frozen.")},
    {"locked", Locked, {}, ColumnKind::Flag, nullptr, QT_TRANSLATE_NOOP("layerman", "yes or no.")},
    {"color",
     Color,
     {},
     ColumnKind::Color,
     nullptr,
     QT_TRANSLATE_NOOP("layerman", "A name from red to white, an index, r,g,b or a book's color.")},
    {"linetype",
     Linetype,
     {},
     ColumnKind::Text,
     nullptr,
     QT_TRANSLATE_NOOP("layerman", "The linetype's name.")},
    {"lineweight",
     Lineweight,
     {},
     ColumnKind::Lineweight,
     nullptr,
     QT_TRANSLATE_NOOP("layerman", "Default or a width.")},
    {"plotstyle",
     PlotStyle,
     {},
     ColumnKind::Text,
     nullptr,
     QT_TRANSLATE_NOOP("layerman", "The plot style's name.")},
    {"plot",
     Plot,
     {},
     ColumnKind::Flag,
     nullptr,
     QT_TRANSLATE_NOOP("layerman", "Whether it is plotted.")},
    {"newvpfreeze",
     NewVpFreeze,
     {},
     ColumnKind::Flag,
     nullptr,
     QT_TRANSLATE_NOOP("layerman", "Whether it is frozen in new viewports.")},
    {"description",
     Description,
     {},
     ColumnKind::Text,
     nullptr,
     QT_TRANSLATE_NOOP("layerman", "The layer's description.")},
    {"vpfreeze",
     VpFreeze,
     {},
     ColumnKind::Flag,
     nullptr,
     QT_TRANSLATE_NOOP("layerman",
                       "Whether it is frozen in the active viewport; this and the next four are "
                       "empty in model space.")},
    {"vpcolor",
     VpColor,
     {},
     ColumnKind::Color,
     nullptr,
     QT_TRANSLATE_NOOP("layerman", "Its color in the active viewport.")},
    {"vplinetype",
     VpLinetype,
     {},
     ColumnKind::Text,
     nullptr,
     QT_TRANSLATE_NOOP("layerman", "Its linetype there.")},
    {"vplineweight",
     VpLineweight,
     {},
     ColumnKind::Lineweight,
     nullptr,
     QT_TRANSLATE_NOOP("layerman", "Its lineweight there.")},
    {"vpplotstyle",
     VpPlotStyle,
     {},
     ColumnKind::Text,
     nullptr,
     QT_TRANSLATE_NOOP("layerman", "Its plot style there.")},
    {"handle",
     {},
     ExtraColumn::Handle,
     ColumnKind::Text,
     QT_TRANSLATE_NOOP("layerman", "Handle"),
     QT_TRANSLATE_NOOP("layerman", "The record's handle, hexadecimal; empty in old drawings.")},
    {"reconciled",
     {},
     ExtraColumn::Reconciled,
     ColumnKind::Flag,
     QT_TRANSLATE_NOOP("layerman", "Reconciled"),
     QT_TRANSLATE_NOOP("layerman", "no for a layer that came since layers were reviewed.")},
    {"used",
     {},
     ExtraColumn::Used,
     ColumnKind::Flag,
     QT_TRANSLATE_NOOP("layerman", "Used"),
     QT_TRANSLATE_NOOP("layerman", "Whether anything lies on it.")},
    {"file",
     {},
     ExtraColumn::File,
     ColumnKind::Text,
     QT_TRANSLATE_NOOP("layerman", "File"),
     QT_TRANSLATE_NOOP("layerman", "The drawing, as it was named to the program.")},
};
QString extraText(ExtraColumn column, const ListRow& row)
{
    if (column == ExtraColumn::File)
        return row.file;
    const OdDbHandle handle = row.layer.objectId().getHandle();
    return handle.isNull() ? QString() : handle.ascii();
}

QStringList columnNames()
{
    QStringList names;
    for (const ListColumn& column : kColumns)
        names << QLatin1String(column.name);
    return names;
}
} // namespace

std::span<const ListColumn> listColumns()
{
    return kColumns;
}

const ListColumn& listColumn(LayerColumn cell)
{
    return kColumns[static_cast<std::size_t>(cell)];
}

const ListColumn& listColumn(ExtraColumn extra)
{
    return kColumns[kLayerColumnCount + static_cast<std::size_t>(extra)];
}

ListColumns columnsFrom(const QString& text)
{
    ListColumns chosen;
    for (const QString& part : text.split(QLatin1Char(','))) {
        const QString name = part.trimmed();
        if (name.isEmpty())
            throw UsageError(CompanionText::tr(
                "--columns holds an empty name; expected columns with commas between."));
        const auto* found =
            std::find_if(std::begin(kColumns), std::end(kColumns), [&](const ListColumn& column) {
                return name.compare(QLatin1String(column.name), Qt::CaseInsensitive) == 0;
            });
        if (found == std::end(kColumns)) {
            throw UsageError(
                CompanionText::tr("There is no column \"%1\"; the nearest is %2.")
                    .arg(abridged(name), nearest_name::of(name, columnNames()).value(0)));
        }
        chosen.push_back(found);
    }
    return chosen;
}

ListColumns defaultColumns(bool withFile)
{
    ListColumns chosen;
    if (withFile)
        chosen.push_back(&listColumn(ExtraColumn::File));
    for (const LayerColumnInfo& info : layerColumns()) {
        if (!info.layoutsOnly)
            chosen.push_back(&listColumn(info.column));
    }
    return chosen;
}

QString columnTitle(const ListColumn& column)
{
    return column.cell ? layerColumnInfo(*column.cell).headerText()
                       : CompanionText::tr(column.title);
}

QString columnHelp(const ListColumn& column)
{
    return CompanionText::tr(column.text);
}

QString cellText(const ListColumn& column, const ListRow& row)
{
    if (column.kind == ColumnKind::Flag) {
        const auto flag = cellFlag(column, row);
        if (!flag)
            return {};
        return *flag ? QStringLiteral("yes") : QStringLiteral("no");
    }
    if (!column.cell)
        return extraText(*column.extra, row);
    if (*column.cell == Status)
        return layerCellStateText(row.layer, Status, row.context);
    return layerCellText(row.layer, *column.cell, row.context);
}

std::optional<bool> cellFlag(const ListColumn& column, const ListRow& row)
{
    if (column.extra) {
        return *column.extra == ExtraColumn::Used ? row.layer.isInUse() : row.layer.isReconciled();
    }
    if (layerColumnInfo(*column.cell).layoutsOnly && !row.context.viewportReadable())
        return std::nullopt;
    const bool flag = layerCellFlag(row.layer, *column.cell, row.context);
    // The grid's flag says that the layer is off.
    return *column.cell == On ? !flag : flag;
}
