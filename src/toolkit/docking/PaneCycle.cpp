#include "toolkit/docking/PaneCycle.h"

#include "toolkit/CXTPDockingPaneManager.h"
#include "toolkit/docking/PaneFocus.h"

#include <QApplication>
#include <QMainWindow>
#include <QShortcut>

PaneCycle::PaneCycle(CXTPDockingPaneManager& manager)
    : QObject(&manager.window())
    , m_manager(manager)
{
    for (const int step : {1, -1}) {
        auto* key = new QShortcut(&manager.window());
        key->setKey(step > 0 ? QKeySequence(Qt::Key_F6) : QKeySequence(Qt::SHIFT | Qt::Key_F6));
        connect(key, &QShortcut::activated, this, [this, step] { go(step); });
        connect(this, &QObject::destroyed, key, &QObject::deleteLater);
    }
}

int PaneCycle::placeOf(const QWidget* focus) const
{
    const QList<CXTPDockingPane*> panes = m_manager.openPanes();
    for (qsizetype i = 0; i < panes.size(); ++i) {
        const QWidget* view = panes[i]->GetView();
        if (focus
            && (panes[i]->isAncestorOf(focus) || view == focus
                || (view && view->isAncestorOf(focus))))
            return static_cast<int>(i) + 1;
    }
    return 0;
}

void PaneCycle::go(int step)
{
    const QList<CXTPDockingPane*> panes = m_manager.openPanes();
    const int count = static_cast<int>(panes.size()) + 1;
    int place = placeOf(QApplication::focusWidget());
    // A place where nothing takes the focus is passed over.
    for (int tried = 0; tried < count; ++tried) {
        place = (place + step + count) % count;
        if (place > 0) {
            CXTPDockingPane* pane = panes[place - 1];
            m_manager.ShowPane(pane);
            if (pane->GetPaneState() == xtpPaneHidden)
                return; // sliding out took the focus along
            if (pane->GetView() && focusInside(*pane->GetView()))
                return;
        } else if (QWidget* contents = m_manager.window().centralWidget()) {
            if (focusInside(*contents))
                return;
        }
    }
}
