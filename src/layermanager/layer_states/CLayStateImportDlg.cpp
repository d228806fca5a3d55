#include "layermanager/layer_states/CLayStateImportDlg.h"

#include "database/drawing/OdDbDatabase.h"
#include "database/streams/OdMemoryStream.h"
#include "layermanager/layer_states/core/LayerStateSteps.h"
#include "layermanager/layer_states/core/LayerStateTexts.h"
#include "layermanager/layer_states/parts/StateDialogParts.h"
#include "layermanager/layer_states/parts/StateRowDelegate.h"
#include "layermanager/layers/FilledText.h"
#include "sdk/CLayerStateUtility.h"
#include "toolkit/Prompts.h"

#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QTableView>
#include <QVBoxLayout>

#include <algorithm>

namespace {
constexpr quint32 kPageSize = 2048;

/// On dark grounds some styles draw check boxes as dark as the ground; they get a frame.
class TickDelegate : public StateRowDelegate
{
public:
    using StateRowDelegate::StateRowDelegate;
    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override
    {
        StateRowDelegate::paint(painter, option, index);
        QStyleOptionViewItem item = option;
        initStyleOption(&item, index);
        if (!(item.features & QStyleOptionViewItem::HasCheckIndicator)
            || item.palette.color(QPalette::Base).lightness() > kDark)
            return;
        QColor frame = item.palette.color(QPalette::Text);
        frame.setAlphaF(0.5F);
        painter->setPen(frame);
        painter->setBrush(Qt::NoBrush);
        painter->drawRect(
            item.widget->style()
                ->subElementRect(QStyle::SE_ItemViewItemCheckIndicator, &item, item.widget)
                .adjusted(0, 0, -1, -1));
    }

private:
    static constexpr int kDark = 128;
};
} // namespace

CLayStateImportDlg::CLayStateImportDlg(std::unique_ptr<OdDbDatabase> source,
                                       const QStringList& existing, QWidget* parent)
    : QDialog(parent)
    , m_source(std::move(source))
    , m_existing(existing.begin(), existing.end())
    , m_list(new QTableView(this))
    , m_watch([this] { QDialog::reject(); })
{
    for (const QString& name : existing)
        m_existingFolded.insert(name.toCaseFolded());
    CLayerStateUtility service(m_source.get());
    std::vector<layStateEntry> entries;
    tellStateResult(service.GetDBLayStateIDs(entries), service);
    m_states.fill(std::move(entries));
    build();
}

CLayStateImportDlg::~CLayStateImportDlg() = default;

void CLayStateImportDlg::build()
{
    constexpr int kCharacters = 84;
    constexpr int kLines = 14;
    constexpr int kWidestColumn = 36;
    setUpStateDialog(*this, tr("Select Layer States"));
    m_list->setModel(&m_states);
    m_list->setItemDelegate(new TickDelegate(m_list));
    m_list->setShowGrid(true);
    m_list->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_list->setTabKeyNavigation(false);
    m_list->setWordWrap(false);
    m_list->verticalHeader()->hide();
    m_list->verticalHeader()->setMinimumSectionSize(stateRowHeight(*m_list));
    m_list->verticalHeader()->setDefaultSectionSize(stateRowHeight(*m_list));
    m_list->horizontalHeader()->setHighlightSections(false);
    m_list->horizontalHeader()->setStretchLastSection(true);
    m_list->setMinimumSize(sizeInCharacters(*this, kCharacters, kLines));
    registerStateControl(*this, kList, m_list, tr("Layer states in the file"));
    const int most = sizeInCharacters(*this, kWidestColumn, 1).width();
    int number = 0;
    for (const LayerStateListModel::ColumnInfo& column : LayerStateListModel::columns()) {
        m_list->resizeColumnToContents(number);
        // Descriptions have what the other columns leave.
        const bool isLast = number == LayerStateListModel::Description;
        const int text = isLast ? 0 : std::min(most, m_list->columnWidth(number));
        m_list->setColumnWidth(number, std::max(column.width, text));
        ++number;
    }
    auto* label = new QLabel(tr("Layer &states to import:"), this);
    label->setBuddy(m_list);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    buttons->button(QDialogButtonBox::Ok)->setDefault(true);
    registerStateControl(*this, kOk, buttons->button(QDialogButtonBox::Ok), tr("OK"));
    registerStateControl(*this, kCancel, buttons->button(QDialogButtonBox::Cancel), tr("Cancel"));
    connect(buttons, &QDialogButtonBox::accepted, this, &CLayStateImportDlg::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &CLayStateImportDlg::reject);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(label);
    layout->addWidget(m_list, 1);
    layout->addWidget(buttons);
    m_list->setFocus();
}

void CLayStateImportDlg::accept()
{
    for (int row = 0; row < m_states.rowCount(); ++row) {
        if (m_states.isTicked(row) && !take(m_states.entry(row).name))
            return;
    }
    QDialog::accept();
}

bool CLayStateImportDlg::take(const QString& name)
{
    // With regard to case: where the names differ in it, the service decides.
    if (m_existing.contains(name)) {
        const QPointer<CLayStateImportDlg> dialog(this);
        const bool replace =
            Prompts::current().confirm(this, filledText(layerStateText(84533), {name}));
        if (!dialog || !m_watch.database())
            return false;
        if (!replace)
            return true;
    }
    if (!m_watch.database())
        return false;
    copy(name);
    return true;
}

bool CLayStateImportDlg::hasInOtherCase(const QString& name) const
{
    return !m_existing.contains(name) && m_existingFolded.contains(name.toCaseFolded());
}

void CLayStateImportDlg::copy(const QString& name)
{
    OdStreamBufPtr stream = OdMemoryStream::createNew(kPageSize);
    CLayerStateUtility source(m_source.get());
    // Nothing is deleted for a state that cannot be had.
    if (!tellStateResult(source.ExportLayState(name, stream), source))
        return;
    stream->seek(0, OdDb::kSeekFromStart);
    if (!m_begun)
        beginLayerStateStep(*m_watch.database());
    m_begun = true;
    CLayerStateUtility target(m_watch.database());
    // Whether or not it is there: the state may have come since the names were listed.
    if (!hasInOtherCase(name))
        target.DeleteLayerState(name);
    tellStateResult(target.ImportLayState(stream), target);
}
