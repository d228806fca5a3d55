#include "io/dxf/text/GroupCode.h"
#include "io/dxf/text/GroupSpelling.h"

#include <gtest/gtest.h>

namespace {

QByteArray group(const GroupSpelling& spelling, int code, QByteArrayView value)
{
    QByteArray out;
    spelling.append(out, code, value);
    return out;
}

TEST(GroupSpelling, PadsNumbersOfTextsToTheColumnsOfTheirKind)
{
    const GroupSpelling padded = GroupSpelling::text("\r\n", 3, true);
    EXPECT_EQ(group(padded, 0, "LAYER"), "  0\r\nLAYER\r\n");
    EXPECT_EQ(group(padded, 62, "-7"), " 62\r\n    -7\r\n");
    EXPECT_EQ(group(padded, 290, "1"), "290\r\n     1\r\n");
    EXPECT_EQ(group(padded, 420, "255"), "420\r\n      255\r\n");
    EXPECT_EQ(group(padded, 1071, "1234567890"), "1071\r\n1234567890\r\n");
    EXPECT_EQ(group(padded, 160, "5"), "160\r\n                 5\r\n");
    EXPECT_EQ(group(padded, 40, "1.5"), " 40\r\n1.5\r\n");
    EXPECT_EQ(group(padded, 330, "1F"), "330\r\n1F\r\n");
    const GroupSpelling plain = GroupSpelling::text("\n", 1, false);
    EXPECT_EQ(group(plain, 62, "-7"), "62\n-7\n");
    EXPECT_EQ(plain.value(62, "-7"), "-7\n");
    EXPECT_FALSE(plain.isBinary());
}

TEST(GroupSpelling, WritesBinaryNumbersLittleEndianAndEndsTextsWithZero)
{
    const GroupSpelling wide = GroupSpelling::binary(2);
    const auto hex = [](const QByteArray& bytes) { return bytes.toHex(' '); };
    EXPECT_EQ(hex(group(wide, 8, "0")), "08 00 30 00");
    EXPECT_EQ(hex(group(wide, 62, "-2")), "3e 00 fe ff");
    EXPECT_EQ(hex(group(wide, 40, "-2.0")), "28 00 00 00 00 00 00 00 00 c0");
    EXPECT_EQ(hex(group(wide, 290, "1")), "22 01 01");
    EXPECT_EQ(hex(group(wide, 160, "-1")), "a0 00 ff ff ff ff ff ff ff ff");
    EXPECT_EQ(hex(group(wide, 310, "0AfF")), "36 01 02 0a ff");
    EXPECT_EQ(hex(wide.value(5, "1F")), "31 46 00");
    EXPECT_EQ(wide.value(420, "3255440414"), wide.value(420, "-1039526882"))
        << "signed and unsigned spellings are the same bits";
}

TEST(GroupSpelling, OneByteCodesAreEscapedFrom255On)
{
    const GroupSpelling narrow = GroupSpelling::binary(1);
    EXPECT_EQ(group(narrow, 8, "0").toHex(' '), "08 30 00");
    EXPECT_EQ(group(narrow, 239, "0").toHex(' '), "ef 00 00 00 00 00 00 00 00");
    EXPECT_EQ(group(narrow, 1070, "1").toHex(' '), "ff 2e 04 01 00");
}

TEST(GroupSpelling, LongChunksBecomeSeveralGroupsInBinary)
{
    const QByteArray bytes(300, 'x');
    const QByteArray out = group(GroupSpelling::binary(2), 310, bytes.toHex());
    const QByteArray code = QByteArray::fromHex("3601");
    EXPECT_EQ(out,
              code + '\x7F' + bytes.first(127) + code + '\x7F' + bytes.first(127) + code + '\x2E'
                  + bytes.first(46));
}

TEST(GroupSpelling, ASampleShowsLineEndsWidthOfCodesAndPadding)
{
    const auto spelled = [](const char* sample) {
        return group(GroupSpelling::sample(sample), 62, "7");
    };
    EXPECT_EQ(spelled("  0\r\nLAYER\r\n  2\r\n0\r\n 70\r\n     0\r\n"), " 62\r\n     7\r\n");
    EXPECT_EQ(spelled("0\nLAYER\n2\n0\n70\n0\n"), "62\n7\n");
    EXPECT_EQ(spelled("0\nLAYER\n70\n     4\n"), "62\n     7\n");
    EXPECT_EQ(spelled("  0\nLAYER\n 70\n0\n"), " 62\n7\n");
    EXPECT_EQ(spelled("  0\nLAYER\n 70\n-12345\n 62\n7\n"), " 62\n7\n")
        << "a number that fills its columns shows nothing";
    EXPECT_EQ(spelled("  0\nENDSEC\n"), " 62\n     7\n");
    EXPECT_EQ(spelled("0\nENDSEC\n"), "62\n7\n");
    EXPECT_EQ(spelled(""), " 62\n     7\n");
}

TEST(GroupKinds, FollowTheCode)
{
    struct Fact
    {
        int code;
        GroupKind kind;
    };
    constexpr Fact kFacts[] = {
        {0, GroupKind::Text},     {5, GroupKind::Handle},    {9, GroupKind::Text},
        {10, GroupKind::Real},    {59, GroupKind::Real},     {60, GroupKind::Int16},
        {79, GroupKind::Int16},   {90, GroupKind::Int32},    {100, GroupKind::Text},
        {105, GroupKind::Handle}, {149, GroupKind::Real},    {160, GroupKind::Int64},
        {239, GroupKind::Real},   {280, GroupKind::Int16},   {290, GroupKind::Bool},
        {310, GroupKind::Chunk},  {320, GroupKind::Handle},  {369, GroupKind::Handle},
        {370, GroupKind::Int16},  {390, GroupKind::Handle},  {410, GroupKind::Text},
        {420, GroupKind::Int32},  {430, GroupKind::Text},    {459, GroupKind::Int32},
        {460, GroupKind::Real},   {480, GroupKind::Handle},  {999, GroupKind::Text},
        {1004, GroupKind::Chunk}, {1005, GroupKind::Handle}, {1010, GroupKind::Real},
        {1070, GroupKind::Int16}, {1071, GroupKind::Int32},
    };
    for (const Fact& fact : kFacts) {
        EXPECT_EQ(groupKind(fact.code), fact.kind) << fact.code;
        EXPECT_TRUE(hasBinaryForm(fact.code)) << fact.code;
    }
    for (const int code : {-5, -1, 80, 103, 106, 150, 180, 240, 482, 998, 1072, 65535}) {
        EXPECT_FALSE(hasBinaryForm(code)) << code;
        EXPECT_EQ(groupKind(code), GroupKind::Text) << code;
    }
}

} // namespace
