#include "toolkit/CXTPToolTipContext.h"

#include "toolkit/tooltips/CRichToolTip.h"
#include "toolkit/tooltips/ToolTipMarkup.h"

#include <QHelpEvent>
#include <QWidget>

#include <algorithm>

CXTPToolTipContext::CXTPToolTipContext() = default;

CXTPToolTipContext::~CXTPToolTipContext()
{
    delete m_tip.data();
}

void CXTPToolTipContext::FillInToolInfo(XTPToolInfo& info, QWidget* control, const QRect& rect,
                                        const QString& text) const
{
    if (info.size < XTPToolInfo::kSize)
        return;
    info.control = control;
    info.rect = rect;
    info.text = text;
}

bool CXTPToolTipContext::FilterToolTipMessage(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::ToolTip || !m_hitTest || !qobject_cast<QWidget*>(watched))
        return false;
    const QPoint cursor = static_cast<QHelpEvent*>(event)->globalPos();
    XTPToolInfo info;
    if (m_hitTest(cursor, info) == kNoTool || !info.control || info.text.isEmpty())
        return false;
    if (m_tip && m_tip->isVisible() && m_tip->rectOfTool() == info.rect)
        return true;
    hide();
    const auto parsed =
        m_style == kMarkupStyle ? ToolTipMarkup::parse(info.text) : std::optional<ToolTipElement>();
    const int margin =
        std::min({m_margins.left(), m_margins.top(), m_margins.right(), m_margins.bottom()});
    m_tip =
        new CRichToolTip(parsed ? *parsed : ToolTipMarkup::plain(info.text), m_background, margin);
    m_tip->showFor(*info.control, info.rect, cursor);
    return true;
}

void CXTPToolTipContext::hide()
{
    if (m_tip)
        m_tip->close();
    m_tip.clear();
}

CRichToolTip* CXTPToolTipContext::tip() const
{
    return m_tip;
}
