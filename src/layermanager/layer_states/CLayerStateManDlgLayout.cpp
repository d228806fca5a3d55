// Controls of the layer-state manager and where they are.

#include "layermanager/layer_states/CLayerStateManDlg.h"
#include "layermanager/layer_states/core/LayerStateTexts.h"
#include "layermanager/layer_states/parts/CLayerStateListCtrl.h"
#include "layermanager/layer_states/parts/StateDialogParts.h"
#include "layermanager/palette/BoxPalette.h"
#include "toolkit/ControlRegistry.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QStyle>
#include <QToolButton>
#include <QVBoxLayout>

using namespace StateControl;

namespace {

/// Between the edge of the dialog and the button that it ends behind, in pixels.
constexpr int kEdge = 6;

struct HelpText
{
    int id;
    int textId;
};
constexpr HelpText kHelpTexts[] = {
    {kList, 60071},         {kNew, 60072},           {kSave, 60073},        {kEdit, 60074},
    {kRename, 60075},       {kDelete, 60076},        {kImport, 60077},      {kExport, 60078},
    {kHideExternal, 60079}, {kTurnOffOthers, 60080}, {kAsOverrides, 60081}, {kRestore, 60082},
    {kMore, 60083},         {kSelectAll, 60084},     {kClearAll, 60085},    {kLess, 60086},
};

} // namespace

std::span<const CLayerStateManDlg::Button> CLayerStateManDlg::listButtons()
{
    using Dlg = CLayerStateManDlg;
    static constexpr Button kButtons[] = {
        {kNew, QT_TR_NOOP("&New..."), &Dlg::newState},
        {kSave, QT_TR_NOOP("&Save"), &Dlg::saveState},
        {kEdit, QT_TR_NOOP("&Edit..."), &Dlg::editState},
        {kRename, QT_TR_NOOP("&Rename"), &Dlg::renameState},
        {kDelete, QT_TR_NOOP("&Delete"), &Dlg::deleteStates},
        {kImport, QT_TR_NOOP("I&mport..."), &Dlg::importStates},
        {kExport, QT_TR_NOOP("E&xport..."), &Dlg::exportState},
    };
    return kButtons;
}

void CLayerStateManDlg::build()
{
    setUpStateDialog(*this, tr("Layer States Manager"), kLayerStateHelp);
    auto* root = new QHBoxLayout(this);
    root->setContentsMargins(kEdge, kEdge, kEdge, kEdge);
    root->addWidget(makeStates(), 1);
    m_options = makeOptions();
    root->addWidget(m_options);
    m_list->states().setRename(
        [this](const QString& oldName, const QString& newName) { rename(oldName, newName); });
    connect(m_list, &CLayerStateListCtrl::picked, this, &CLayerStateManDlg::followClick);
    setTabOrders();
    m_options->hide();
    controlById(this, kLess)->hide();
    // Its right edge is that of the button New, and the margin.
    ensurePolished();
    resize(root->sizeHint());
}

QWidget* CLayerStateManDlg::makeStates()
{
    auto* states = new QWidget(this);
    auto* layout = new QVBoxLayout(states);
    layout->setContentsMargins({});
    m_list = new CLayerStateListCtrl(states);
    registerStateControl(*this, kList, m_list, tr("Layer states"));
    auto* label = new QLabel(tr("La&yer states:"), states);
    label->setBuddy(m_list);
    layout->addWidget(label);
    auto* middle = new QHBoxLayout;
    middle->addWidget(m_list, 1);
    auto* buttons = new QVBoxLayout;
    for (const Button& button : listButtons())
        addButton(*buttons, button);
    buttons->addStretch();
    middle->addLayout(buttons);
    layout->addLayout(middle, 1);
    addCheckBox(*layout, kHideExternal, tr("D&on't list layer states of external references"));
    auto* bottom = new QHBoxLayout;
    auto* restore = addButton(*bottom, {kRestore, QT_TR_NOOP("Res&tore"), nullptr});
    static_cast<QPushButton*>(restore)->setDefault(true);
    connect(restore, &QAbstractButton::clicked, this, &CLayerStateManDlg::accept);
    connect(addButton(*bottom, {kClose, QT_TR_NOOP("&Close"), nullptr}), &QAbstractButton::clicked,
            this, &CLayerStateManDlg::reject);
    addButton(*bottom, {kHelp, QT_TR_NOOP("&Help"), &CLayerStateManDlg::help});
    bottom->addStretch();
    bottom->addWidget(addArrow(kMore, Qt::RightArrow, 60083));
    layout->addLayout(bottom);
    return states;
}

