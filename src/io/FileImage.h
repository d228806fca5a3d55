#pragma once

#include "io/DrawingFile.h"

#include <QByteArrayView>

#include <memory>

/// The bytes of a drawing file in memory, with readable zero padding on both sides so that scanners
/// may load whole blocks. The file itself may change or vanish meanwhile.
class FileImage
{
public:
    static constexpr std::size_t kPadding = 64;

    /// Raises OdError_FileAccess with a sentence: missing, a directory, empty, too large, unreadable.
    static std::shared_ptr<const FileImage> load(const QString& path, const IoProgress& progress);
    static std::shared_ptr<const FileImage> copyOf(const QByteArray& bytes, const QString& name);

    FileImage(const FileImage&) = delete;
    FileImage& operator=(const FileImage&) = delete;
    ~FileImage();

    const char* begin() const { return m_bytes; }
    const char* end() const { return m_bytes + m_size; }
    quint64 size() const { return m_size; }
    QByteArrayView view() const { return { m_bytes, static_cast<qsizetype>(m_size) }; }
    QByteArrayView view(quint64 from, quint64 to) const
    {
        return { m_bytes + from, static_cast<qsizetype>(to - from) };
    }
    /// What error sentences call the file.
    const QString& name() const { return m_name; }
    /// Number (from 1) of the line that holds the byte.
    qint64 lineAt(quint64 offset) const;

private:
    FileImage(std::size_t size, const QString& name);

    void* m_block = nullptr;
    char* m_bytes = nullptr;
    std::size_t m_size = 0;
    QString m_name;
};
