#include "host/window/views/CDrawingTabs.h"

#include "host/documents/HostDocManager.h"
#include "host/window/views/CDrawingView.h"

#include <QClipboard>
#include <QDesktopServices>
#include <QFileInfo>
#include <QGuiApplication>
#include <QMenu>
#include <QMouseEvent>
#include <QScopedValueRollback>
#include <QTabBar>
#include <QUrl>

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
    tabBar()->setContextMenuPolicy(Qt::CustomContextMenu);
    tabBar()->installEventFilter(this);
    connect(tabBar(), &QWidget::customContextMenuRequested, this, &CDrawingTabs::showMenu);
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

bool CDrawingTabs::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == tabBar() && event->type() == QEvent::MouseButtonRelease) {
        const auto* mouse = static_cast<QMouseEvent*>(event);
        const int index = tabBar()->tabAt(mouse->position().toPoint());
        if (mouse->button() == Qt::MiddleButton && index >= 0) {
            emit tabCloseRequested(index);
            return true;
        }
    }
    return QTabWidget::eventFilter(watched, event);
}

void CDrawingTabs::showMenu(QPoint at)
{
    const CDrawingView* view = viewAt(tabBar()->tabAt(at));
    if (!view)
        return;
    HostDocument* document = &view->document();
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->addAction(tr("&Close"), this, [this, document] {
        if (m_documents.contains(document))
            emit closeWanted(document);
    });
    menu->addSeparator();
    const QString file = document->fileName();
    QAction* copy = menu->addAction(tr("Copy &Path"), this,
                                    [file] { QGuiApplication::clipboard()->setText(file); });
    QAction* folder = menu->addAction(tr("Open Containing &Folder"), this, [file] {
        QDesktopServices::openUrl(QUrl::fromLocalFile(QFileInfo(file).path()));
    });
    copy->setEnabled(document->hasFile());
    folder->setEnabled(document->hasFile());
    menu->popup(tabBar()->mapToGlobal(at));
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
