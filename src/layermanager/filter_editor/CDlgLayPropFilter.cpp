#include "layermanager/filter_editor/CDlgLayPropFilter.h"

#include "database/drawing/OdDbDatabase.h"
#include "database/filters/FilterRecords.h"
#include "database/filters/OdLyLayerFilterManager.h"
#include "database/tables/OdDbLayerTable.h"
#include "database/tables/OdDbLayerTableRecord.h"
#include "layermanager/filter_editor/CFilterExamplesBtn.h"
#include "layermanager/filter_editor/CLayPropFilterEdListCtrl.h"
#include "layermanager/filter_editor/CLayerPreviewList.h"
#include "layermanager/filter_editor/FilterEditorTexts.h"
#include "layermanager/filter_editor/core/FilterEditorRules.h"
#include "layermanager/filters/FilterExpression.h"
#include "layermanager/filters/FilterNames.h"
#include "toolkit/Prompts.h"

#include <QAccessible>
#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>

#include <algorithm>

CDlgLayPropFilter::CDlgLayPropFilter(OdDbDatabase& database, OdLyLayerFilterPtr parentFilter,
                                     OdLyLayerFilterPtr filter, LayerIds candidates, bool existing,
                                     QWidget* parent)
    : QDialog(parent)
    , m_previewList(new CLayerPreviewList(this))
    , m_gridCtrl(new CLayPropFilterEdListCtrl(this))
    , m_pDb(&database)
    , m_pParentFilter(std::move(parentFilter))
    , m_pFilter(std::move(filter))
    , m_candidateIds(std::move(candidates))
    , m_bExisting(existing)
    , m_showsCandidates(!existing)
    , m_nameEdit(new QLineEdit(this))
    , m_previewLabel(new QLabel(this))
    , m_notice(new QLabel(this))
{
    buildControls();
    registerControls();
    connect(m_gridCtrl, &CLayPropFilterEdListCtrl::rowsEdited, this,
            [this] { m_rowsEdited = true; });
    connect(m_gridCtrl, &CLayPropFilterEdListCtrl::expressionChanged, this,
            &CDlgLayPropFilter::SetFilterExpressionAndRefresh);
    connect(m_previewList, &CLayerListCtrl::listStale, this, &CDlgLayPropFilter::refreshPreview);
    connect(m_previewList, &CLayerListCtrl::listChanged, this, &CDlgLayPropFilter::tellCount);
    connect(m_previewList, &CLayerListCtrl::databaseGone, this, [this] {
        // The dialog may live on for a while, until what was opened over it returns.
        m_pDb = nullptr;
        m_gridCtrl->unbind();
        reject();
    });
    // Ctrl+A is the table's wherever the focus is.
    qApp->installEventFilter(this);
    fillControls();
}

CDlgLayPropFilter::~CDlgLayPropFilter()
{
    qApp->removeEventFilter(this);
    // What the controls tell while they go, such as the end of an edit, concerns nobody any more.
    m_gridCtrl->disconnect(this);
    m_previewList->disconnect(this);
}

bool CDlgLayPropFilter::edit(QWidget* parent, OdDbDatabase& database, const FilterToEdit& task)
{
    // It may go with its parent while it is open.
    auto* dialog =
        new CDlgLayPropFilter(database, task.parent, task.filter, {}, task.isExisting, parent);
    if (dialog->m_previewList->database() != &database) {
        delete dialog; // another drawing is current
        return false;
    }
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    return dialog->exec() == Accepted;
}

// Opening

void CDlgLayPropFilter::fillControls()
{
    m_nameEdit->setText(m_pFilter->name());
    m_nameEdit->selectAll();
    fillCandidates();
    refreshPreview();
    collectNames();
    readRows();
}

void CDlgLayPropFilter::collectNames()
{
    OdLyLayerFilterPtr root;
    OdLyLayerFilterPtr current;
    odlyGetLayerFilterManager(m_pDb)->getFilters(root, current);
    // That node comes and goes by itself; a filter of that name would go with it.
    m_filterNames = {FilterRecords::kUnreconciled};
    for (const OdLyLayerFilterPtr& filter : filtersOfTree(root))
        m_filterNames.append(filter->name());
}

void CDlgLayPropFilter::fillCandidates()
{
    if (m_candidateIds.empty() && m_pParentFilter)
        GetLayersOfFilter(*m_pDb, *m_pParentFilter, m_candidateIds);
    // Layers that belong to programs are never listed.
    std::erase_if(m_candidateIds, [](OdDbObjectId id) {
        const auto layer = id.openObject<OdDbLayerTableRecord>();
        return !layer || layer->getName().contains(QLatin1Char('*'));
    });
    for (const OdDbObjectId id : m_candidateIds) {
        if (id.slot() >= m_isCandidate.size())
            m_isCandidate.resize(id.slot() + std::size_t(1));
        m_isCandidate[id.slot()] = true;
    }
}

