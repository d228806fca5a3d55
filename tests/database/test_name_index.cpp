#include "database/store/NameIndex.h"

#include <QString>

#include <algorithm>
#include <gtest/gtest.h>
#include <numeric>

namespace {

QByteArray folded(const char16_t* name)
{
    return NameIndex::fold(QStringView(name));
}

TEST(NameIndex, FindsNamesWithoutRegardToCase)
{
    NameIndex names;
    names.append(folded(u"Wände"));
    names.append(folded(u"ΣΤΟΑ"));
    EXPECT_EQ(names.find(folded(u"WÄNDE")), 0u);
    EXPECT_EQ(names.find(folded(u"στοα")), 1u);
    EXPECT_EQ(names.find(folded(u"Wande")), NameIndex::kNotFound);
}

TEST(NameIndex, FoldsBytesLikeText)
{
    QByteArray key;
    NameIndex::foldUtf8("A-WALL_2", key);
    EXPECT_EQ(key, folded(u"a-wall_2"));
    NameIndex::foldUtf8("\xC3\x84", key);
    EXPECT_EQ(key, folded(u"ä"));
}

TEST(NameIndex, OfEqualNamesTheEarliestActiveIsFound)
{
    NameIndex names;
    names.append("a");
    names.append("a");
    EXPECT_EQ(names.find("a"), 0u);
    names.setActive(0, false);
    EXPECT_EQ(names.find("a"), 1u);
    names.setActive(1, false);
    EXPECT_EQ(names.find("a"), NameIndex::kNotFound);
    names.setActive(0, true);
    EXPECT_EQ(names.find("a"), 0u);
}

TEST(NameIndex, FindsEveryNameAfterManyRenames)
{
    NameIndex names;
    constexpr int kNames = 5000;
    for (int i = 0; i < kNames; ++i)
        names.append("layer-" + QByteArray::number(i));
    for (int round = 0; round < 3; ++round) {
        for (int i = 0; i < kNames; i += 2)
            names.rename(static_cast<quint32>(i),
                         QByteArray::number(round) + "-renamed-" + QByteArray::number(i));
    }
    for (int i = 0; i < kNames; ++i) {
        const QByteArray now = (i % 2 ? "layer-" : "2-renamed-") + QByteArray::number(i);
        ASSERT_EQ(names.find(now), static_cast<quint32>(i));
        ASSERT_EQ(names.find("layer-" + QByteArray::number(i)) == NameIndex::kNotFound, i % 2 == 0);
    }
}

TEST(NameIndex, RanksFollowTheOrderOfKeysAndEqualKeysThePosition)
{
    NameIndex names;
    for (const char* name :
         {"long-common-prefix-b", "long-common-prefix-a", "long-common-prefix-",
          "long-common-prefix-a", "long-common-prefix-aaaaaaaaab", "long-common-prefix-aaaaaaaaaa"})
        names.append(name);
    EXPECT_EQ(names.ranks(), (std::vector<quint32>{5, 1, 0, 2, 4, 3}));
    EXPECT_TRUE(NameIndex().ranks().empty());
}

TEST(NameIndex, RanksAgreeWithAPlainSortForNamesOfAnyLength)
{
    NameIndex names;
    std::vector<QByteArray> keys;
    for (int i = 0; i < 3000; ++i) {
        // Runs of equal heads, names that end where others go on, equal names, very long ones.
        QByteArray key = QByteArray(i % 7, 'a') + QByteArray(i % 5 == 0 ? 1200 : 0, 'b');
        key += QByteArray::number(i % 400 * 7919);
        keys.push_back(key);
        names.append(key);
    }
    std::vector<quint32> order(keys.size());
    std::iota(order.begin(), order.end(), 0u);
    std::stable_sort(order.begin(), order.end(),
                     [&](quint32 a, quint32 b) { return keys[a] < keys[b]; });
    std::vector<quint32> expected(keys.size());
    for (quint32 rank = 0; rank < order.size(); ++rank)
        expected[order[rank]] = rank;
    EXPECT_EQ(names.ranks(), expected);
}

} // namespace
