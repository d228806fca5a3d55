#pragma once

#include <QByteArray>
#include <QByteArrayView>

#include <functional>
#include <span>

class QFile;

/// Collects small pieces into large writes; hands large ones through.
class PieceWriter
{
public:
    /// `written` is told how many bytes the file holds, after each write.
    PieceWriter(QFile& file, std::function<void(quint64)> written);

    /// False when the file took less than it was given; its error says why.
    bool write(std::span<const QByteArrayView> pieces);

private:
    bool add(QByteArrayView piece);
    bool flush();
    bool put(QByteArrayView bytes);

    QFile& m_file;
    std::function<void(quint64)> m_written;
    QByteArray m_buffer;
    quint64 m_done = 0;
};
