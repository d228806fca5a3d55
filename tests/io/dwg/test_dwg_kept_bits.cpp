#include "database/tables/OdDbLayerTableRecord.h"
#include "io/dwg/records/DwgTypes.h"
#include "io/dwg/records/FreeRecords.h"
#include "io/dwg/write/KeptBits.h"
#include "io/dwg/write/NewDwgRecords.h"
#include "io/dwg/write/Spelling.h"

#include <gtest/gtest.h>

namespace {

constexpr int kWestern = 30; // ansi_1252
constexpr int kCyrillic = 29; // ansi_1251

/// A record that is put together by hand, opened behind its head.
class MadeRecord
{
public:
    MadeRecord(DrawingVersion version, quint16 type)
        : m_format(DwgFormat::of(version, kWestern))
        , m_make(m_format)
        , m_parts(m_make.begin(type, kHead))
        , record(m_format, {})
    {
        m_parts.handles.handle(DwgReference::SoftPointer, kHead.owner);
        m_make.appendReactors(m_parts, kHead);
    }

    RecordParts& parts() { return m_parts; }
    const DwgFormat& format() const { return m_format; }
    void open()
    {
        constexpr int kLookAhead = 16;
        m_bytes = m_parts.assembled() + QByteArray(kLookAhead, '\0');
        record = DwgRecord(m_format, m_bytes);
        ASSERT_TRUE(record.open(0));
        DwgHead head;
        record.readHead(head);
    }

private:
    static inline const NewDwgRecords::Head kHead{0x50, 0x40, {}, 0, {}};
    DwgFormat m_format;
    NewDwgRecords m_make;
    RecordParts m_parts;
    QByteArray m_bytes;

public:
    DwgRecord record;
};

void appendText(BitWriter& out, int code, const QByteArray& bytes, int codePage)
{
    out.rawShort(static_cast<quint16>(code));
    out.rawShort(static_cast<quint16>(bytes.size()));
    out.rawChar(static_cast<quint8>(codePage));
    out.raw(bytes);
}

void appendNumber(BitWriter& out, int code, quint16 value)
{
    out.rawShort(static_cast<quint16>(code));
    out.rawShort(value);
}

/// Free groups as they were put into a record, and as they are after an edit.
QByteArray edited(const BitWriter& own, const GroupList& expected, const GroupList& after)
{
    MadeRecord made(DrawingVersion::V2000, DwgType::Xrecord);
    made.parts().data.bitLong(static_cast<qint32>(own.size() / 8));
    made.parts().data.append(own);
    made.open();
    const FreeRecords::Xrecord fields = FreeRecords::xrecord(made.record);
    EXPECT_TRUE(fields.own.groups == expected);
    BitWriter out;
    EXPECT_TRUE(KeptBits::groups(
        made.record.body(), fields.own, after,
        [&](const GroupList& groups, BitWriter& spelled) {
            return Spelling::freeGroups(made.format(), groups, spelled);
        },
        out));
    return out.bytes();
}

TEST(KeptBits, WhatStandsBehindAGroupOfAnUnknownFormStays)
{
    BitWriter known;
    appendText(known, 1, "first", kWestern);
    BitWriter number;
    appendNumber(number, 70, 5);
    BitWriter unknown;
    unknown.rawShort(3000);
    unknown.raw("some bytes");
    appendText(unknown, 1, "last", kWestern);
    BitWriter all = known;
    all.append(number);
    all.append(unknown);
    BitWriter six;
    appendNumber(six, 70, 6);
    EXPECT_EQ(edited(all, {{1, "first"}, {70, "5"}}, {{1, "first"}, {70, "6"}}),
              known.bytes() + six.bytes() + unknown.bytes());
    EXPECT_EQ(edited(all, {{1, "first"}, {70, "5"}}, {{70, "5"}}),
              number.bytes() + unknown.bytes());
}

TEST(KeptBits, TextsOfAnotherCodePageAreReadWithItAndKeepTheirBytes)
{
    BitWriter text;
    appendText(text, 1, "\xC4\xEE\xEC", kCyrillic);
    BitWriter all;
    appendNumber(all, 70, 5);
    all.append(text);
    BitWriter six;
    appendNumber(six, 70, 6);
    const QByteArray house = QStringLiteral("\u0414\u043E\u043C").toUtf8();
    EXPECT_EQ(edited(all, {{70, "5"}, {1, house}}, {{70, "6"}, {1, house}}),
              six.bytes() + text.bytes());
}

TEST(KeptBits, APointIsOneItem)
{
    BitWriter all;
    for (const int code : {10, 11}) {
        all.rawShort(static_cast<quint16>(code));
        for (const double coordinate : {1.0, 2.0, 3.0})
            all.rawDouble(coordinate);
    }
    const GroupList before = {{10, "1"}, {20, "2"}, {30, "3"}, {11, "1"}, {21, "2"}, {31, "3"}};
    const GroupList after = {{10, "1"}, {20, "2"}, {30, "4"}, {11, "1"}, {21, "2"}, {31, "3"}};
    BitWriter wanted;
    wanted.rawShort(10);
    for (const double coordinate : {1.0, 2.0, 4.0})
        wanted.rawDouble(coordinate);
    wanted.append(all.bytes(), all.size() / 2, all.size());
    EXPECT_EQ(edited(all, before, after), wanted.bytes());
}

/// The codes and values of references, in words.
QByteArray references(const BitWriter& out)
{
    const QByteArray bytes = out.bytes() + QByteArray(16, '\0');
    BitReader in(bytes);
    QByteArray text;
    while (in.position() < out.size()) {
        const DwgHandle handle = in.handle();
        text +=
            QByteArray::number(handle.code, 16) + ':' + QByteArray::number(handle.value, 16) + ' ';
    }
    return text;
}

TEST(KeptBits, ReferencesThatStayKeepTheirCode)
{
    MadeRecord made(DrawingVersion::V2010, DwgType::Dictionary);
    BitSpan at;
    at.begin = made.parts().handles.size();
    made.parts().handles.handle({0x3, 0x60});
    made.parts().handles.handle({0xA, 0x21}); // 0x71
    made.parts().handles.handle({0x2, 0x80});
    at.end = made.parts().handles.size();
    made.open();
    const quint64 start = made.record.layout().handlesBegin;
    const BitSpan list{start + at.begin, start + at.end};
    const auto now = [&](const std::vector<quint64>& wanted) {
        return references(
            KeptBits::references(made.record, list, wanted, DwgReference::SoftOwner).bits);
    };
    EXPECT_EQ(now({0x60, 0x71, 0x80}), "3:60 a:21 2:80 ");
    EXPECT_EQ(now({0x71, 0x99}), "a:21 2:99 ");
    EXPECT_EQ(now({0x80, 0x60}), "2:80 3:60 ");
    EXPECT_EQ(now({}), "");

    // Those of which nothing is known stay where they are.
    const auto isUnknown = [](quint64 handle) { return handle == 0x71; };
    const KeptBits::References kept =
        KeptBits::references(made.record, list, {0x80, 0x99}, DwgReference::SoftOwner, isUnknown);
    EXPECT_EQ(references(kept.bits), "a:21 2:80 2:99 ");
    EXPECT_EQ(kept.handles, (std::vector<quint64>{0x71, 0x80, 0x99}));
}

TEST(KeptBits, EntriesOfADictionaryKeepTheirSpelling)
{
    MadeRecord made(DrawingVersion::V2000, DwgType::Dictionary);
    BitWriter& data = made.parts().data;
    data.bitLong(3);
    data.bitShort(1);
    data.rawChar(1);
    // A length in its long form is no fault, but nobody would write it.
    for (const char* key : {"A", "B", "C"}) {
        data.bits(0, 2);
        data.rawShort(1);
        data.raw(key);
    }
    made.parts().handles.handle({0x3, 0x60});
    made.parts().handles.handle({0x3, 0x71});
    made.parts().handles.handle({0x3, 0x80});
    made.open();
    const FreeRecords::Dictionary before = FreeRecords::dictionary(made.record);
    ASSERT_EQ(before.entries.size(), 3u);
    const KeptBits::Entries now = KeptBits::entries(
        made.record, made.format(), before,
        {{QStringLiteral("A"), 0}, {QStringLiteral("C"), 0x99}, {QStringLiteral("D"), 0x9A}});
    EXPECT_EQ(references(now.references), "3:60 2:99 2:9a ");
    BitWriter keys;
    for (const char* key : {"A", "C"}) {
        keys.bits(0, 2);
        keys.rawShort(1);
        keys.raw(key);
    }
    keys.bitShort(2);
    keys.raw(QByteArrayView("D\0", 2));
    EXPECT_EQ(now.keys.size(), keys.size());
    EXPECT_EQ(now.keys.bytes(), keys.bytes());
}

TEST(KeptBits, EntriesWithOneKeyEachKeepTheirReference)
{
    MadeRecord made(DrawingVersion::V2010, DwgType::Dictionary);
    made.parts().data.bitLong(3);
    made.parts().data.bitShort(1);
    made.parts().data.rawChar(1);
    for (int i = 0; i < 3; ++i) {
        made.parts().text.append(Spelling::text(made.format(), QStringLiteral("A")));
        made.parts().handles.handle({0x3, 0x60u + static_cast<quint64>(i)});
    }
    made.parts().hasText = true;
    made.open();
    const FreeRecords::Dictionary before = FreeRecords::dictionary(made.record);
    ASSERT_EQ(before.entries.size(), 3u);
    const auto now = [&](const std::vector<quint64>& handles) {
        std::vector<KeyedHandle> wanted;
        for (const quint64 handle : handles)
            wanted.push_back({QStringLiteral("A"), handle});
        return references(KeptBits::entries(made.record, made.format(), before, wanted).references);
    };
    EXPECT_EQ(now({0x60, 0x61, 0x62}), "3:60 3:61 3:62 ");
    EXPECT_EQ(now({0x60, 0, 0x62}), "3:60 3:61 3:62 ");
    EXPECT_EQ(now({0x62, 0x60}), "3:62 3:60 ");
    EXPECT_EQ(now({0x99, 0x60, 0x61, 0x62}), "2:99 3:60 3:61 3:62 ");
}

TEST(KeptBits, GroupsThatWouldRunOverTheirRecordFailAndAreNotRead)
{
    MadeRecord made(DrawingVersion::V2010, DwgType::Xrecord);
    made.parts().data.bitLong(40); // bytes; the record has fewer
    appendNumber(made.parts().data, 70, 5);
    made.open();
    const FreeRecords::Xrecord fields = FreeRecords::xrecord(made.record);
    EXPECT_TRUE(made.record.hasFailed());
    EXPECT_LE(fields.at.end, made.record.layout().dataEnd);
}

TEST(KeptBits, FlagsOfALayerKeepANumberThatIsNoLineweight)
{
    constexpr int kOddWeight = 25 << 5;
    constexpr int kUnknown = 0x400;
    LayerState before;
    before.plottable = true;
    LayerState after = before;
    after.frozen = true;
    EXPECT_EQ(NewDwgRecords::changedLayerFlags(kOddWeight | kUnknown | 16, before, after),
              kOddWeight | kUnknown | 16 | 1);
    after.lineWeight = 0;
    EXPECT_EQ(NewDwgRecords::changedLayerFlags(kOddWeight | kUnknown | 16, before, after),
              kUnknown | 16 | 1);
}

} // namespace
