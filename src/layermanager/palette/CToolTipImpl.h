#pragma once

#include "toolkit/CXTPToolTipContext.h"

#include <QObject>
#include <QPointer>
#include <QString>

#include <memory>
#include <vector>

/// A control and what its tooltip says.
struct ToolTipInfo
{
    int id = -1; ///< -1 for a tool added by its window
    QPointer<QWidget> control; ///< null where the owner has no control of that id
    quint32 reserved = 0;
    QString text;
};

/// The rich tooltips of a pane or a dialog that mixes this in. A text has up to three parts with
/// "/" between them: title, description, and a third paragraph. A part of one blank is an empty
/// one. In the title "@@" stands for "/".
class CToolTipImpl
{
protected:
    CToolTipImpl();
    virtual ~CToolTipImpl();
    CToolTipImpl(const CToolTipImpl&) = delete;
    CToolTipImpl& operator=(const CToolTipImpl&) = delete;

    /// From now on requests for tooltips within `owner` are answered.
    void setToolTipOwner(QWidget* owner);
    /// Adds a control of the owner by its registered id; nothing happens without an owner. The text
    /// describes the control to assistive programs as well.
    void AddTool(int id, const QString& text);
    void AddTool(QWidget* control, const QString& text);

    /// Fills the record for the first tool at a point of the screen. CXTPToolTipContext::kNoTool
    /// where there is none.
    virtual int OnToolHitTest(QPoint point, XTPToolInfo& info) const;

    const std::vector<ToolTipInfo>& tools() const { return m_tools; }
    CXTPToolTipContext& toolTips() { return m_context; }

private:
    class OwnerFilter;
    void describe(QWidget* control, const QString& text);

    CXTPToolTipContext m_context;
    QPointer<QWidget> m_owner;
    std::vector<ToolTipInfo> m_tools;
    std::unique_ptr<OwnerFilter> m_filter;
};

/// The mark-up that a tooltip text is shown as: one of four layouts, by which parts are empty.
QString toolTipMarkup(const QString& text);
