#include "host/canvas/CCanvas.h"

#include "host/canvas/CanvasContents.h"
#include "host/canvas/Crosshair.h"
#include "host/canvas/render/FrameScheduler.h"

#include <QEvent>
#include <QPaintEvent>
#include <QPainter>

namespace {

constexpr double kLargestStretch = 64; ///< of an old picture that stands in for a new one

}

CCanvas::CCanvas(QWidget* parent)
    : QWidget(parent)
    , m_contents(std::make_unique<CanvasContents>())
    , m_frames(std::make_unique<FrameScheduler>([this](const ViewTransform& view, bool isSmooth) {
        return frameRequest(view, isSmooth);
    }))
    , m_crosshair(std::make_unique<Crosshair>(*this))
{
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setBackgroundRole(QPalette::Base);
    setAccessibleName(tr("Drawing"));
    setObjectName(QStringLiteral("canvas"));
    setMinimumSize(fontMetrics().height() * 8, fontMetrics().height() * 6);
    updatePointer();

    connect(&m_pointer, &PointerTool::pointPicked, this, &CCanvas::pointPicked);
    connect(&m_pointer, &PointerTool::entityPicked, this, &CCanvas::entityPicked);
    connect(&m_pointer, &PointerTool::boxPicked, this,
            [this](const Box2& box, bool isCrossing, bool removes) {
                if (const Box2 seen = seenPart(box); !seen.isEmpty())
                    emit boxPicked(seen, isCrossing, removes);
            });
    connect(m_frames.get(), &FrameScheduler::frameReady, this, qOverload<>(&QWidget::update));
    connect(m_contents.get(), &CanvasContents::lookChanged, this, &CCanvas::contentsChanged);
    connect(m_contents.get(), &CanvasContents::spaceShown, this, &CCanvas::showSpace);
    connect(m_contents.get(), &CanvasContents::entitiesRedrawn, this, &CCanvas::spaceShown,
            Qt::QueuedConnection);
    connect(m_contents.get(), &CanvasContents::readingProgressed, this, [this] {
        if (!m_contents->isReady())
            update();
    });
}

CCanvas::~CCanvas() = default;

void CCanvas::setDatabase(OdDbDatabase* database)
{
    m_viewsBySpace.clear();
    m_shownSpace = kNoIndex;
    m_contents->setDatabase(database);
}

void CCanvas::regen()
{
    m_contents->rebuild();
}

void CCanvas::zoomExtents()
{
    m_fitWhenReady = !m_contents->isReady();
    if (m_fitWhenReady)
        return;
    ViewTransform view = m_view;
    view.setSize(size());
    view.fit(m_contents->extents());
    if (!m_isFitted)
        m_history.leave(m_view);
    applyView(view);
    m_isFitted = true;
}

QString CCanvas::undrawnSummary() const
{
    return m_contents->undrawnSummary();
}

void CCanvas::setLockedFade(int percent)
{
    m_contents->setLockedFade(percent);
}

void CCanvas::setDefaultWeight(int weight)
{
    m_contents->setDefaultWeight(weight);
}

void CCanvas::setView(const ViewTransform& view)
{
    ViewTransform own = view;
    own.setSize(size());
    applyView(own);
}

void CCanvas::applyView(const ViewTransform& view)
{
    m_view = view;
    m_isFitted = false;
    m_frames->setView(view);
    update();
}

void CCanvas::completeNow(bool smooth)
{
    m_contents->finish();
    m_frames->setView(m_view);
    m_frames->finish(smooth);
}

bool CCanvas::isSmooth() const
{
    return m_frames->isCurrent() && m_frames->frame()->isSmooth;
}

/// Another space is shown: the view it was left with, or all of it.
void CCanvas::showSpace()
{
    if (m_shownSpace != kNoIndex)
        m_viewsBySpace.insert(m_shownSpace, m_view);
    m_history.clear();
    m_shownSpace = m_contents->space();
    const auto known = m_viewsBySpace.constFind(m_shownSpace);
    if (known != m_viewsBySpace.cend() && !m_fitWhenReady)
        setView(known.value());
    else
        zoomExtents();
    emit spaceShown();
}

