#include "io/files/AtomicFile.h"

#include "io/files/ContentHash.h"
#include "io/files/DiskCalls.h"
#include "io/files/PieceWriter.h"
#include "io/files/ReadBack.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QRandomGenerator>

namespace {

constexpr int kMostLinks = 40;
constexpr int kAttempts = 100;

QString tr(const char* text)
{
    return QCoreApplication::translate("AtomicFile", text);
}

QString uniqueText()
{
    return QString::number(QRandomGenerator::system()->generate(), 16);
}

} // namespace

QString AtomicFile::resolved(const QString& path)
{
    QFileInfo info(path);
    for (int links = 0; info.isSymLink(); ++links) {
        if (links == kMostLinks)
            throw OdError_FileAccess(
                OdResult::CantWriteFile,
                tr("%1 cannot be written: its links lead in a circle.").arg(path));
        info.setFile(info.symLinkTarget());
    }
    return info.absoluteFilePath();
}

AtomicFile::AtomicFile(const QString& path)
    : m_path(path)
    , m_target(resolved(path))
{
    const QFileInfo target(m_target);
    if (target.isDir())
        throw OdError_FileAccess(OdResult::CantWriteFile,
                                 tr("%1 is a folder; expected a file name.").arg(path));
    if (target.exists() && !target.isFile())
        throw OdError_FileAccess(OdResult::CantWriteFile,
                                 tr("%1 is not a regular file; it is not replaced.").arg(path));
    if (target.exists() && !disk_calls::mayWrite(m_target))
        fail(disk_calls::lastError());
    removeLeftovers();
    createTemporary();
}

AtomicFile::~AtomicFile()
{
    if (m_committed)
        return;
    m_file.close();
    m_file.remove();
}

void AtomicFile::fail(const QString& why) const
{
    throw OdError_FileAccess(
        OdResult::CantWriteFile,
        tr("%1 cannot be written: %2. The file is as it was.").arg(m_path, why));
}

// The name says for which file it stands in, and stays short: the target's own name may be as long
// as names can be.
QString AtomicFile::temporaryName(const QString& unique) const
{
    const QFileInfo target(m_target);
    const quint64 name = ContentHash::of(target.fileName().toUtf8());
    return target.dir().filePath(
        QStringLiteral(".kest-%1-%2.tmp").arg(QString::number(name & 0xFFFFFFFFu, 16), unique));
}

// A process that was killed while it saved leaves its temporary file behind.
void AtomicFile::removeLeftovers() const
{
    const QFileInfo pattern(temporaryName(QStringLiteral("*")));
    const QStringList names =
        pattern.dir().entryList({pattern.fileName()}, QDir::Files | QDir::Hidden);
    for (const QString& name : names) {
        const QString path = pattern.dir().filePath(name);
        if (disk_calls::isAbandoned(path))
            QFile::remove(path);
    }
}

void AtomicFile::createTemporary()
{
    for (int attempt = 0; attempt < kAttempts; ++attempt) {
        m_file.setFileName(temporaryName(uniqueText()));
        if (m_file.open(QIODevice::ReadWrite | QIODevice::NewOnly | QIODevice::Unbuffered)) {
            disk_calls::markInUse(m_file);
            disk_calls::copyAccess(m_target, m_file);
            return;
        }
        if (!m_file.exists())
            break;
    }
    m_committed = true; // there is nothing to remove
    fail(m_file.errorString());
}

void AtomicFile::write(std::span<const QByteArrayView> parts, const IoProgress& progress)
{
    quint64 total = 0;
    for (const QByteArrayView part : parts)
        total += static_cast<quint64>(part.size());
    const auto report = [&](quint64 done) {
        if (progress && !progress(done, total))
            throw OdError(OdResult::Cancelled,
                          tr("Saving %1 was cancelled. The file is as it was.").arg(m_path));
    };
    ReadBack readBack(m_file.fileName(), parts);
    PieceWriter writer(m_file, [&](quint64 done) {
        readBack.written(done);
        report(done);
    });
    const bool isWritten = writer.write(parts);
    if (!isWritten || !disk_calls::sync(m_file))
        fail(isWritten ? disk_calls::lastError() : m_file.errorString());
    if (const QString problem = readBack.finish(); !problem.isEmpty())
        fail(tr("what was written was read back, and %1").arg(problem));
    report(total);
    m_hash = readBack.contentHash();
    m_identity = FileIdentity::of(m_file);
}

QString AtomicFile::keepBackup()
{
    if (!QFileInfo::exists(m_target))
        return {};
    const QString backup = m_target + QLatin1Char('~');
    const QString step = temporaryName(uniqueText());
    if (!disk_calls::link(m_target, step)) {
        // Some file systems know no second names.
        QFile old(m_target);
        if (!old.copy(step)) {
            const QString why = old.errorString();
            QFile::remove(step);
            return tr("The old file could not be kept as %1: %2.").arg(backup, why);
        }
    }
    const bool isKept = disk_calls::replace(step, backup);
    const QString why = isKept ? QString() : disk_calls::lastError();
    // Renaming does nothing where both names mean the same file already.
    QFile::remove(step);
    return isKept ? QString() : tr("The old file could not be kept as %1: %2.").arg(backup, why);
}

void AtomicFile::commit()
{
    // Other systems than Unix do not rename what is open.
    const QString temporary = m_file.fileName();
    m_file.close();
    if (m_file.error() != QFileDevice::NoError)
        fail(m_file.errorString());
    if (!disk_calls::replace(temporary, m_target))
        fail(disk_calls::lastError());
    m_committed = true;
    disk_calls::syncFolder(QFileInfo(m_target).path());
}
