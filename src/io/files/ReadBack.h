#pragma once

#include <QByteArrayView>
#include <QString>

#include <atomic>
#include <span>
#include <thread>

/// Reads a file back while it is being written, in a thread of its own, and compares it byte by
/// byte with what was meant.
class ReadBack
{
public:
    /// The parts together are what the file should hold; they stay valid while this lives.
    ReadBack(const QString& path, std::span<const QByteArrayView> parts);
    ~ReadBack();
    ReadBack(const ReadBack&) = delete;
    ReadBack& operator=(const ReadBack&) = delete;

    /// The first `bytes` bytes of the file have been written.
    void written(quint64 bytes);
    /// Waits until all that was written is compared: an empty text when it is what was meant, else
    /// what differs or cannot be read.
    QString finish();
    /// ContentHash over the file; once finish() returned.
    quint64 contentHash() const { return m_hash; }

private:
    void run();
    quint64 waitFor(quint64 offset) const;

    QString m_path;
    std::span<const QByteArrayView> m_parts;
    quint64 m_total = 0;
    std::atomic<quint64> m_written = 0;
    std::atomic<bool> m_stop = false;
    QString m_failure;
    quint64 m_hash = 0;
    std::jthread m_reader;
};
