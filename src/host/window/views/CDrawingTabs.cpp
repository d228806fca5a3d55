#include "host/window/views/CDrawingTabs.h"

#include "host/documents/HostDocManager.h"
#include "host/window/views/CDrawingView.h"

#include <QScopedValueRollback>
#include <QTabBar>

CDrawingTabs::CDrawingTabs(HostDocManager& documents, QWidget* parent)
    : QTabWidget(parent)
    , m_documents(documents)
{
    setObjectName(QStringLiteral("drawingTabs"));
    setAccessibleName(tr("Drawings"));
    setDocumentMode(true);
    setTabsClosable(true);
    setMovable(true);
    tabBar()->setAccessibleName(tr("Drawings"));
    connect(this, &QTabWidget::currentChanged, this, [this](int index) {
        if (CDrawingView* view = m_following ? nullptr : viewAt(index))
            m_documents.setCurrent(view->document());
    });
    connect(this, &QTabWidget::tabCloseRequested, this, [this](int index) {
        if (CDrawingView* view = viewAt(index))
            emit closeWanted(&view->document());
    });
    m_documents.addReactor(this);
}

CDrawingTabs::~CDrawingTabs()
{
    m_documents.removeReactor(this);
}

CDrawingView* CDrawingTabs::viewAt(int index) const
{
    return qobject_cast<CDrawingView*>(widget(index));
}

CDrawingView* CDrawingTabs::viewOf(const KsApDocument* document) const
{
    for (CDrawingView* view : views()) {
        if (&view->document() == document)
            return view;
    }
    return nullptr;
}

CDrawingView* CDrawingTabs::currentView() const
{
    return viewOf(m_documents.curDocument());
}

QList<CDrawingView*> CDrawingTabs::views() const
{
    QList<CDrawingView*> all;
    for (int i = 0; i < count(); ++i)
        all.append(viewAt(i));
    return all;
}

void CDrawingTabs::showState(CDrawingView& view)
{
    const HostDocument& document = view.document();
    QString name = document.displayName();
    name.replace(QLatin1Char('&'), QStringLiteral("&&"));
    const int index = indexOf(&view);
    setTabText(index, document.isModified() ? tr("%1*").arg(name) : name);
    setTabToolTip(index, document.fileName());
}

void CDrawingTabs::documentCreated(KsApDocument* document)
{
    const QScopedValueRollback following(m_following, true);
    auto* host = static_cast<HostDocument*>(document);
    auto* view = new CDrawingView(*host, this);
    addTab(view, QString());
    showState(*view);
    connect(view, &CDrawingView::drawingChanged, this, [this, view] { showState(*view); });
    connect(host, &HostDocument::fileStateChanged, view, [this, view] { showState(*view); });
    emit viewAdded(view);
}

void CDrawingTabs::documentBecameCurrent(KsApDocument* document)
{
    const QScopedValueRollback following(m_following, true);
    setCurrentWidget(viewOf(document));
    emit currentDrawingChanged();
}

void CDrawingTabs::documentToBeDestroyed(KsApDocument* document)
{
    const QScopedValueRollback following(m_following, true);
    CDrawingView* view = viewOf(document);
    if (!view)
        return;
    view->release();
    removeTab(indexOf(view));
    delete view;
}

void CDrawingTabs::documentDestroyed(const QString&)
{
    emit currentDrawingChanged();
}
