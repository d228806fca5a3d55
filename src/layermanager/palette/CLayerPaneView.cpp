#include "layermanager/palette/CLayerPaneView.h"

#include "database/drawing/OdDbDatabase.h"
#include "database/tables/OdDbLayerTable.h"
#include "database/tables/OdDbLayerTableRecord.h"
#include "layermanager/filters/view/CLayerTreeVw.h"
#include "layermanager/filters/view/FilterTreeModel.h"
#include "layermanager/layers/FilledText.h"
#include "layermanager/layers/HostVariables.h"
#include "layermanager/layers/LayerUndoRecord.h"
#include "layermanager/layers/grid/CLayerListCtrl.h"
#include "layermanager/module/LayerPalette.h"
#include "layermanager/palette/CLayerListVw.h"
#include "layermanager/palette/PaneTexts.h"
#include "layermanager/palette/pane/CLayerSearchBox.h"
#include "layermanager/palette/pane/PaneDatabaseReactor.h"
#include "layermanager/palette/pane/PaneKeys.h"
#include "sdk/KestSharedGlobals.h"
#include "toolkit/CXTPDockingPaneManager.h"

#include <QCheckBox>
#include <QLabel>
#include <QTextDocument>

#include <algorithm>

CLayerPaneView::CLayerPaneView(QWidget* parent)
    : QWidget(parent)
    , m_docReactor(odrxCreate<CLayerDocMngrReactor>(*this))
    , m_reactor(std::make_unique<PaneDatabaseReactor>(*this))
{
    setObjectName(QStringLiteral("layerPane"));
    m_countTimer.setSingleShot(true);
    m_countTimer.setInterval(0);
    connect(&m_countTimer, &QTimer::timeout, this, &CLayerPaneView::UpdateStatusLine);
    if (KsApDocManager* documents = ksDocManagerPtr())
        documents->addReactor(m_docReactor.get());
}

CLayerPaneView::~CLayerPaneView()
{
    follow(nullptr);
    if (KsApDocManager* documents = ksDocManagerPtr())
        documents->removeReactor(m_docReactor.get());
}

CLayerListCtrl* CLayerPaneView::grid() const
{
    return m_listView ? &m_listView->grid() : nullptr;
}

bool CLayerPaneView::IsAllFilterSelected() const
{
    return m_treeView && m_treeView->IsAllFilterSelected();
}

// The drawing that is shown

void CLayerPaneView::follow(OdDbDatabase* database)
{
    if (m_pDb)
        m_pDb->removeReactor(m_reactor.get());
    m_pDb = database;
    m_search.forget();
    if (m_pDb)
        m_pDb->addReactor(m_reactor.get());
}

void CLayerPaneView::BindToCurrentDatabase()
{
    const KsApDocManager* documents = ksDocManagerPtr();
    if (!documents || !m_listView)
        return;
    const KsApDocument* document = documents->curDocument();
    OdDbDatabase* database = document ? document->database() : nullptr;
    if (!database || database == m_pDb)
        return;
    follow(database);
    m_bInvert = false;
    m_invertBox->setChecked(false);
    m_treeView->bind(m_pDb);
    refill();
    UpdateCurrentLayerLine();
}

void CLayerPaneView::databaseGone()
{
    m_pDb = nullptr; // it takes its listeners with it
    m_search.forget();
    m_treeView->bind(nullptr);
    m_statusText.clear();
    m_statusLine->setAccessibleDescription({});
    elideStatus();
    m_currentLine->clear();
    m_currentLine->setToolTip({});
    updateCommands();
}

void CLayerPaneView::layerChanged(OdDbObjectId layer)
{
    m_search.forget();
    if (m_pDb->getCLAYER() == layer)
        UpdateCurrentLayerLine();
}

