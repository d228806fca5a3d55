#pragma once

#include "io/DrawingFile.h"

#include <QByteArrayView>

#include <atomic>
#include <functional>
#include <memory>
#include <thread>

class QFile;

/// The bytes of a drawing file in memory, with readable zero padding on both sides so that scanners
/// may load whole blocks. The file itself may change or vanish meanwhile. A second thread fills a
/// large image while a codec works behind it: a codec that reads in one pass calls waitFor().
class FileImage
{
public:
    static constexpr std::size_t kPadding = 64;

    /// Starts to load a file. Raises OdError_FileAccess with a sentence: missing, a directory,
    /// empty, too large, unreadable.
    static std::shared_ptr<const FileImage> load(const QString& path);
    static std::shared_ptr<const FileImage> copyOf(const QByteArray& bytes, const QString& name);

    FileImage(const FileImage&) = delete;
    FileImage& operator=(const FileImage&) = delete;
    ~FileImage();

    const char* begin() const { return m_bytes; }
    const char* end() const { return m_bytes + m_size; }
    quint64 size() const { return m_size; }
    QByteArrayView view() const { return {m_bytes, static_cast<qsizetype>(m_size)}; }
    QByteArrayView view(quint64 from, quint64 to) const
    {
        return {m_bytes + from, static_cast<qsizetype>(to - from)};
    }
    /// Whether a view is one into this image.
    bool holds(QByteArrayView part) const
    {
        return !std::less<>()(part.data(), begin())
            && !std::less<>()(end(), part.data() + part.size());
    }
    /// Waits until the bytes before `offset` (at most size()) are there and returns how many are.
    /// Raises OdError_FileAccess when the file cannot be read so far.
    quint64 waitFor(quint64 offset) const;
    /// What error sentences call the file.
    const QString& name() const { return m_name; }
    /// Number (from 1) of the line that holds the byte.
    qint64 lineAt(quint64 offset) const;

private:
    FileImage(std::size_t size, const QString& name);
    void fill(QFile& file, const QString& path);

    void* m_block = nullptr;
    char* m_bytes = nullptr;
    std::size_t m_size = 0;
    QString m_name;
    std::atomic<quint64> m_available = 0;
    std::atomic<bool> m_stop = false;
    QString m_failure; ///< why the file could not be read to its end; read once m_failed is set
    std::atomic<bool> m_failed = false;
    std::jthread m_reader;
};
