#include "SurfaceFixture.h"

#include "layermanager/palette/CLayerPaneView.h"
#include "sdk/texts/KsResString.h"
#include "sdk/texts/ModulePath.h"

#include <QTest>

extern "C" class OdRxModule* odrxCreateModuleObject(void* instance);

void SurfaceFixture::openPalette(const QString& catalogue)
{
    m_module = modulePathOf(reinterpret_cast<void*>(&odrxCreateModuleObject));
    KsLoadLanguageCatalogue(m_module, catalogue);
    host().ints[QStringLiteral("LAYEREVALCTL")] = 1;
    host().ints[QStringLiteral("LAYEREVAL")] = 1;
    host().ints[QStringLiteral("LAYERNOTIFY")] = 15;
    run("_LAYER");
}

void SurfaceFixture::finish()
{
    if (m_shown && !m_shown->parent())
        delete m_shown;
    PaletteFixture::finish();
    KsLoadLanguageCatalogue(m_module, QString());
}

void SurfaceFixture::addSurfaces()
{
    QTest::addColumn<int>("surface");
    int index = 0;
    for (const Surface& surface : surfaces())
        QTest::newRow(surface.name) << index++;
}

QWidget& SurfaceFixture::show(int surface)
{
    m_shown = surfaces()[static_cast<std::size_t>(surface)].make(*view(), db());
    m_shown->show();
    [[maybe_unused]] const bool exposed = QTest::qWaitForWindowExposed(m_shown->window());
    QCoreApplication::processEvents();
    return *m_shown;
}
