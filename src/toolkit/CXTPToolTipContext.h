#pragma once

#include <QColor>
#include <QMargins>
#include <QPointer>
#include <QRect>
#include <QString>

#include <functional>

class CRichToolTip;
class QEvent;
class QObject;
class QWidget;

/// What a hit test found out about the tool at a point.
struct XTPToolInfo
{
    static constexpr int kSize = 56;

    int size = kSize; ///< records that declare less are not filled in
    QPointer<QWidget> owner;
    QPointer<QWidget> control;
    quint32 flags = 0;
    QRect rect; ///< of the control, in screen coordinates
    QString text; ///< mark-up, or plain text where the context's style is another
};

/// Shows the tooltips of an owner, a dialog or a pane, whose tools answer with mark-up. When the
/// mouse has rested as long as the desktop's style wants, the owner's hit test is asked what to
/// show.
class CXTPToolTipContext
{
public:
    /// The style whose texts are mark-up; in any other they are shown as they stand.
    static constexpr int kMarkupStyle = 7;
    /// Answer of a hit test: nothing there.
    static constexpr int kNoTool = -1;

    /// Fills in the record for the tool at a point of the screen; its answer is ignored unless it
    /// is kNoTool.
    using HitTest = std::function<int(QPoint point, XTPToolInfo& info)>;

    CXTPToolTipContext();
    ~CXTPToolTipContext();
    CXTPToolTipContext(const CXTPToolTipContext&) = delete;
    CXTPToolTipContext& operator=(const CXTPToolTipContext&) = delete;

    void SetStyle(int style) { m_style = style; }
    void SetTipBkColor(const QColor& colour) { m_background = colour; }
    /// Added to the space between frame and contents; negative values make it less.
    void SetMargin(const QMargins& margins) { m_margins = margins; }
    void setHitTest(HitTest hitTest) { m_hitTest = std::move(hitTest); }

    /// Stores control, rectangle (in screen coordinates) and text in the record.
    void FillInToolInfo(XTPToolInfo& info, QWidget* control, const QRect& rect,
                        const QString& text) const;
    /// To be called with every event of the owner and what is in it. True when the event was a
    /// request for a tooltip that is answered now.
    bool FilterToolTipMessage(QObject* watched, QEvent* event);
    /// The tooltip on the screen, or null.
    CRichToolTip* tip() const;
    void hide();

private:
    int m_style = kMarkupStyle;
    QColor m_background = Qt::white;
    QMargins m_margins{-2, -2, -2, -2};
    HitTest m_hitTest;
    QPointer<CRichToolTip> m_tip;
};
