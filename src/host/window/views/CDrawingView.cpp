#include "host/window/views/CDrawingView.h"

#include "database/drawing/OdDbDatabase.h"
#include "host/canvas/CCanvas.h"
#include "host/canvas/CanvasContents.h"
#include "host/canvas/tools/CanvasHostView.h"
#include "host/documents/HostDocument.h"
#include "host/window/views/CLayoutTabs.h"
#include "host/window/views/DatabaseWatch.h"

#include <QBoxLayout>
#include <QKeyEvent>

CDrawingView::CDrawingView(HostDocument& document, QWidget* parent)
    : QWidget(parent)
    , m_document(document)
    , m_canvas(new CCanvas(this))
    , m_layoutTabs(new CLayoutTabs(this))
    , m_watch(new DatabaseWatch(this))
    , m_hostView(std::make_unique<CanvasHostView>(*m_canvas))
{
    setObjectName(QStringLiteral("drawingView"));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_canvas, 1);
    layout->addWidget(m_layoutTabs);
    setFocusProxy(m_canvas);
    m_canvas->setDatabase(document.database());
    m_layoutTabs->showLayouts(*document.database());
    m_watch->setDatabase(document.database());
    connect(m_watch, &DatabaseWatch::changed, this, [this] {
        if (!m_watch->database())
            return;
        m_layoutTabs->showLayouts(*m_watch->database());
        emit drawingChanged();
    });
    connect(m_layoutTabs, &CLayoutTabs::layoutWanted, this, &CDrawingView::layoutWanted);
    document.picks().setShown(&m_canvas->contents());
    connect(&document.selection(), &DrawingSelection::changed, this, &CDrawingView::showSelection);
}

CDrawingView::~CDrawingView() = default;

void CDrawingView::showSelection()
{
    std::vector<quint32> entities;
    for (const OdDbObjectId id : m_document.selection().entities())
        entities.push_back(id.slot());
    m_canvas->setSelected(entities);
    emit selectionShown();
}

void CDrawingView::release()
{
    disconnect(&m_document.selection(), nullptr, this, nullptr);
    m_document.picks().setShown(nullptr);
    m_watch->setDatabase(nullptr);
    m_canvas->setDatabase(nullptr);
}

void CDrawingView::keyPressEvent(QKeyEvent* event)
{
    const auto chords = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
    const QString text = event->text();
    if (text.isEmpty() || !text[0].isPrint() || (event->modifiers() & chords))
        QWidget::keyPressEvent(event);
    else
        emit textTyped(text);
}
