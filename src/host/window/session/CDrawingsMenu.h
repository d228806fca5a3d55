#pragma once

#include <QMenu>

class HostDocManager;

/// The menu of the open drawings: what is done with all of them, then one entry each.
class CDrawingsMenu : public QMenu
{
    Q_OBJECT
public:
    /// The actions stand above the drawings.
    CDrawingsMenu(const QString& title, const QList<QAction*>& actions, HostDocManager& documents,
                  QWidget* parent);

private:
    void listDrawings();

    HostDocManager& m_documents;
    QList<QAction*> m_listed;
};
