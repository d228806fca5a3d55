// The controls of the property filter dialog.

#include "database/drawing/OdDbDatabase.h"
#include "layermanager/filter_editor/CDlgLayPropFilter.h"
#include "layermanager/filter_editor/CFilterExamplesBtn.h"
#include "layermanager/filter_editor/CLayPropFilterEdListCtrl.h"
#include "layermanager/filter_editor/CLayerPreviewList.h"
#include "layermanager/filter_editor/FilterEditorTexts.h"
#include "layermanager/resources/LayerIcons.h"
#include "sdk/LocalSearch.h"
#include "toolkit/ControlRegistry.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>

namespace {

constexpr int kIconSize = 16;
/// Sizes in average characters and rows of text.
constexpr int kWidth = 130;
constexpr int kWidthInLayout = 175; ///< with the columns of viewports
constexpr int kDefinitionRows = 9;
constexpr int kPreviewRows = 14;
constexpr int kFewestRows = 4;
constexpr qreal kMostOfScreen = 0.9; ///< for large letters on a small screen

QLabel* labelFor(QWidget* control, const QString& text, QWidget* parent)
{
    auto* label = new QLabel(text, parent);
    label->setBuddy(control);
    return label;
}

} // namespace

void CDlgLayPropFilter::buildControls()
{
    setWindowTitle(tr("Layer Filter Properties"));
    setWindowIcon(
        LayerIcons().pixmap(LayerIcon::FilterProperty, kIconSize, 1.0, LayerIconGround::Light));
    setProperty("helpTopic", kHelpTopic);
    auto* layout = new QVBoxLayout(this);
    auto* nameRow = new QHBoxLayout;
    nameRow->addWidget(labelFor(m_nameEdit, tr("Filter &name:"), this));
    nameRow->addWidget(m_nameEdit, 1);
    m_nameEdit->setAccessibleName(tr("Filter name"));
    layout->addLayout(nameRow);

    auto* examples = new CFilterExamplesBtn(this);
    registerControl(this, kExamples, examples);
    auto* definitionRow = new QHBoxLayout;
    definitionRow->addWidget(labelFor(m_gridCtrl, tr("Filter &definition:"), this), 1);
    definitionRow->addWidget(examples);
    layout->addLayout(definitionRow);
    m_gridCtrl->setAccessibleName(tr("Filter definition"));
    layout->addWidget(m_gridCtrl, kDefinitionRows);
    m_notice->setObjectName(QStringLiteral("definitionNotice"));
    m_notice->setWordWrap(true);
    m_notice->hide();
    layout->addWidget(m_notice);

    m_previewLabel->setObjectName(QStringLiteral("previewCount"));
    m_previewLabel->setBuddy(m_previewList);
    layout->addWidget(m_previewLabel);
    m_previewList->setAccessibleName(tr("Layers that the filter shows"));
    layout->addWidget(m_previewList, kPreviewRows);
    buildButtons(*layout);

    const int line = fontMetrics().height();
    m_gridCtrl->setMinimumHeight((kFewestRows + 1) * line);
    m_previewList->setMinimumHeight((kFewestRows + 1) * line);
    const int width = m_pDb->getTILEMODE() ? kWidth : kWidthInLayout;
    const QSize wanted(width * fontMetrics().averageCharWidth(),
                       2 * (kDefinitionRows + kPreviewRows) * line);
    resize(wanted.boundedTo(screen()->availableSize() * kMostOfScreen));
}

void CDlgLayPropFilter::buildButtons(QVBoxLayout& layout)
{
    auto* buttons = new QDialogButtonBox(
        QDialogButtonBox::Ok | QDialogButtonBox::Cancel | QDialogButtonBox::Help, this);
    connect(buttons, &QDialogButtonBox::accepted, this, &CDlgLayPropFilter::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &CDlgLayPropFilter::reject);
    connect(buttons, &QDialogButtonBox::helpRequested, this,
            [] { LocalSearch::CommandRefHelp(kHelpTopic); });
    registerControl(this, kOk, buttons->button(QDialogButtonBox::Ok));
    registerControl(this, kCancel, buttons->button(QDialogButtonBox::Cancel));
    registerControl(this, kHelp, buttons->button(QDialogButtonBox::Help));
    buttons->button(QDialogButtonBox::Ok)->setDefault(true);
    layout.addWidget(buttons);
    QWidget* const order[] = {m_nameEdit,
                              m_gridCtrl,
                              controlById(this, kExamples),
                              m_previewList,
                              buttons->button(QDialogButtonBox::Ok),
                              buttons->button(QDialogButtonBox::Cancel),
                              buttons->button(QDialogButtonBox::Help)};
    for (std::size_t i = 0; i + 1 < std::size(order); ++i)
        setTabOrder(order[i], order[i + 1]);
}

void CDlgLayPropFilter::registerControls()
{
    registerControl(this, kName, m_nameEdit);
    registerControl(this, kDefinition, m_gridCtrl);
    registerControl(this, kPreview, m_previewList);
    setToolTipOwner(this);
    AddTool(kName, filterEditorText(60089));
    AddTool(kDefinition, filterEditorText(60090));
    AddTool(kExamples, filterEditorText(60091));
}
