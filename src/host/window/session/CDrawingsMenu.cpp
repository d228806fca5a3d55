#include "host/window/session/CDrawingsMenu.h"

#include "host/documents/HostDocManager.h"

CDrawingsMenu::CDrawingsMenu(const QString& title, const QList<QAction*>& actions,
                             HostDocManager& documents, QWidget* parent)
    : QMenu(title, parent)
    , m_documents(documents)
{
    addActions(actions);
    addSeparator();
    connect(this, &QMenu::aboutToShow, this, &CDrawingsMenu::listDrawings);
}

void CDrawingsMenu::listDrawings()
{
    qDeleteAll(m_listed);
    m_listed.clear();
    int position = 0;
    for (HostDocument* document : m_documents.documents()) {
        QString name = document->displayName();
        name.replace(QLatin1Char('&'), QStringLiteral("&&"));
        if (document->isModified())
            name += QLatin1Char('*');
        if (++position < 10)
            name.prepend(QStringLiteral("&%1 ").arg(position));
        QAction* entry = addAction(name, this, [this, document] {
            if (m_documents.contains(document))
                m_documents.setCurrent(*document);
        });
        entry->setCheckable(true);
        entry->setChecked(document == m_documents.curDocument());
        entry->setStatusTip(document->fileName());
        m_listed.append(entry);
    }
}
