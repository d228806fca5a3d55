#include "PaletteFixture.h"

#include "LayerDrawing.h"
#include "database/values/OdRxModule.h"
#include "layermanager/module/LayerModuleState.h"
#include "layermanager/palette/CLayerPaneView.h"
#include "sdk/commands/OdEdCommandStack.h"
#include "toolkit/ControlRegistry.h"

#include <QLabel>
#include <QLineEdit>
#include <QTest>

#include <utility>

extern "C" OdRxModule* odrxCreateModuleObject(void* instance);

void PaletteFixture::prepare()
{
    m_window = std::make_unique<QMainWindow>();
    m_elsewhere = new QLineEdit;
    m_window->setCentralWidget(m_elsewhere);
    m_window->resize(1400, 800);
    m_window->show();
    m_window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    m_manager = std::make_unique<CXTPDockingPaneManager>(*m_window);
    m_host = std::make_unique<FakeHost>(m_window.get());
    m_prompts = std::make_unique<RecordingPrompts>();
    m_module = odrxCreateModuleObject(reinterpret_cast<void*>(&odrxCreateModuleObject));
    m_module->addRef();
    m_module->initApp();
    m_database = &open({"Walls", "Doors"});
}

void PaletteFixture::finish()
{
    unload();
    m_prompts.reset();
    m_host.reset();
    m_manager.reset();
    m_window.reset();
}

void PaletteFixture::unload()
{
    if (OdRxModule* module = std::exchange(m_module, nullptr)) {
        module->uninitApp();
        module->release();
    }
}

OdDbDatabase& PaletteFixture::open(const QList<QByteArray>& layers)
{
    QList<DrawingText::Layer> records;
    for (const QByteArray& name : layers)
        records.append({name});
    return m_host->open(layer_drawing::make(records));
}

void PaletteFixture::run(const char* globalName)
{
    KsApDocument* document = ksDocManagerPtr()->curDocument();
    OdDbCommandContext context(document ? document->database() : nullptr);
    odedRegCmds()->lookup(QString::fromLatin1(globalName))->execute(&context);
}

void PaletteFixture::runWithout(const char* globalName)
{
    OdEdCommandContext context;
    odedRegCmds()->lookup(QString::fromLatin1(globalName))->execute(&context);
}

CLayerPaneView* PaletteFixture::view() const
{
    return LayerModuleState::s_pLayerPaneView;
}

CLayerListCtrl& PaletteFixture::grid() const
{
    return *view()->grid();
}

CLayerTreeVw& PaletteFixture::tree() const
{
    return *view()->tree();
}

QString PaletteFixture::statusText() const
{
    return qobject_cast<QLabel*>(controlById(view(), CLayerPaneView::kStatusLineId))->text();
}
