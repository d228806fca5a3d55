#include "FilterFixture.h"
#include "database/filters/FilterCriteria.h"
#include "database/objects/OdDbEntity.h"
#include "layermanager/filters/LayerFilterMatch.h"
#include "layermanager/filters/RowCriterion.h"

namespace {

QString withoutQuote(QLatin1String key)
{
    return QString(key).chopped(3); // =="
}

/// In the first viewport of a sheet, so that its criteria are asked, too.
class FilterKeys : public FilterFixture
{
protected:
    FilterKeys()
    {
        m_database.setCTAB(QStringLiteral("Sheet A"));
        m_database.setActiveViewport(
            m_database.getOdDbObjectId(OdDbHandle(DrawingText::kFirstViewport)));
    }
    bool passes(const LayerFilterRow& row)
    {
        return LayerMatchesRow(m_database, row, layer_drawing::read(m_database, "Walls"));
    }
    /// A row that sets one criterion, to a value that the layer has not; of flags, to `flag`.
    LayerFilterRow asking(const RowCriterion& criterion, qint32 flag)
    {
        LayerFilterRow row;
        if (const auto* text = std::get_if<RowCriterion::Text>(&criterion.field))
            row.** text = QStringLiteral("nothing like that");
        else if (const auto* id = std::get_if<RowCriterion::Id>(&criterion.field))
            row.** id = linetype("DASHED");
        else
            row.*std::get<RowCriterion::Number>(criterion.field) =
                criterion.kind == RowCriterion::Kind::Truth ? flag : 211;
        return row;
    }
};

TEST_F(FilterKeys, ThatDrawingsMaySayAreThoseOfRowsInTheSameOrder)
{
    QStringList ofDrawings;
    for (const FilterCriteria::Criterion& criterion : FilterCriteria::all())
        ofDrawings << QLatin1String(criterion.key);
    QStringList ofRows = {withoutQuote(kUsedKey), withoutQuote(kOverridesKey)};
    for (const RowCriterion& criterion : RowCriterion::inOrder())
        ofRows << withoutQuote(criterion.key);
    EXPECT_EQ(ofDrawings.join(QLatin1Char(' ')).toStdString(),
              ofRows.join(QLatin1Char(' ')).toStdString());
}

TEST_F(FilterKeys, AreEachAskedOfALayer)
{
    ASSERT_TRUE(passes({}));
    for (const RowCriterion& criterion : RowCriterion::inOrder()) {
        SCOPED_TRACE(criterion.key.data());
        if (criterion.kind == RowCriterion::Kind::Truth)
            EXPECT_NE(passes(asking(criterion, 1)), passes(asking(criterion, 2)));
        else
            EXPECT_FALSE(passes(asking(criterion, 0)));
    }
}

} // namespace
