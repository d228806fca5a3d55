#pragma once

#include <QTabBar>

class OdDbDatabase;

/// The tabs under a drawing: model space and the sheets. They show what the drawing says; a tab
/// that the user picks is asked for, and shown as current once the drawing has switched.
class CLayoutTabs : public QTabBar
{
    Q_OBJECT
public:
    explicit CLayoutTabs(QWidget* parent = nullptr);

    /// Shows the layouts of that drawing and its current one.
    void showLayouts(const OdDbDatabase& drawing);

signals:
    void layoutWanted(const QString& name);

private:
    void tabPicked(int index);

    bool m_showing = false;
    int m_shown = -1;
};
