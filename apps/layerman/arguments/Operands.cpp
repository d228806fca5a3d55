#include "layerman/arguments/Operands.h"

#include "layerman/CompanionText.h"
#include "layerman/arguments/UsageError.h"

QString formatOf(const ParsedCommand& command)
{
    QStringList known;
    for (const char* format : command.command().formats)
        known << QLatin1String(format);
    const QString format = command.value(OptionId::Format).value_or(known.first());
    if (!known.contains(format)) {
        throw UsageError(CompanionText::tr("%1 has no format \"%2\"; expected one of %3.")
                             .arg(QLatin1String(command.command().name), format,
                                  known.join(QStringLiteral(", "))));
    }
    return format;
}

const QStringList& requiredFiles(const ParsedCommand& command, const QStringList& files)
{
    if (files.isEmpty())
        throw UsageError(
            CompanionText::tr("%1 needs a drawing.").arg(QLatin1String(command.command().name)));
    return files;
}
