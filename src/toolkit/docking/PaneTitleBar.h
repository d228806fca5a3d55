#pragma once

#include <QWidget>

class PaneTitleButton;

/// Title bar of a docking pane: its title, and buttons to hide it to the side or pin it, to float
/// or dock it, and to close it.
class PaneTitleBar : public QWidget
{
    Q_OBJECT
public:
    enum class Mode { Docked, Floating, HiddenToSide };

    explicit PaneTitleBar(QWidget* parent);

    void setTitle(const QString& title);
    const QString& title() const { return m_title; }
    void setMode(Mode mode);

    QSize minimumSizeHint() const override;

signals:
    void autoHideRequested();
    void floatRequested();
    void closeRequested();

protected:
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void applyMetrics();

    QString m_title;
    PaneTitleButton* m_autoHide;
    PaneTitleButton* m_float;
    PaneTitleButton* m_close;
};
