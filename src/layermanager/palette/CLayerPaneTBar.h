#pragma once

#include <QPointer>
#include <QToolBar>

class PaneCommandTarget;

/// A toolbar of the palette. Its commands go to its owner, not to the host's window.
class CLayerPaneTBar : public QToolBar
{
    Q_OBJECT
public:
    /// `id`: the identifier of the toolbar, which tells its buttons.
    CLayerPaneTBar(int id, QWidget* parent);

    int id() const { return m_id; }
    /// The widget that is the target of the commands. Without one that is the parent.
    void setOwner(QWidget* owner) { m_owner = owner; }
    /// Asks the target which commands are enabled and checked.
    void updateCommands();
    /// The command of the button at a point; 0 where there is none.
    int commandAt(QPoint point) const;

protected:
    void changeEvent(QEvent* event) override;

private:
    PaneCommandTarget* target() const;
    void updateIcons();

    int m_id;
    QPointer<QWidget> m_owner;
};