void CLayerPaneView::SyncPaneVisibility(const KsApDocument* document, bool show)
{
    const KsApDocManager* documents = ksDocManagerPtr();
    if (!documents || documents->isBusy() || documents->documentCount() > 1)
        return;
    // The last drawing takes the palette along; another one that goes does not.
    if (!show && documents->documentCount() == 1 && document != documents->curDocument())
        return;
    auto* manager = CXTPDockingPaneManager::of(KestSharedGlobals::GetCMainWindow());
    CXTPDockingPane* pane = manager ? manager->FindPane(kLayerPaneId) : nullptr;
    if (!pane)
        return;
    if (!show) {
        manager->ClosePane(pane);
        return;
    }
    const bool wanted = readHostInt(QStringLiteral("LayerManagerState")) == 1;
    if (!wanted || !pane->IsClosed())
        return;
    const bool wasHidden = pane->GetPaneState() == xtpPaneHidden;
    manager->ShowPane(pane);
    if (wasHidden)
        manager->ToggleAutoHide(pane);
}

void CLayerPaneView::showCurrentLayer()
{
    if (!m_pDb || grid()->editor())
        return;
    grid()->refreshAllRows();
    grid()->selectCurrentRow();
    grid()->setFocus(Qt::OtherFocusReason);
}

void CLayerPaneView::BeginLayerUndoRecord(OdDbDatabase& database)
{
    beginLayerUndoRecord(database);
}

// The lines that tell what is shown

namespace {

constexpr qsizetype kToolTipCharacters = 2000;

/// What a drawing holds can be of any length.
QString toolTipOf(const QString& text)
{
    return Qt::convertFromPlainText(text.left(kToolTipCharacters), Qt::WhiteSpaceNormal);
}

/// A name out of a drawing may hold line ends.
QString asOneLine(QString text)
{
    std::replace_if(
        text.begin(), text.end(), [](QChar c) { return c.category() == QChar::Other_Control; },
        QLatin1Char(' '));
    return text;
}

} // namespace

void CLayerPaneView::UpdateStatusLine()
{
    if (!m_statusLine || !m_pDb)
        return;
    const QString filter = m_treeView->selectedName();
    m_statusLine->setFont(m_currentLine->font());
    m_statusText = asOneLine(filledText(KsResString(paneTexts(), pane_text::kStatus),
                                        {filter.isEmpty() ? FilterTreeModel::tr("All") : filter,
                                         QString::number(grid()->displayedCount()),
                                         QString::number(m_pDb->layerTable().count())}));
    m_statusLine->setAccessibleDescription(m_statusText.trimmed());
    elideStatus();
}

/// Where there is no room for all of it the tooltip tells the rest.
void CLayerPaneView::elideStatus()
{
    const int room = m_statusLine->width() - m_statusLine->indent();
    const QFontMetrics metrics = m_statusLine->fontMetrics();
    const bool fits = metrics.horizontalAdvance(m_statusText) <= room;
    m_statusLine->setText(fits ? m_statusText
                               : metrics.elidedText(m_statusText, Qt::ElideRight, room));
    m_statusLine->setToolTip(fits ? QString() : toolTipOf(m_statusText));
}

void CLayerPaneView::UpdateCurrentLayerLine()
{
    const OdDbObjectId current = readHostId(QStringLiteral("CLAYER")).value_or(OdDbObjectId());
    if (!m_currentLine || current.isNull() || current.database() != m_pDb)
        return;
    const auto layer = current.safeOpenObject<OdDbLayerTableRecord>(OdDb::kForRead, true);
    const QString name = layer->getName();
    if (name.isEmpty())
        return;
    QString text = KsResString(paneTexts(), pane_text::kCurrentLayer) + name;
    if (const QString description = layer->description(); !description.isEmpty())
        text += QLatin1String(": ") + description;
    m_currentLine->setText(text);
    m_currentLine->setCursorPosition(0);
    // There may be no room for all of it.
    m_currentLine->setToolTip(toolTipOf(text));
}
