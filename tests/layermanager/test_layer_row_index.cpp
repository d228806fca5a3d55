#include "LayerDrawing.h"
#include "layermanager/layers/LayerRowIndex.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <random>

namespace {

int linearSearch(const LayerRowIndex::Rows& rows, OdDbObjectId layer)
{
    const auto it = std::find(rows.begin(), rows.end(), layer);
    return it == rows.end() ? -1 : static_cast<int>(it - rows.begin());
}

class RowIndex : public testing::Test
{
protected:
    RowIndex()
        : m_database(layer_drawing::numbered(500))
        , m_all(m_database->layerTable().records())
    { }
    void expectAgreement(const LayerRowIndex& index, const LayerRowIndex::Rows& rows) const
    {
        for (const OdDbObjectId layer : m_all)
            ASSERT_EQ(index.find(rows, layer), linearSearch(rows, layer));
    }

    std::unique_ptr<OdDbDatabase> m_database;
    LayerRowIndex::Rows m_all;
};

TEST_F(RowIndex, FindsNothingInNothing)
{
    const LayerRowIndex index;
    EXPECT_EQ(index.find({}, m_all.front()), -1);
    EXPECT_EQ(index.find(m_all, OdDbObjectId()), -1);
}

TEST_F(RowIndex, FindsEveryRowInAnyOrder)
{
    std::mt19937 random(7);
    LayerRowIndex index;
    LayerRowIndex::Rows rows = m_all;
    std::shuffle(rows.begin(), rows.end(), random);
    expectAgreement(index, rows);
}

TEST_F(RowIndex, FindsOnlyWhatIsListed)
{
    const LayerRowIndex index;
    const LayerRowIndex::Rows rows(m_all.begin() + 100, m_all.begin() + 200);
    expectAgreement(index, rows);
}

TEST_F(RowIndex, KeepsUpWithEveryInsertionAndRemoval)
{
    std::mt19937 random(11);
    LayerRowIndex index;
    LayerRowIndex::Rows rows(m_all.begin(), m_all.begin() + 300);
    LayerRowIndex::Rows others(m_all.begin() + 300, m_all.end());
    expectAgreement(index, rows);
    for (int step = 0; step < 1000; ++step) {
        const bool insert = rows.empty() || (!others.empty() && random() % 2 == 0);
        if (insert) {
            const auto row = static_cast<std::ptrdiff_t>(random() % (rows.size() + 1));
            rows.insert(rows.begin() + row, others.back());
            index.inserted(others.back(), static_cast<int>(row), static_cast<int>(rows.size()));
            others.pop_back();
        } else {
            const auto row = static_cast<std::ptrdiff_t>(random() % rows.size());
            others.push_back(rows[static_cast<std::size_t>(row)]);
            rows.erase(rows.begin() + row);
            index.removed();
        }
        if (step % 7 == 0)
            expectAgreement(index, rows);
        if (HasFatalFailure())
            FAIL() << "after step " << step;
    }
}

TEST_F(RowIndex, TakesRowsAppendedBehindTheEndOfTheTable)
{
    LayerRowIndex index;
    LayerRowIndex::Rows rows(m_all.begin(), m_all.begin() + 10);
    expectAgreement(index, rows);
    for (std::size_t i = 300; i < 400; i += 25) {
        rows.push_back(m_all[i]);
        index.inserted(m_all[i], static_cast<int>(rows.size()) - 1, static_cast<int>(rows.size()));
        expectAgreement(index, rows);
    }
}

} // namespace
