#include "host/canvas/render/FrameScheduler.h"

namespace {

constexpr int kAtOnceMilliseconds = 60;
constexpr int kFrameSliceMilliseconds = 10;
constexpr int kIdleMilliseconds = 250;

} // namespace

FrameScheduler::FrameScheduler(MakeRequest makeRequest, QObject* parent)
    : QObject(parent)
    , m_makeRequest(std::move(makeRequest))
{
    m_sliceTimer.setInterval(0);
    connect(&m_sliceTimer, &QTimer::timeout, this, &FrameScheduler::slice);
    m_idleTimer.setInterval(kIdleMilliseconds);
    m_idleTimer.setSingleShot(true);
    connect(&m_idleTimer, &QTimer::timeout, this, [this] {
        start(true);
        m_sliceTimer.start();
    });
}

void FrameScheduler::invalidate()
{
    ++m_wantedSerial;
    m_renderer.reset();
    m_sliceTimer.stop();
    m_idleTimer.stop();
}

void FrameScheduler::setView(const ViewTransform& view)
{
    if (view == m_view)
        return;
    m_view = view;
    ++m_wantedSerial;
    m_idleTimer.stop();
    if (m_rendererIsSmooth)
        m_renderer.reset();
}

void FrameScheduler::start(bool smooth)
{
    m_renderer.reset();
    m_rendererIsSmooth = smooth;
    m_rendererSerial = m_wantedSerial;
    m_rendererView = m_view;
    if (const auto request = m_makeRequest(m_view, smooth))
        m_renderer = std::make_unique<FrameRenderer>(*request);
    else
        m_frame.reset();
}

/// Paints on; true when the renderer has come to its end or there is none.
bool FrameScheduler::run(QDeadlineTimer until)
{
    if (!m_renderer)
        return true;
    if (!m_renderer->run(until))
        return false;
    m_frame = Frame{m_renderer->image(), m_rendererView, m_rendererIsSmooth};
    m_paintedSerial = m_rendererSerial;
    m_renderer.reset();
    if (isCurrent() && !m_rendererIsSmooth)
        m_idleTimer.start();
    return true;
}

void FrameScheduler::paintAtOnce()
{
    // One that is under way already has had its moment; it goes on in slices.
    if (isCurrent() || (m_renderer && !m_rendererIsSmooth))
        return;
    start(false);
    if (run(QDeadlineTimer(kAtOnceMilliseconds)))
        m_sliceTimer.stop();
    else
        m_sliceTimer.start();
}

void FrameScheduler::slice()
{
    if (!run(QDeadlineTimer(kFrameSliceMilliseconds)))
        return;
    m_sliceTimer.stop();
    emit frameReady();
}

void FrameScheduler::finish(bool smooth)
{
    m_sliceTimer.stop();
    while (!isCurrent() || m_renderer) {
        if (!m_renderer)
            start(false);
        if (!m_renderer)
            return;
        run(QDeadlineTimer(QDeadlineTimer::Forever));
    }
    if (smooth && !m_frame->isSmooth) {
        start(true);
        run(QDeadlineTimer(QDeadlineTimer::Forever));
        m_idleTimer.stop();
    }
}
