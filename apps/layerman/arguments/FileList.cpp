#include "layerman/arguments/FileList.h"

#include "base/StandardInput.h"
#include "database/values/OdError.h"
#include "layerman/CompanionText.h"
#include "layerman/arguments/DecodedName.h"
#include "layerman/arguments/UsageError.h"

namespace {
constexpr QLatin1String kStandardInput("-");
constexpr qint64 kLongestLine = 65'536;

[[noreturn]] void refuseLine(int line, const QString& expectation)
{
    throw OdError_FileAccess(
        OdResult::CantOpenFile,
        CompanionText::tr("standard input, line %1: %2").arg(QString::number(line), expectation));
}

QByteArray withoutEnd(QByteArray line)
{
    if (line.endsWith('\n'))
        line.chop(1);
    if (line.endsWith('\r'))
        line.chop(1);
    return line;
}
} // namespace

QStringList namesFrom(QIODevice& list)
{
    QStringList names;
    for (int line = 1;; ++line) {
        const QByteArray bytes = list.readLine(kLongestLine);
        if (bytes.isEmpty())
            return names;
        if (bytes.size() >= kLongestLine - 1 && !bytes.endsWith('\n'))
            refuseLine(line, CompanionText::tr("this is longer than a file name can be."));
        const QByteArray name = withoutEnd(bytes);
        if (name.contains('\0'))
            refuseLine(line, CompanionText::tr("expected a file name, found a null character."));
        if (name.isEmpty())
            continue;
        const auto decoded = decodedName(name);
        if (!decoded)
            refuseLine(line, CompanionText::tr("this name holds bytes that are no text."));
        names << *decoded;
    }
}

QStringList fileList(const QStringList& operands)
{
    if (operands.count(kStandardInput) > 1)
        throw UsageError(CompanionText::tr("- can be given once only."));
    QStringList files;
    for (const QString& operand : operands) {
        if (operand.isEmpty())
            throw UsageError(CompanionText::tr("A file name is needed; the one given is empty."));
        if (operand != kStandardInput) {
            files << operand;
            continue;
        }
        StandardInput input;
        files += namesFrom(input);
        if (input.hasFailed()) {
            throw OdError_FileAccess(OdResult::CantOpenFile,
                                     CompanionText::tr("Standard input, which was to name the "
                                                       "drawings, cannot be read."));
        }
    }
    return files;
}