void CDlgLayPropFilter::readRows()
{
    m_strExpression = m_pFilter->filterExpression();
    LayerFilterRows rows;
    ParseFilterExpression(*m_pDb, m_strExpression, rows);
    const bool isWhole = m_pFilter->isEditable() && rowsSayAllOf(*m_pDb, m_strExpression, rows);
    m_gridCtrl->Initialise(*m_pDb, std::move(rows));
    m_gridCtrl->setReadOnly(!isWhole);
    showNotice(isWhole ? noticeOnHidden()
                       : tr("The table cannot show all conditions of this filter. They stay as "
                            "they are; only the name can be changed."));
}

// Live preview

void CDlgLayPropFilter::SetFilterExpressionAndRefresh(const QString& expression)
{
    if (!m_pDb)
        return;
    m_showsCandidates = false;
    m_pFilter->setFilterExpression(expression);
    refreshPreview();
    showNotice(canBeReadBack(*m_pDb, m_gridCtrl->rowsModel().rows(), expression)
                   ? noticeOnHidden()
                   : tr("The drawing can keep these conditions, but the table cannot show them all "
                        "again: once saved, they cannot be edited here any more."));
}

void CDlgLayPropFilter::refreshPreview()
{
    if (!m_pDb)
        return;
    LayerIds layers;
    if (m_showsCandidates)
        layers = m_pDb->layerTable().records();
    else
        GetLayersOfFilter(*m_pDb, *m_pFilter, layers);
    std::erase_if(layers, [this](OdDbObjectId id) {
        return id.slot() >= m_isCandidate.size() || !m_isCandidate[id.slot()];
    });
    // Another drawing is current: what is edited here is not what the user sees.
    if (!m_previewList->showLayers(layers, *m_pDb))
        reject();
}

void CDlgLayPropFilter::tellCount()
{
    if (!m_pDb)
        return;
    const auto present = std::count_if(m_candidateIds.begin(), m_candidateIds.end(),
                                       [](OdDbObjectId layer) { return !layer.isErased(); });
    m_previewLabel->setText(
        tr("Filter &preview: %1 of %2 layers").arg(m_previewList->displayedCount()).arg(present));
}

/// What is to be said of conditions in columns that are hidden while model space is current.
QString CDlgLayPropFilter::noticeOnHidden() const
{
    return m_gridCtrl->hidesCriteria()
        ? tr("Some conditions are about viewports. They count, but their columns are shown only "
             "while a layout is current.")
        : QString();
}

void CDlgLayPropFilter::showNotice(const QString& text)
{
    if (text == m_notice->text())
        return;
    m_notice->setText(text);
    m_notice->setVisible(!text.isEmpty());
    if (text.isEmpty())
        return;
    QAccessibleEvent alert(m_notice, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

// Closing

void CDlgLayPropFilter::accept()
{
    if (!m_pDb)
        return;
    m_gridCtrl->closeInPlaceEditor();
    m_strName = m_nameEdit->text();
    collectNames(); // a script may have made filters meanwhile
    const QString previous = m_pFilter->name();
    const bool isValid = IsValidFilterName(m_strName, m_filterNames);
    if (!isValid && !(m_bExisting && previous.compare(m_strName, Qt::CaseInsensitive) == 0)) {
        const QPointer<CDlgLayPropFilter> self(this);
        Prompts::current().message(this, filterEditorText(84503));
        if (self) {
            m_nameEdit->setFocus();
            m_nameEdit->selectAll();
        }
        return;
    }
    m_pFilter->setName(m_strName);
    // Rows that nobody touched leave the text as it is, in whatever spelling.
    if (m_rowsEdited) {
        QStringList rowTexts;
        BuildFilterExpression(m_gridCtrl->rowsModel().rows(), rowTexts, m_strExpression);
        m_pFilter->setFilterExpression(m_strExpression);
    }
    QDialog::accept();
}

bool CDlgLayPropFilter::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::KeyPress && event->type() != QEvent::ShortcutOverride)
        return QDialog::eventFilter(watched, event);
    const auto* widget = qobject_cast<QWidget*>(watched);
    const auto* key = static_cast<QKeyEvent*>(event);
    if (!widget || widget->window() != this || key->key() != Qt::Key_A
        || key->modifiers() != Qt::ControlModifier)
        return QDialog::eventFilter(watched, event);
    event->accept();
    if (event->type() == QEvent::KeyPress)
        m_gridCtrl->chooseRealLines();
    return true;
}
