#include "SyncFixture.h"

#include "layermanager/palette/CLayerPaneView.h"
#include "layermanager/palette/pane/CLayerSearchBox.h"
#include "sdk/CKestPreferenceManager.h"
#include "sdk/KsApDocManager.h"

#include <QTest>

void SyncFixture::prepare()
{
    m_noticesBefore = CKestPreferenceManager::s_Layer_FilterViolationPrompt;
    wantNotices(false);
    PaletteFixture::prepare();
}

void SyncFixture::finish()
{
    PaletteFixture::finish();
    wantNotices(m_noticesBefore);
}

void SyncFixture::wantNotices(bool wanted)
{
    CKestPreferenceManager::s_Layer_FilterViolationPrompt = wanted;
}

void SyncFixture::show(const QList<QByteArray>& layers)
{
    open(layers);
    run("_LAYER");
    settle();
}

OdDbDatabase& SyncFixture::drawing() const
{
    return *ksDocManagerPtr()->curDocument()->database();
}

FilterKey SyncFixture::add(const OdLyLayerFilterPtr& filter, const FilterKey& parent)
{
    FilterTreeEdit edit(drawing());
    edit.find(parent)->addNested(filter);
    edit.write();
    const FilterKey made = keyOfFilter(edit.root(), *filter);
    settle();
    return made;
}

FilterKey SyncFixture::addProperty(const char* name, const char* expression)
{
    const auto filter = odrxCreate<OdLyLayerFilter>(QString::fromUtf8(name));
    filter->setFilterExpression(QString::fromUtf8(expression));
    return add(filter, all());
}

FilterKey SyncFixture::addGroup(const char* name, std::initializer_list<const char*> layers,
                                const FilterKey& parent)
{
    const auto group = odrxCreate<OdLyLayerGroup>(QString::fromUtf8(name));
    for (const char* layer : layers)
        group->addLayerId(id(layer));
    return add(group, parent);
}

OdDbLayerTableRecordPtr SyncFixture::write(const char* layer) const
{
    return layer_drawing::write(drawing(), layer);
}

OdDbLayerTableRecordPtr SyncFixture::read(const char* layer) const
{
    return layer_drawing::read(drawing(), layer);
}

QTimer* SyncFixture::timer(int id) const
{
    return grid().findChild<QTimer*>(QStringLiteral("timer_%1").arg(id));
}

bool SyncFixture::fire(int id)
{
    QTimer* fired = timer(id);
    if (!fired || !fired->isActive())
        return false;
    fired->stop();
    return QMetaObject::invokeMethod(fired, "timeout", Qt::DirectConnection);
}

bool SyncFixture::restarts(int id, const std::function<void()>& action)
{
    constexpr int kLong = 100000; // milliseconds
    constexpr int kSome = 100;
    QTimer* running = timer(id);
    running->setTimerType(Qt::PreciseTimer);
    running->start(kLong);
    while (running->remainingTime() > kLong - kSome) {
    }
    action();
    const bool isAnew = running->remainingTime() > kLong - kSome;
    running->setInterval(CLayerListCtrl::kTimerDelay);
    return isAnew;
}

void SyncFixture::quiesce()
{
    for (int round = 0; round < 10; ++round) {
        settle();
        const bool erasures = fire(CLayerListCtrl::kErasureTimer);
        const bool refresh = fire(CLayerListCtrl::kRefreshTimer);
        if (!erasures && !refresh)
            return;
    }
    QFAIL("The palette does not come to rest.");
}

QString SyncFixture::rows() const
{
    return listed().join(QLatin1Char(' '));
}

QString SyncFixture::chosen() const
{
    return layer_drawing::names(grid().chosenLayers()).join(QLatin1Char(' '));
}

void SyncFixture::search(const char* text)
{
    QLineEdit* box = view()->searchBox();
    box->setFocus();
    box->selectAll();
    QTest::keyClick(box, Qt::Key_Backspace);
    QTest::keyClicks(box, QString::fromUtf8(text));
}
