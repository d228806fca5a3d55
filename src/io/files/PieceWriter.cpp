#include "io/files/PieceWriter.h"

#include <QFile>

#include <algorithm>

namespace {
constexpr qsizetype kWriteStep = qsizetype(4) << 20;
} // namespace

PieceWriter::PieceWriter(QFile& file, std::function<void(quint64)> written)
    : m_file(file)
    , m_written(std::move(written))
{
    m_buffer.reserve(kWriteStep);
}

bool PieceWriter::write(std::span<const QByteArrayView> pieces)
{
    return std::all_of(pieces.begin(), pieces.end(),
                       [this](QByteArrayView piece) { return add(piece); })
        && flush();
}

bool PieceWriter::add(QByteArrayView piece)
{
    while (!piece.isEmpty()) {
        const qsizetype step = std::min(piece.size(), kWriteStep);
        if (m_buffer.size() + step > kWriteStep && !flush())
            return false;
        if (m_buffer.isEmpty() && step >= kWriteStep / 4) {
            if (!put(piece.first(step)))
                return false;
        } else {
            m_buffer.append(piece.data(), step);
        }
        piece = piece.sliced(step);
    }
    return true;
}

bool PieceWriter::flush()
{
    const bool isDone = m_buffer.isEmpty() || put(m_buffer);
    m_buffer.resize(0);
    return isDone;
}

bool PieceWriter::put(QByteArrayView bytes)
{
    // A disk that is nearly full takes a part, and says so only when it is given the rest.
    while (!bytes.isEmpty()) {
        const qint64 taken = m_file.write(bytes.data(), bytes.size());
        if (taken <= 0)
            return false;
        m_done += static_cast<quint64>(taken);
        bytes = bytes.sliced(taken);
    }
    m_written(m_done);
    return true;
}
