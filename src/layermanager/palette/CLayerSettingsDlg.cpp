#include "layermanager/palette/CLayerSettingsDlg.h"

#include "layermanager/layers/HostVariables.h"
#include "layermanager/layers/operations/UndoRecordOnDemand.h"
#include "layermanager/palette/BoxPalette.h"
#include "layermanager/palette/SettingsTexts.h"
#include "layermanager/resources/LayerIcons.h"
#include "sdk/CKestPreferenceManager.h"
#include "toolkit/ControlRegistry.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QIcon>
#include <QPointer>
#include <QRadioButton>
#include <QStyle>
#include <QVBoxLayout>

#include <cstdlib>
#include <utility>

namespace {

constexpr int kHelpTopic = 1001;
constexpr int kIconSize = 32;

/// A control, where it stands in the grid of its group, and its tooltip. A level is an indentation.
struct Control
{
    int id;
    int toolTip;
    int row;
    int level;
    bool isSecond; ///< of two columns
    const char* label;
};

constexpr Control kNewLayers[] = {
    {CLayerSettingsDlg::kWatch, 40102, 0, 0, false,
     QT_TRANSLATE_NOOP("CLayerSettingsDlg", "&Watch for new layers in drawings")},
    {CLayerSettingsDlg::kEvaluate, 40103, 1, 1, false,
     QT_TRANSLATE_NOOP("CLayerSettingsDlg", "&Evaluate new layers of this drawing")},
    {CLayerSettingsDlg::kDrawingOnly, 40104, 2, 2, false,
     QT_TRANSLATE_NOOP("CLayerSettingsDlg", "In this &drawing only")},
    {CLayerSettingsDlg::kEverywhere, 40105, 3, 2, false,
     QT_TRANSLATE_NOOP("CLayerSettingsDlg", "In this drawing and its external &references")},
    {CLayerSettingsDlg::kNotify, 40106, 4, 2, false,
     QT_TRANSLATE_NOOP("CLayerSettingsDlg", "&Notify about new layers when")},
    {CLayerSettingsDlg::kNotify2, 40107, 5, 3, false,
     QT_TRANSLATE_NOOP("CLayerSettingsDlg", "the drawing is &opened")},
    {CLayerSettingsDlg::kNotify4, 40108, 6, 3, false,
     QT_TRANSLATE_NOOP("CLayerSettingsDlg", "references are &attached or reloaded")},
    {CLayerSettingsDlg::kNotify8, 40109, 7, 3, false,
     QT_TRANSLATE_NOOP("CLayerSettingsDlg", "a layer s&tate is restored")},
    {CLayerSettingsDlg::kNotify16, 40110, 5, 3, true,
     QT_TRANSLATE_NOOP("CLayerSettingsDlg", "the drawing is &saved")},
    {CLayerSettingsDlg::kNotify32, 40111, 6, 3, true,
     QT_TRANSLATE_NOOP("CLayerSettingsDlg", "something is &inserted")},
    {CLayerSettingsDlg::kNotify1, 40112, 7, 3, true,
     QT_TRANSLATE_NOOP("CLayerSettingsDlg", "the drawing is &plotted")},
};
constexpr Control kList[] = {
    {CLayerSettingsDlg::kToolbar, 40113, 0, 0, false,
     QT_TRANSLATE_NOOP("CLayerSettingsDlg", "Apply the &filter to the layer toolbar")},
    {CLayerSettingsDlg::kUsage, 40114, 1, 0, false,
     QT_TRANSLATE_NOOP("CLayerSettingsDlg", "Show whether layers are in &use")},
};

struct NotifyBit
{
    int id;
    int bit;
};
constexpr NotifyBit kNotifyBits[] = {
    {CLayerSettingsDlg::kNotify1, 1},   {CLayerSettingsDlg::kNotify2, 2},
    {CLayerSettingsDlg::kNotify4, 4},   {CLayerSettingsDlg::kNotify8, 8},
    {CLayerSettingsDlg::kNotify16, 16}, {CLayerSettingsDlg::kNotify32, 32},
};

constexpr int kLevels = 4;

QString label(const Control& control)
{
    return CLayerSettingsDlg::tr(control.label);
}

/// A group of controls. Each level begins where the texts of the level before do.
QGroupBox* createGroup(const QString& title, std::span<const Control> controls, QWidget& dialog)
{
    auto* group = new QGroupBox(title, &dialog);
    auto* grid = new QGridLayout(group);
    const QStyle* style = dialog.style();
    const int step = style->pixelMetric(QStyle::PM_IndicatorWidth, nullptr, group)
        + style->pixelMetric(QStyle::PM_CheckBoxLabelSpacing, nullptr, group);
    grid->setHorizontalSpacing(0);
    for (int level = 0; level + 1 < kLevels; ++level)
        grid->setColumnMinimumWidth(level, step);
    grid->setColumnMinimumWidth(kLevels, step);
    grid->setColumnStretch(kLevels + 1, 1);
    for (const Control& control : controls) {
        const bool isRadio = control.id == CLayerSettingsDlg::kDrawingOnly
            || control.id == CLayerSettingsDlg::kEverywhere;
        QAbstractButton* button = isRadio
            ? static_cast<QAbstractButton*>(new QRadioButton(label(control), group))
            : new QCheckBox(label(control), group);
        button->setPalette(boxPalette(dialog.palette()));
        registerControl(&dialog, control.id, button);
        if (control.isSecond)
            grid->addWidget(button, control.row, kLevels + 1);
        else
            grid->addWidget(button, control.row, control.level, 1,
                            control.level + 1 == kLevels ? 1 : -1);
    }
    return group;
}

/// A value that the host has already is not written: OK without a change leaves no trace.
void store(const QString& variable, int value)
{
    if (readHostInt(variable) != value)
        writeHostInt(variable, value);
}

} // namespace

