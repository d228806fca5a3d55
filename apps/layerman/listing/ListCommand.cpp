#include "layerman/listing/ListCommand.h"

#include "database/drawing/OdDbDatabase.h"
#include "database/tables/OdDbLayerTable.h"
#include "layerman/CompanionHost.h"
#include "layerman/DrawingLoop.h"
#include "layerman/Output.h"
#include "layerman/arguments/FileList.h"
#include "layerman/arguments/Operands.h"
#include "layerman/choice/LayerPicker.h"
#include "layerman/listing/ListWriter.h"

namespace {
ListColumns columnsOf(const ParsedCommand& command, const QString& format, bool several)
{
    if (const auto list = command.value(OptionId::Columns))
        return columnsFrom(*list);
    // In the other forms the file stands above its layers.
    return defaultColumns(several && format == QLatin1String("csv"));
}
} // namespace

void runListCommand(const ParsedCommand& command, Output& output, Report& report)
{
    const QString format = formatOf(command);
    const LayerPicker picker(command);
    const QStringList operands = requiredFiles(command, command.operands());
    const bool several = operands.size() > 1 || operands.first() == QLatin1String("-");
    const ListColumns columns = columnsOf(command, format, several);
    const QStringList files = fileList(operands);

    CompanionHost host(!command.has(OptionId::Inches));
    const auto writer = ListWriter::make(format, columns, several, output);
    const auto list = [&](const QString& file) {
        const auto drawing = DrawingLoop::read(file);
        host.setDrawing(drawing.get());
        drawing->layerTable().generateUsageData();
        const PickedLayers picked = picker.pick(*drawing, file);
        if (!picked.note.isEmpty())
            output.complain(file, picked.note);
        writer->drawing(file, picked.layers, LayerCellContext::of(*drawing));
        report.listed(static_cast<int>(picked.layers.size()), drawing->layerTable().count());
        host.setDrawing(nullptr);
    };
    DrawingLoop(output, report).run(files, list, [&](const QString& file, const QString& why) {
        host.setDrawing(nullptr);
        writer->failed(file, why);
    });
    writer->finish();
    output.complain(report.listSummary());
}