QWidget* CLayerStateManDlg::makeOptions()
{
    auto* options = new QWidget(this);
    options->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Preferred);
    auto* layout = new QVBoxLayout(options);
    layout->setContentsMargins({});
    auto* group = new QGroupBox(tr("Layer properties to restore"), options);
    auto* properties = new QVBoxLayout(group);
    for (const RestoreOption& option : restoreOptions()) {
        QCheckBox* check = addCheckBox(*properties, option.control, tr(option.label));
        connect(check, &QCheckBox::clicked, this, [this, &option] { optionClicked(option); });
    }
    auto* all = new QHBoxLayout;
    addButton(*all, {kSelectAll, QT_TR_NOOP("Select All"), &CLayerStateManDlg::selectAll});
    addButton(*all, {kClearAll, QT_TR_NOOP("Clear All"), &CLayerStateManDlg::clearAll});
    properties->addLayout(all);
    layout->addWidget(group);
    auto* more = new QGroupBox(tr("Restore options"), options);
    auto* boxes = new QVBoxLayout(more);
    addCheckBox(*boxes, kTurnOffOthers, tr("T&urn off layers not found in the state"));
    addCheckBox(*boxes, kAsOverrides, tr("&Apply as viewport overrides"));
    layout->addWidget(more);
    layout->addStretch();
    layout->addWidget(addArrow(kLess, Qt::LeftArrow, 60086), 0, Qt::AlignRight);
    return options;
}

QAbstractButton* CLayerStateManDlg::addButton(QBoxLayout& layout, const Button& button)
{
    auto* added = new QPushButton(tr(button.label), this);
    added->setAutoDefault(false);
    layout.addWidget(added);
    registerStateControl(*this, button.id, added, tr(button.label).remove(QLatin1Char('&')));
    if (button.action)
        connect(added, &QAbstractButton::clicked, this, button.action);
    return added;
}

QAbstractButton* CLayerStateManDlg::addArrow(int id, Qt::ArrowType arrow, int textId)
{
    auto* button = new QToolButton(this);
    button->setArrowType(arrow);
    button->setFocusPolicy(Qt::StrongFocus);
    const int side = controlById(this, kHelp)->sizeHint().height();
    button->setFixedSize(side, side);
    registerStateControl(*this, id, button, layerStateText(textId));
    connect(button, &QAbstractButton::clicked, this, &CLayerStateManDlg::toggleRestoreOptions);
    return button;
}

QCheckBox* CLayerStateManDlg::addCheckBox(QBoxLayout& layout, int id, const QString& label)
{
    auto* added = new QCheckBox(label, this);
    added->setPalette(boxPalette(palette()));
    layout.addWidget(added);
    registerStateControl(*this, id, added, QString(label).remove(QLatin1Char('&')));
    return added;
}

void CLayerStateManDlg::setTabOrders()
{
    static constexpr int kOrder[] = {
        kList,
        kNew,
        kSave,
        kEdit,
        kRename,
        kDelete,
        kImport,
        kExport,
        kHideExternal,
        kOn,
        kFrozen,
        kViewportFrozen,
        kLocked,
        kPlot,
        kColor,
        kLinetype,
        kLineweight,
        kPlotStyle,
        kNewViewportFrozen,
        kSelectAll,
        kClearAll,
        kTurnOffOthers,
        kAsOverrides,
        kRestore,
        kClose,
        kHelp,
        kMore,
        kLess,
    };
    for (std::size_t i = 1; i < std::size(kOrder); ++i)
        setTabOrder(controlById(this, kOrder[i - 1]), controlById(this, kOrder[i]));
    m_list->setFocus();
}

void CLayerStateManDlg::registerHelpTexts()
{
    setToolTipOwner(this);
    for (const HelpText& help : kHelpTexts)
        AddTool(help.id, layerStateText(help.textId));
}

void CLayerStateManDlg::toggleRestoreOptions()
{
    const int change = layout()->spacing() + m_options->sizeHint().width();
    const int target = m_bExpanded ? width() - change : width() + change;
    m_options->setVisible(!m_bExpanded);
    controlById(this, kMore)->setVisible(m_bExpanded);
    controlById(this, kLess)->setVisible(!m_bExpanded);
    m_bExpanded = !m_bExpanded;
    layout()->activate();
    resize(target, height());
}