CLayerSettingsDlg::CLayerSettingsDlg(QWidget* parent)
    : QDialog(parent)
    , m_watch([] {})
{
    setWindowTitle(tr("Layer Settings"));
    setWindowIcon(LayerIcons().pixmap(LayerIcon::StatusInUse, kIconSize, devicePixelRatioF(),
                                      LayerIconGround::Light));
    setProperty("helpTopic", kHelpTopic);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(createGroup(tr("New layers"), kNewLayers, *this));
    layout->addWidget(createGroup(tr("List of layers"), kList, *this));
    layout->addStretch();
    layout->addWidget(buttons);
    layout->setSizeConstraint(QLayout::SetMinimumSize);
    setTabOrder(button(kUsage), buttons);
    connect(buttons, &QDialogButtonBox::accepted, this, &CLayerSettingsDlg::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &CLayerSettingsDlg::reject);
    createToolTips();
    readSettings();
    enableControls();
    for (const int id : {kWatch, kEvaluate, kNotify})
        connect(button(id), &QAbstractButton::clicked, this, &CLayerSettingsDlg::enableControls);
    button(kWatch)->setFocus();
}

bool CLayerSettingsDlg::run(QWidget* parent)
{
    // It may go with its parent while it is open.
    const QPointer<CLayerSettingsDlg> dialog = new CLayerSettingsDlg(parent);
    const bool accepted = dialog->exec() == Accepted;
    delete dialog;
    return accepted;
}

QAbstractButton* CLayerSettingsDlg::button(int id) const
{
    return qobject_cast<QAbstractButton*>(controlById(this, id));
}

void CLayerSettingsDlg::createToolTips()
{
    setToolTipOwner(this);
    for (const std::span<const Control> controls :
         {std::span<const Control>(kNewLayers), std::span<const Control>(kList)})
    {
        for (const Control& control : controls)
            AddTool(control.id, KsResString(settingsTexts(), control.toolTip));
    }
}

void CLayerSettingsDlg::readSettings()
{
    const auto variable = [](const char* name) {
        return readHostInt(QLatin1String(name)).value_or(0);
    };
    button(kToolbar)->setChecked(CKestPreferenceManager::s_bApplyLayerFiltertoLayerToolbar);
    button(kWatch)->setChecked(variable("LAYEREVALCTL") != 0);
    const int evaluation = variable("LAYEREVAL");
    button(kEvaluate)->setChecked(evaluation >= 1);
    button(evaluation > 1 ? kEverywhere : kDrawingOnly)->setChecked(true);
    const int notification = variable("LAYERNOTIFY");
    button(kNotify)->setChecked(notification >= 1 || CKestPreferenceManager::s_bNotifyPresentLayer);
    const qint64 chosen = std::abs(qint64(notification));
    for (const NotifyBit& notify : kNotifyBits)
        button(notify.id)->setChecked((chosen & notify.bit) != 0);
    button(kUsage)->setChecked(variable("SHOWLAYERUSAGE") != 0);
}

void CLayerSettingsDlg::enableControls()
{
    const auto allows = [this](int id) {
        return button(id)->isChecked() && button(id)->isEnabled();
    };
    button(kEvaluate)->setEnabled(button(kWatch)->isChecked());
    for (const int id : {kDrawingOnly, kEverywhere, kNotify})
        button(id)->setEnabled(allows(kEvaluate));
    for (const NotifyBit& notify : kNotifyBits)
        button(notify.id)->setEnabled(allows(kNotify));
}

void CLayerSettingsDlg::storeDrawingSettings()
{
    // A script may have closed the drawing, or gone to another one, meanwhile.
    OdDbDatabase* drawing = m_watch.database();
    if (!drawing)
        return;
    int chosen = 0;
    for (const NotifyBit& notify : kNotifyBits)
        chosen |= button(notify.id)->isChecked() ? notify.bit : 0;
    const int mode = button(kEverywhere)->isChecked() ? 2 : 1;
    const std::pair<QString, int> settings[] = {
        {QStringLiteral("LAYEREVAL"), button(kEvaluate)->isChecked() ? mode : 0},
        {QStringLiteral("LAYERNOTIFY"), button(kNotify)->isChecked() ? chosen : -chosen},
    };
    UndoRecordOnDemand undo(*drawing);
    for (const auto& [name, value] : settings) {
        if (readHostInt(name) == value)
            continue;
        undo.begin();
        writeHostInt(name, value);
    }
}

void CLayerSettingsDlg::accept()
{
    CKestPreferenceManager::s_bApplyLayerFiltertoLayerToolbar = button(kToolbar)->isChecked();
    store(QStringLiteral("LAYEREVALCTL"), button(kWatch)->isChecked() ? 1 : 0);
    storeDrawingSettings();
    CKestPreferenceManager::s_bNotifyPresentLayer = button(kNotify)->isChecked();
    store(QStringLiteral("SHOWLAYERUSAGE"), button(kUsage)->isChecked() ? 1 : 0);
    QDialog::accept();
}
