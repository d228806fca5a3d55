#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QFile>

/// The bytes of a file as it was written, read back from the disk. A window of it is kept in
/// memory: ranges that follow each other are cheap.
class WrittenBytes
{
public:
    /// Raises OdError_FileAccess when the file cannot be opened.
    explicit WrittenBytes(const QString& path);

    quint64 size() const { return m_size; }
    /// The bytes from `begin` to before `end`; valid until the next call. Raises OdError_FileAccess
    /// for a range that the file does not have, or that cannot be read.
    QByteArrayView view(quint64 begin, quint64 end) const;

private:
    static constexpr quint64 kWindow = quint64(1) << 20;

    mutable QFile m_file;
    mutable QByteArray m_window;
    mutable quint64 m_windowBegin = 0;
    quint64 m_size = 0;
};
