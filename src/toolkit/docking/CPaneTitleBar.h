#pragma once

#include <QWidget>

class CPaneTitleButton;
class QMenu;

/// Title bar of a docking pane: its title, and buttons to hide it to the side or pin it, to float
/// or dock it, and to close it. Its context menu offers the same.
class CPaneTitleBar : public QWidget
{
    Q_OBJECT
public:
    enum class Mode { Docked, Floating, HiddenToSide };

    explicit CPaneTitleBar(QWidget* parent);

    void setTitle(const QString& title);
    const QString& title() const { return m_title; }
    void setMode(Mode mode);

    QSize minimumSizeHint() const override;
    /// What the menu of the title offers in the present mode; "dock", "float", "hide" and "close"
    /// by object name. The caller owns it.
    QMenu* makeMenu();

signals:
    void autoHideRequested();
    void floatRequested();
    void closeRequested();

protected:
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    void applyMetrics();

    QString m_title;
    Mode m_mode = Mode::Docked;
    CPaneTitleButton* m_autoHide;
    CPaneTitleButton* m_float;
    CPaneTitleButton* m_close;
};
