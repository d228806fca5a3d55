#include "io/dwg/container/PageForm.h"

#include "io/dwg/bits/Checksums.h"
#include "io/dwg/container/Lz77.h"

const QByteArray& PageForm::noise()
{
    static const QByteArray bytes = [] {
        QByteArray made(256, Qt::Uninitialized);
        quint32 seed = 1;
        for (char& byte : made) {
            seed = seed * 0x343FD + 0x269EC3;
            byte = static_cast<char>(seed >> 16);
        }
        return made;
    }();
    return bytes;
}

QByteArray PageForm::maskedHead(QByteArrayView head)
{
    QByteArray masked = head.toByteArray();
    for (qsizetype i = 0; i < masked.size(); ++i)
        masked[i] = static_cast<char>(masked[i] ^ noise()[i]);
    return masked;
}

QByteArray PageForm::maskedPageHead(QByteArrayView head, quint64 offset)
{
    constexpr quint32 kMask = 0x4164536B;
    QByteArray masked = head.toByteArray();
    for (qsizetype at = 0; at + 4 <= masked.size(); at += 4)
        put(masked, at,
            word<quint32>(masked.constData() + at) ^ kMask ^ static_cast<quint32>(offset));
    return masked;
}

quint32 PageForm::headSum(QByteArray head, int field, quint32 seed)
{
    put<quint32>(head, field, 0);
    return Checksums::page(head, seed);
}

QByteArray PageForm::systemPage(quint32 type, const QByteArray& map)
{
    const QByteArray packed = Lz77::pack(map);
    QByteArray page(kSystemHead, '\0');
    put(page, 0, type);
    put(page, 4, static_cast<quint32>(map.size()));
    put(page, 8, static_cast<quint32>(packed.size()));
    put(page, 12, kPacked);
    put(page, kSystemSum, Checksums::page(packed, headSum(page, kSystemSum, 0)));
    page += packed;
    QByteArray end(kSystemHead, '\0');
    put(end, 0, type);
    put(end, 12, kPacked);
    page += end;
    page += noise().first(-page.size() & (kAlignment - 1));
    return page;
}
