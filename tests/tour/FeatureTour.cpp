#include "FeatureTour.h"

#include "TourDialogs.h"
#include "database/drawing/OdDbDatabase.h"
#include "database/tables/OdDbLayerTable.h"
#include "database/tables/OdDbLayerTableRecord.h"
#include "support/drawings/DrawingDigest.h"

#include <QTest>

void FeatureTour::initTestCase()
{
    m_tour = std::make_unique<TourWindow>();
}

void FeatureTour::cleanupTestCase()
{
    m_palette.reset();
    m_tour.reset();
}

void FeatureTour::prepare()
{
    if (m_hasFailed)
        QSKIP("A leg of the tour before this one failed.");
}

void FeatureTour::finish()
{
    m_hasFailed = m_hasFailed || QTest::currentTestFailed();
}

void FeatureTour::noteStep(const char* undoText)
{
    m_tour->settle();
    palette().pause();
    QCOMPARE(m_tour->undoText(), QString::fromUtf8(undoText));
    m_steps.push_back({m_tour->undoText(), drawingDigest(drawing())});
    const std::size_t count = m_steps.size();
    QVERIFY(count < 2 || m_steps[count - 1].digest != m_steps[count - 2].digest);
}

void FeatureTour::selectFilter(const char* name)
{
    palette().clickFilter(name);
    QCOMPARE(palette().selectedFilter(), QString::fromUtf8(name));
    noteStep("Undo LAYER");
}

QStringList
FeatureTour::layersThat(const std::function<bool(const OdDbLayerTableRecord&)>& test) const
{
    QStringList names;
    for (const OdDbObjectId id : drawing().layerTable().records()) {
        const auto layer = id.safeOpenObject<OdDbLayerTableRecord>();
        if (test(*layer))
            names.append(layer->getName());
    }
    names.sort();
    return names;
}
