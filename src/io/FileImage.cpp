#include "io/FileImage.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <new>

#ifdef Q_OS_LINUX
#include <sys/mman.h>
#endif

namespace {

constexpr std::size_t kAlignment = std::size_t(2) << 20;
constexpr qint64 kReadStep = qint64(4) << 20;
constexpr qint64 kLargestDrawing = qint64(16) << 30;

QString tr(const char* text)
{
    return QCoreApplication::translate("FileImage", text);
}

[[noreturn]] void refuse(const QString& sentence)
{
    throw OdError_FileAccess(OdResult::CantOpenFile, sentence);
}

} // namespace

FileImage::FileImage(std::size_t size, const QString& name)
    : m_size(size)
    , m_name(name)
{
    const std::size_t room =
        (kPadding + size + kPadding + kAlignment - 1) / kAlignment * kAlignment;
    m_block = std::aligned_alloc(kAlignment, room);
    if (!m_block)
        refuse(
            tr("%1 is too large for the memory of this machine (%2 bytes).").arg(name).arg(size));
#ifdef Q_OS_LINUX
    madvise(m_block, room, MADV_HUGEPAGE);
#endif
    m_bytes = static_cast<char*>(m_block) + kPadding;
    std::memset(m_block, 0, kPadding);
    std::memset(m_bytes + size, 0, kPadding);
}

FileImage::~FileImage()
{
    m_stop = true;
    if (m_reader.joinable())
        m_reader.join();
    std::free(m_block);
}

std::shared_ptr<const FileImage> FileImage::copyOf(const QByteArray& bytes, const QString& name)
{
    std::shared_ptr<FileImage> image(new FileImage(static_cast<std::size_t>(bytes.size()), name));
    std::memcpy(image->m_bytes, bytes.constData(), image->m_size);
    image->m_available = image->m_size;
    return image;
}

std::shared_ptr<const FileImage> FileImage::load(const QString& path)
{
    const QFileInfo info(path);
    const QString name = info.fileName().isEmpty() ? path : info.fileName();
    if (!info.exists())
        refuse(tr("%1 does not exist.").arg(path));
    if (info.isDir())
        refuse(tr("%1 is a folder, not a drawing.").arg(path));
    if (!info.isFile())
        refuse(tr("%1 is not a regular file.").arg(path));
    auto file = std::make_unique<QFile>(path);
    if (!file->open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        refuse(tr("%1 cannot be opened: %2.").arg(path, file->errorString()));
    const qint64 size = file->size();
    if (size == 0)
        refuse(tr("%1 is empty.").arg(path));
    if (size > kLargestDrawing)
        refuse(tr("%1 is larger than %2 GB.").arg(path).arg(kLargestDrawing >> 30));

    std::shared_ptr<FileImage> image(new FileImage(static_cast<std::size_t>(size), name));
    if (size <= kReadStep) {
        image->fill(*file, path);
        return image;
    }
    image->m_reader = std::jthread(
        [target = image.get(), source = std::move(file), path] { target->fill(*source, path); });
    return image;
}

void FileImage::fill(QFile& file, const QString& path)
{
    quint64 done = 0;
    while (done < m_size && !m_stop) {
        const qint64 step = std::min(kReadStep, static_cast<qint64>(m_size - done));
        const qint64 got = file.read(m_bytes + done, step);
        if (got <= 0) {
            m_failure = tr("%1 could be read only up to byte %2: %3.")
                            .arg(path)
                            .arg(done)
                            .arg(file.errorString());
            m_failed = true;
            m_available.store(m_size);
            m_available.notify_all();
            return;
        }
        done += static_cast<quint64>(got);
        m_available.store(done);
        m_available.notify_all();
    }
}

quint64 FileImage::waitFor(quint64 offset) const
{
    quint64 available = m_available.load();
    while (available < std::min<quint64>(offset, m_size)) {
        m_available.wait(available);
        available = m_available.load();
    }
    if (m_failed)
        refuse(m_failure);
    return available;
}

qint64 FileImage::lineAt(quint64 offset) const
{
    waitFor(offset);
    return 1 + std::count(begin(), begin() + std::min<quint64>(offset, m_size), '\n');
}
