#pragma once

#include "host/canvas/render/FrameRenderer.h"
#include "host/canvas/render/ViewTransform.h"

#include <QObject>
#include <QTimer>

#include <functional>
#include <optional>

/// Keeps a picture of the drawing up to date without ever holding the window up: paints at once
/// what can be painted at once, the rest in slices, and a smooth picture when nothing happens any
/// more.
class FrameScheduler : public QObject
{
    Q_OBJECT
public:
    /// A finished picture and the view it was painted for.
    struct Frame
    {
        QImage image;
        ViewTransform view;
        bool isSmooth = false;
    };
    /// What to paint for a view; nothing while there is nothing to be shown.
    using MakeRequest =
        std::function<std::optional<FrameRequest>(const ViewTransform&, bool isSmooth)>;

    explicit FrameScheduler(MakeRequest makeRequest, QObject* parent = nullptr);

    /// The contents changed: what is being painted is of no use any more.
    void invalidate();
    /// The view changed: what is being painted is completed, for it is better than older pictures.
    void setView(const ViewTransform& view);
    /// To be called when the window is painted: brings the picture up to date if that takes no
    /// longer than a moment.
    void paintAtOnce();
    /// Completes the picture for the current view, the smooth one too if asked for.
    void finish(bool smooth);

    const std::optional<Frame>& frame() const { return m_frame; }
    /// Whether the picture is that of the current contents and view.
    bool isCurrent() const { return m_frame && m_paintedSerial == m_wantedSerial; }

signals:
    /// Another picture is ready that no painting of the window has asked for.
    void frameReady();

private:
    void start(bool smooth);
    bool run(QDeadlineTimer until);
    void slice();

    MakeRequest m_makeRequest;
    ViewTransform m_view;
    std::optional<Frame> m_frame;
    quint64 m_wantedSerial = 1;
    quint64 m_paintedSerial = 0;

    std::unique_ptr<FrameRenderer> m_renderer;
    ViewTransform m_rendererView;
    quint64 m_rendererSerial = 0;
    bool m_rendererIsSmooth = false;

    QTimer m_sliceTimer;
    QTimer m_idleTimer;
};
