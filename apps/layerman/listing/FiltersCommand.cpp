#include "layerman/listing/FiltersCommand.h"

#include "database/OdDbDatabase.h"
#include "database/OdDbLayerTable.h"
#include "layerman/CompanionHost.h"
#include "layerman/DrawingLoop.h"
#include "layerman/Output.h"
#include "layerman/arguments/FileList.h"
#include "layerman/arguments/Operands.h"
#include "layerman/listing/FilterList.h"
#include "layerman/listing/JsonText.h"

namespace {
/// What is printed for one drawing after the other.
class FiltersWriter
{
public:
    FiltersWriter(bool isJson, bool several, Output& output)
        : m_isJson(isJson)
        , m_isSeveral(several)
        , m_output(output)
    {
        if (m_isJson)
            m_output.print(QStringLiteral("["));
    }

    void drawing(const QString& file, const ListedFilter& root)
    {
        if (m_isJson) {
            m_output.print(head(file) + json_text::key(QStringLiteral("filters"))
                           + QStringLiteral("[\n  ") + filterJson(root, 2) + QStringLiteral("]}"));
            return;
        }
        if (!m_isFirst)
            m_output.print(QStringLiteral("\n"));
        m_isFirst = false;
        if (m_isSeveral)
            m_output.print(Output::escaped(file) + QStringLiteral(":\n"));
        m_output.print(filterTable(root));
    }

    void failed(const QString& file, const QString& sentence)
    {
        if (m_isJson)
            m_output.print(head(file) + json_text::key(QStringLiteral("error"))
                           + json_text::string(sentence) + QLatin1Char('}'));
    }

    void finish()
    {
        if (m_isJson)
            m_output.print(QStringLiteral("\n]\n"));
    }

private:
    QString head(const QString& file)
    {
        const QString before = m_isFirst ? QStringLiteral("\n{") : QStringLiteral(",\n{");
        m_isFirst = false;
        return before + json_text::key(QStringLiteral("file")) + json_text::string(file)
            + QStringLiteral(", ");
    }

    bool m_isJson;
    bool m_isSeveral;
    bool m_isFirst = true;
    Output& m_output;
};
} // namespace

void runFiltersCommand(const ParsedCommand& command, Output& output, Report& report)
{
    const bool isJson = formatOf(command) == QLatin1String("json");
    const QStringList operands = requiredFiles(command, command.operands());
    const bool several = operands.size() > 1 || operands.first() == QLatin1String("-");
    const QStringList files = fileList(operands);

    CompanionHost host(true);
    FiltersWriter writer(isJson, several, output);
    const auto list = [&](const QString& file) {
        const auto drawing = DrawingLoop::read(file);
        host.setDrawing(drawing.get());
        const ListedFilter root = listedFilters(*drawing);
        host.setDrawing(nullptr);
        writer.drawing(file, root);
        report.filtersListed(countOf(root));
    };
    DrawingLoop(output, report).run(files, list, [&](const QString& file, const QString& why) {
        host.setDrawing(nullptr);
        writer.failed(file, why);
    });
    writer.finish();
    output.complain(report.filtersSummary());
}
