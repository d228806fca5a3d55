#include "layerman/editing/SaveTargets.h"

#include "database/values/OdError.h"
#include "io/files/FileIdentity.h"
#include "layerman/CompanionText.h"
#include "layerman/arguments/ParsedCommand.h"
#include "layerman/arguments/UsageError.h"

#include <QDir>
#include <QFileInfo>
#include <QHash>
#include <QSet>

namespace {
/// What two paths to the same file have in common; empty for a file that is not there.
QString identityOf(const QString& path)
{
    FileIdentity identity = FileIdentity::of(path);
    // Writing takes ".." off even behind a folder that is not there.
    if (identity.file == 0)
        identity = FileIdentity::of(QDir::cleanPath(path));
    if (identity.file == 0)
        return QFileInfo(path).canonicalFilePath();
    return QStringLiteral("%1:%2").arg(identity.volume).arg(identity.file);
}
} // namespace

SaveTargets::SaveTargets(const ParsedCommand& command, const QStringList& files)
    : m_output(command.value(OptionId::Output).value_or(QString()))
    , m_isInPlace(command.has(OptionId::InPlace))
    , m_isDryRun(command.has(OptionId::DryRun))
{
    if (!command.has(OptionId::Output)) {
        if (!m_isInPlace && !m_isDryRun)
            throw UsageError(CompanionText::tr("%1 needs -o OUT, --in-place or --dry-run.")
                                 .arg(QLatin1String(command.command().name)));
        return;
    }
    if (m_isInPlace)
        throw UsageError(
            CompanionText::tr("-o and --in-place both say where to write; give one of them."));
    if (m_output.isEmpty())
        throw UsageError(
            CompanionText::tr("-o needs a file or a folder; the name given is empty."));
    m_isFolder = QFileInfo(m_output).isDir() || m_output.endsWith(QLatin1Char('/'))
        || m_output.endsWith(QDir::separator());
    if (!m_isFolder && files.size() > 1)
        throw UsageError(
            CompanionText::tr("Several drawings need a folder to be written to; %1 is none. "
                              "With a slash behind its name it is made.")
                .arg(m_output));
    requireOwnFiles(files);
}

void SaveTargets::requireOwnFiles(const QStringList& files) const
{
    QSet<QString> drawings;
    for (const QString& file : files)
        drawings << identityOf(file);
    drawings.remove(QString());
    QHash<QString, QString> sources;
    for (const QString& file : files) {
        const QString target = targetOf(file);
        if (drawings.contains(identityOf(target)))
            throw UsageError(
                CompanionText::tr("%1 is one of the drawings themselves; use --in-place to "
                                  "write over them.")
                    .arg(target));
        if (const auto other = sources.constFind(target); other != sources.cend())
            throw UsageError(CompanionText::tr("%1 and %2 would both be written to %3.")
                                 .arg(*other, file, target));
        sources.insert(target, file);
    }
}

QString SaveTargets::targetOf(const QString& file) const
{
    if (m_isInPlace)
        return file;
    return m_isFolder ? QDir(m_output).filePath(QFileInfo(file).fileName()) : m_output;
}

void SaveTargets::makeFolder() const
{
    if (m_isFolder && !QDir().mkpath(m_output)) {
        throw OdError_FileAccess(OdResult::CantWriteFile,
                                 CompanionText::tr("The folder %1 cannot be made.").arg(m_output));
    }
}

void requireUnchanged(const QString& file, const FileIdentity& whenRead)
{
    if (FileIdentity::of(file) != whenRead) {
        throw OdError_FileAccess(OdResult::CantWriteFile,
                                 CompanionText::tr("%1 was changed by another program meanwhile; "
                                                   "it is not overwritten.")
                                     .arg(file));
    }
}