void CCanvas::contentsChanged()
{
    m_picks.reset();
    m_glow.invalidate();
    m_frames->invalidate();
    update();
}

bool CCanvas::isDark() const
{
    constexpr int kMiddleLightness = 128;
    return palette().color(QPalette::Base).lightness() < kMiddleLightness;
}

/// What lies around the picture: the desk around the paper of a sheet, else the background itself.
QColor CCanvas::surround() const
{
    return palette().color(m_contents->paper().isEmpty() ? QPalette::Base : QPalette::Window);
}

std::optional<FrameRequest> CCanvas::frameRequest(const ViewTransform& view, bool isSmooth)
{
    const QSize pixels = (QSizeF(size()) * devicePixelRatioF()).toSize();
    FrameRequest request;
    request.parts = m_contents->parts();
    if (request.parts.empty() || pixels.isEmpty())
        return std::nullopt;
    request.scene = m_contents->scene();
    request.shaper = m_contents->shaper();
    request.erased = m_contents->erased();
    const Affine2 toPixels{{devicePixelRatioF(), 0}, {0, devicePixelRatioF()}, {}, {}};
    request.view = toPixels.after(view.toWindow());
    request.pixels = pixels;
    request.background = palette().color(QPalette::Base).rgb();
    request.paper = m_contents->paper();
    request.desk = surround().rgb();
    request.paperEdge = palette().color(QPalette::Mid).rgb();
    request.isDark = isDark();
    request.isSmooth = isSmooth;
    request.penWidth = std::max(1, static_cast<int>(devicePixelRatioF()));
    return request;
}

void CCanvas::paintEvent(QPaintEvent* event)
{
    m_frames->paintAtOnce();
    QPainter painter(this);
    painter.fillRect(event->rect(), surround());
    if (m_contents->isReady()) {
        paintFrame(painter);
        paintSelection(painter);
        paintActiveViewport(painter);
        paintRubber(painter);
    } else if (m_contents->isReading()) {
        paintProgress(painter);
    }
    m_crosshair->paint(painter);
}

/// The newest picture, moved and stretched to where the view is by now.
void CCanvas::paintFrame(QPainter& painter) const
{
    const auto& frame = m_frames->frame();
    if (!frame)
        return;
    if (frame->view == m_view) {
        painter.drawImage(rect(), frame->image);
        return;
    }
    const double stretch = m_view.scale() / frame->view.scale();
    if (stretch > kLargestStretch || stretch < 1 / kLargestStretch)
        return;
    // Only what is in sight is handed over: the painter does not bear pictures that are far away.
    const QPointF corner = m_view.toWindow(frame->view.toWorld(QPointF(0, 0)));
    const QRectF target = QRectF(corner, frame->view.size() * stretch).intersected(rect());
    if (target.isEmpty())
        return;
    const double pixels = frame->image.width() / frame->view.size().width() / stretch;
    painter.drawImage(target, frame->image,
                      QRectF((target.topLeft() - corner) * pixels, target.size() * pixels));
}

void CCanvas::paintActiveViewport(QPainter& painter) const
{
    const Box2 frame = m_contents->activeViewportFrame();
    if (frame.isEmpty())
        return;
    const QRectF window =
        QRectF(m_view.toWindow({frame.minX, frame.maxY}), m_view.toWindow({frame.maxX, frame.minY}))
            .intersected(QRectF(rect()).adjusted(-9, -9, 9, 9));
    painter.setPen(QPen(palette().color(QPalette::Text), 2));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(window);
}

void CCanvas::paintProgress(QPainter& painter) const
{
    const int percent = std::clamp(static_cast<int>(m_contents->progress() * 100), 0, 99);
    painter.setPen(palette().color(QPalette::Text));
    painter.drawText(rect(), Qt::AlignCenter, tr("Reading the drawing: %1 %").arg(percent));
}

void CCanvas::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    ViewTransform view = m_view;
    view.setSize(size());
    // Everything stays in sight until the user looks at something in particular.
    const bool wasFitted = m_isFitted;
    applyView(view);
    if (wasFitted)
        zoomExtents();
}

void CCanvas::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    const bool isLook =
        event->type() == QEvent::PaletteChange || event->type() == QEvent::StyleChange;
    if (isLook)
        contentsChanged();
}
