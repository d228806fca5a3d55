#include "layerman/listing/FiltersCommand.h"

#include "database/drawing/OdDbDatabase.h"
#include "database/tables/OdDbLayerTable.h"
#include "layerman/CompanionHost.h"
#include "layerman/DrawingLoop.h"
#include "layerman/Output.h"
#include "layerman/arguments/FileList.h"
#include "layerman/arguments/Operands.h"
#include "layerman/listing/DrawingsPrinter.h"
#include "layerman/listing/FilterList.h"

void runFiltersCommand(const ParsedCommand& command, Output& output, Report& report)
{
    const bool isJson = formatOf(command) == QLatin1String("json");
    const QStringList operands = requiredFiles(command, command.operands());
    const bool several = operands.size() > 1 || operands.first() == QLatin1String("-");
    const QStringList files = fileList(operands);

    CompanionHost host(true);
    DrawingsPrinter printer(isJson, several, QStringLiteral("filters"), output);
    const auto list = [&](const QString& file) {
        const auto drawing = DrawingLoop::read(file);
        host.setDrawing(drawing.get());
        const ListedFilter root = listedFilters(*drawing);
        host.setDrawing(nullptr);
        printer.drawing(file,
                        isJson ? QStringLiteral("\n  ") + filterJson(root, 2) : filterTable(root));
        report.filtersListed(countOf(root));
    };
    DrawingLoop(output, report).run(files, list, [&](const QString& file, const QString& why) {
        host.setDrawing(nullptr);
        printer.failed(file, why);
    });
    printer.finish();
    output.complain(report.filtersSummary());
}
