#include "toolkit/docking/AutoHideState.h"

#include <QDataStream>
#include <QIODevice>

namespace {

constexpr quint32 kMagic = 0x4B534150;
constexpr quint8 kVersion = 1;

bool isSide(qint32 value)
{
    return value == Qt::LeftDockWidgetArea || value == Qt::RightDockWidgetArea
        || value == Qt::TopDockWidgetArea || value == Qt::BottomDockWidgetArea;
}

/// Reads one entry; false when the stream ends early or holds nonsense.
bool readEntry(QDataStream& stream, AutoHideState& state)
{
    qint32 id = 0;
    qint32 side = 0;
    qint32 extent = 0;
    bool closed = false;
    stream >> id >> side >> extent >> closed;
    if (stream.status() != QDataStream::Ok || !isSide(side) || extent < 0)
        return false;
    state.push_back({id, {static_cast<Qt::DockWidgetArea>(side), extent, closed}});
    return true;
}

} // namespace

QByteArray autoHideStateToBytes(const AutoHideState& state)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setVersion(QDataStream::Qt_6_4);
    stream << kMagic << kVersion << quint32(state.size());
    for (const auto& [id, entry] : state)
        stream << qint32(id) << qint32(entry.side) << qint32(entry.extent) << entry.closed;
    return bytes;
}

std::optional<AutoHideState> autoHideStateFromBytes(const QByteArray& bytes)
{
    QDataStream stream(bytes);
    stream.setVersion(QDataStream::Qt_6_4);
    quint32 magic = 0;
    quint8 version = 0;
    quint32 count = 0;
    stream >> magic >> version >> count;
    if (stream.status() != QDataStream::Ok || magic != kMagic || version != kVersion)
        return std::nullopt;
    AutoHideState state;
    for (quint32 i = 0; i < count; ++i) {
        if (!readEntry(stream, state))
            return std::nullopt;
    }
    if (!stream.atEnd())
        return std::nullopt;
    return state;
}
