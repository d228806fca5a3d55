#include "layerman/editing/ChangeLine.h"

#include "layerman/Output.h"

QString changeLine(const QString& file, const QString& layer, const QString& property,
                   const QString& before, const QString& after)
{
    const auto shown = [](const QString& text) {
        return text.isEmpty() ? QStringLiteral("\"\"") : Output::escaped(text);
    };
    return QStringLiteral("%1: %2: %3 %4 -> %5\n")
        .arg(Output::escaped(file), Output::escaped(layer), property, shown(before), shown(after));
}
