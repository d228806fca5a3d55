#include "io/dwg/sections/PreviewSection.h"

#include <QtEndian>

QByteArray PreviewSection::movedList(QByteArrayView preview, qint64 by)
{
    // A mark, the size of all that follows, the number of pictures; of each its kind, its place in
    // the file and its size.
    constexpr QByteArrayView kMark(
        "\x1F\x25\x6D\x07\xD4\x36\x28\x28\x9D\x57\xCA\x3F\x9D\x44\x10\x2B", 16);
    constexpr qsizetype kCountAt = 20;
    constexpr qsizetype kPicture = 9;
    if (!preview.startsWith(kMark) || preview.size() <= kCountAt)
        return {};
    const qsizetype count = static_cast<uchar>(preview[kCountAt]);
    const qsizetype end = kCountAt + 1 + count * kPicture;
    const auto size = qFromLittleEndian<quint32>(preview.data() + kMark.size());
    if (preview.size() < end || size < end - kCountAt)
        return {};
    QByteArray list = preview.first(end).toByteArray();
    for (qsizetype at = kCountAt + 2; at < end; at += kPicture) {
        const auto place = qFromLittleEndian<quint32>(list.constData() + at);
        if (place != 0)
            qToLittleEndian(static_cast<quint32>(place + by), list.data() + at);
    }
    return list;
}
