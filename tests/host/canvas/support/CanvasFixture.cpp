#include "host/canvas/support/CanvasFixture.h"

#include "database/drawing/OdDbDatabase.h"
#include "database/tables/OdDbLayerTable.h"
#include "io/DrawingFile.h"
#include "support/drawings/SharedDrawings.h"

#include <QFileInfo>
#include <QTest>

void CanvasFixture::prepare()
{
    m_canvas = std::make_unique<CCanvas>();
    m_canvas->resize(800, 600);
    setDark(true);
}

void CanvasFixture::finish()
{
    m_canvas.reset();
    m_database.reset();
}

void CanvasFixture::setDark(bool dark)
{
    QPalette palette = m_canvas->palette();
    palette.setColor(QPalette::Base, dark ? Qt::black : Qt::white);
    palette.setColor(QPalette::Text, dark ? Qt::white : Qt::black);
    m_canvas->setPalette(palette);
}

void CanvasFixture::show(const CanvasDrawing& text)
{
    showBytes(text.bytes());
}

void CanvasFixture::showBytes(const QByteArray& bytes)
{
    m_canvas->setDatabase(nullptr);
    m_database = readDrawing(bytes, QStringLiteral("test.dxf"));
    m_canvas->setDatabase(m_database.get());
    m_canvas->completeNow();
    look({0, 0}, 4);
}

void CanvasFixture::look(Vec2 centre, double scale)
{
    ViewTransform view;
    view.setSize(QSizeF(1, 1));
    view.setCentre(centre);
    view.zoomAbout(QPointF(0.5, 0.5), scale);
    m_canvas->setView(view);
}

OdDbObjectId CanvasFixture::layer(const char* name) const
{
    return m_database->layerTable().getAt(QString::fromLatin1(name));
}

OdDbObjectId CanvasFixture::byHandle(quint64 handle) const
{
    return m_database->getOdDbObjectId(OdDbHandle(handle));
}

void CanvasFixture::addRowsOfDrawings()
{
    KEST_QTEST_NEEDS_DRAWINGS();
    QTest::addColumn<QString>("path");
    for (const QString& path : SharedDrawings::files())
        QTest::newRow(qPrintable(QFileInfo(path).fileName())) << path;
}
