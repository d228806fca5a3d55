// The palette's controls and their places.

#include "layermanager/filters/view/CLayerTreeVw.h"
#include "layermanager/layer_states/LayerStateDialogs.h"
#include "layermanager/layers/grid/CLayerListCtrl.h"
#include "layermanager/layers/operations/LayerCommandTable.h"
#include "layermanager/palette/BoxPalette.h"
#include "layermanager/palette/CLayerListVw.h"
#include "layermanager/palette/CLayerPaneTBar.h"
#include "layermanager/palette/CLayerPaneView.h"
#include "layermanager/palette/pane/CLayerSearchBox.h"
#include "layermanager/palette/pane/PaneCommands.h"
#include "layermanager/palette/pane/PaneKeys.h"
#include "toolkit/ControlRegistry.h"

#include <QAction>
#include <QCheckBox>
#include <QHelpEvent>
#include <QLabel>
#include <QScopedValueRollback>
#include <QSplitter>
#include <QStyle>
#include <QToolButton>
#include <QToolTip>

#include <algorithm>
#include <optional>

namespace {

constexpr int kTreeWidth = 170; // at first
constexpr int kLeastTreeWidth = 60;
constexpr int kLeastListWidth = 80;
constexpr int kSearchBoxCharacters = 20;
constexpr int kTextInset = 4; // of the lines, which have no frame
constexpr int kToolbars[] = {kToolbarLeft, kToolbarMiddle, kToolbarRight}; // as they are made

/// Kept for the rest of the process once measured.
struct SearchWidths
{
    int box;
    int button;
};

const SearchWidths& searchWidths(const QWidget& box, const QWidget& button)
{
    static const SearchWidths widths{box.fontMetrics().averageCharWidth() * kSearchBoxCharacters
                                         + button.sizeHint().width(),
                                     button.sizeHint().width()};
    return widths;
}

} // namespace

void CLayerPaneView::initialUpdate()
{
    if (m_bInitialised)
        return;
    makeTopRow();
    makeSplitter();
    m_bInitialised = true;
    makeToolbars();
    makeLines();
    UpdateCurrentLayerLine();
    addTools();
    connectParts();
    setTabOrders();
    m_keys = std::make_unique<PaneKeys>(*this);
    setFocusProxy(m_listView);
    updateCommands();
    layOut();
}

void CLayerPaneView::makeTopRow()
{
    m_currentLine = new QLineEdit(this);
    m_currentLine->setObjectName(QStringLiteral("currentLayer"));
    m_currentLine->setAccessibleName(tr("Current layer"));
    m_currentLine->setReadOnly(true);
    m_currentLine->setFrame(false);
    m_currentLine->setTextMargins(kTextInset, 0, 2 * kTextInset, 0);
    m_searchBox = new CLayerSearchBox(this);
    registerControl(this, kSearchBox, m_searchBox);
    m_searchButton = new QToolButton(this);
    m_searchButton->setObjectName(QStringLiteral("searchButton"));
    m_searchButton->setAccessibleName(tr("Search"));
    m_searchButton->setAutoRaise(true);
    registerControl(this, kSearchButton, m_searchButton);
}

void CLayerPaneView::updateColours()
{
    m_searchButton->setIcon(paneIcon(LayerIcon::ToolSearch, palette()));
    const int size = style()->pixelMetric(QStyle::PM_SmallIconSize, nullptr, this);
    m_searchButton->setIconSize({size, size});
    // What cannot be typed into stands on the palette's own ground.
    QPalette colours = palette();
    colours.setColor(QPalette::Base, palette().color(QPalette::Window));
    colours.setColor(QPalette::Text, palette().color(QPalette::WindowText));
    m_currentLine->setPalette(colours);
    m_invertBox->setPalette(boxPalette(palette()));
}

void CLayerPaneView::makeSplitter()
{
    m_splitter = new QSplitter(this);
    m_splitter->setObjectName(QStringLiteral("layerSplitter"));
    m_splitter->setChildrenCollapsible(false);
    m_splitter->setHandleWidth(layer_pane::kListGap);
    m_treePane = new QWidget(m_splitter);
    m_treePane->setObjectName(QStringLiteral("treePane"));
    m_treePane->installEventFilter(this);
    m_treeView = new CLayerTreeVw(m_treePane);
    m_listView = new CLayerListVw(m_splitter);
    m_listView->setMinimumWidth(kLeastListWidth);
    m_treeView->setPaneView(this);
    m_listView->setPaneView(this);
    m_splitter->setStretchFactor(0, 0);
    m_splitter->setStretchFactor(1, 1);
    m_splitter->setSizes({kTreeWidth, std::max(kTreeWidth, width() - kTreeWidth)});
}

void CLayerPaneView::makeToolbars()
{
    for (const int id : kToolbars) {
        auto* bar = new CLayerPaneTBar(id, this);
        bar->setOwner(this);
        for (QAction* action : bar->actions())
            bar->widgetForAction(action)->installEventFilter(this);
        registerControl(this, id, bar);
        m_toolbars.push_back(bar);
    }
    toolbar(kToolbarLeft)->setAccessibleName(tr("Layer filters"));
    toolbar(kToolbarMiddle)->setAccessibleName(tr("Layers"));
    toolbar(kToolbarRight)->setAccessibleName(tr("Palette"));
}

void CLayerPaneView::makeLines()
{
    m_statusLine = new QLabel(this);
    m_statusLine->setObjectName(QStringLiteral("statusLine"));
    m_statusLine->setAccessibleName(tr("Displayed layers"));
    m_statusLine->setTextFormat(Qt::PlainText);
    m_statusLine->setIndent(kTextInset / 2); // the text begins with a blank
    registerControl(this, kStatusLineId, m_statusLine);
    m_invertBox = new QCheckBox(tr("Invert filter"), m_treePane);
    m_invertBox->setObjectName(QStringLiteral("invertFilter"));
    m_invertBox->setFont(m_currentLine->font());
    registerControl(this, kInvertFilter, m_invertBox);
    updateColours();
}

void CLayerPaneView::addTools()
{
    setToolTipOwner(this);
    AddTool(kSearchBox,
            tr("Search/Lists the layers whose names match. * stands for any characters, ? for "
               "one."));
    AddTool(kSearchButton, tr("Search/Lists the layers whose names match the text."));
    AddTool(kInvertFilter,
            tr("Invert filter/Lists the layers that the selected filter does not show."));
}

void CLayerPaneView::connectParts()
{
    const auto stateChanged = [this] {
        UpdateStatusLine();
        updateCommands();
    };
    connect(grid(), &CLayerListCtrl::listChanged, this, stateChanged);
    connect(grid(), &CLayerListCtrl::currentLayerChanged, this,
            &CLayerPaneView::UpdateCurrentLayerLine);
    connect(grid(), &CLayerListCtrl::layersChanged, m_treeView,
            &CLayerTreeVw::UpdateUnreconciledNode);
    grid()->setStateDialogs([this](int id) {
        id == kNewLayerState ? openNewLayerState(this) : openLayerStateManager(this);
    });
    connect(m_treeView, &CLayerTreeVw::selectedLayersChanged, this, &CLayerPaneView::followFilter);
    connect(m_treeView, &CLayerTreeVw::layersChanged, this, &CLayerPaneView::layersChangedByTree);
    connect(m_searchBox, &QLineEdit::textEdited, this, [this] {
        grid()->forgetChanges();
        ApplySearch();
    });
    connect(m_searchBox, &CLayerSearchBox::focusGained, this, &CLayerPaneView::prepareSearch);
    connect(m_searchButton, &QToolButton::clicked, this, [this] { command(kSearchButton); });
    connect(m_invertBox, &QCheckBox::clicked, this, &CLayerPaneView::setInverted);
    connect(m_splitter, &QSplitter::splitterMoved, this, &CLayerPaneView::layOut);
    connectSync();
}

void CLayerPaneView::setTabOrders()
{
    QList<QWidget*> order{m_currentLine, m_searchBox, m_searchButton};
    for (const int id : {kToolbarLeft, kToolbarMiddle, kToolbarRight}) {
        for (QAction* action : toolbar(id)->actions())
            order.append(toolbar(id)->widgetForAction(action));
    }
    order.append({m_treeView, m_invertBox, grid()});
    for (qsizetype i = 1; i < order.size(); ++i)
        setTabOrder(order[i - 1], order[i]);
}

// Places

LayerPaneSizes CLayerPaneView::sizes() const
{
    const SearchWidths& widths = searchWidths(*m_searchBox, *m_searchButton);
    const auto wanted = [this](int id) { return toolbar(id)->sizeHint(); };
    LayerPaneSizes sizes;
    sizes.client = size();
    sizes.searchBoxWidth = widths.box;
    sizes.searchButtonWidth = widths.button;
    sizes.topHeight =
        std::max(m_searchButton->sizeHint().height(), m_searchBox->sizeHint().height());
    sizes.leftTools = wanted(kToolbarLeft).width();
    sizes.middleTools = wanted(kToolbarMiddle).width();
    sizes.rightTools = wanted(kToolbarRight).width();
    for (const int id : kToolbars)
        sizes.toolbarHeight = std::max(sizes.toolbarHeight, wanted(id).height());
    sizes.statusNeed = m_statusLine->fontMetrics().height();
    sizes.invertNeed = m_invertBox->sizeHint().height();
    sizes.treeWidth = m_treePane->width();
    sizes.treeShown = m_bTreeVisible;
    return sizes;
}

void CLayerPaneView::layOut()
{
    if (!m_bInitialised || m_layingOut || m_toolbars.empty() || !m_invertBox)
        return;
    const QScopedValueRollback<bool> busy(m_layingOut, true);
    m_treePane->setMinimumWidth(std::max(kLeastTreeWidth, m_invertBox->sizeHint().width()));
    // Where the splitter stands does not depend on the tree's width, which follows from it.
    m_splitter->setGeometry(layOutLayerPane(sizes()).splitter);
    place(layOutLayerPane(sizes()));
}

void CLayerPaneView::place(const LayerPaneRects& rects)
{
    const auto put = [this](QWidget* widget, const QRect& at) {
        widget->setGeometry(QStyle::visualRect(layoutDirection(), rect(), at));
    };
    put(m_currentLine, rects.currentLayer);
    put(m_searchBox, rects.searchBox);
    put(m_searchButton, rects.searchButton);
    put(toolbar(kToolbarLeft), rects.leftTools);
    put(toolbar(kToolbarMiddle), rects.middleTools);
    put(toolbar(kToolbarRight), rects.rightTools);
    put(m_statusLine, rects.statusLine);
    elideStatus();
    const QPoint origin = rects.splitter.topLeft();
    m_treeView->setGeometry(rects.tree.translated(-origin));
    m_invertBox->setGeometry(rects.invert.translated(-origin));
}

void CLayerPaneView::ShowFilterTree(bool show)
{
    if (show == m_bTreeVisible || !m_bInitialised)
        return;
    m_bTreeVisible = show;
    m_treePane->setVisible(show);
    m_splitter->refresh();
    layOut();
    updateCommands();
    update();
}

void CLayerPaneView::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    layOut();
}

bool CLayerPaneView::event(QEvent* event)
{
    const bool handled = QWidget::event(event);
    // A toolbar wants another size.
    if (event->type() == QEvent::LayoutRequest)
        layOut();
    return handled;
}

void CLayerPaneView::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange && m_invertBox)
        updateColours();
    else if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        layOut();
}

bool CLayerPaneView::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_treePane && event->type() == QEvent::Resize)
        layOut();
    if (event->type() == QEvent::ToolTip) {
        const auto* bar = qobject_cast<CLayerPaneTBar*>(watched->parent());
        if (bar && showToolText(*bar, *static_cast<QHelpEvent*>(event)))
            return true;
    }
    return QWidget::eventFilter(watched, event);
}

/// Shows the palette's own text of a button, where it has one.
bool CLayerPaneView::showToolText(const CLayerPaneTBar& bar, const QHelpEvent& request)
{
    const int id = bar.commandAt(bar.mapFromGlobal(request.globalPos()));
    const QString text = id ? m_toolTexts.value(paneToolTextKey(bar.id(), id)) : QString();
    if (text.isEmpty())
        return false;
    QToolTip::showText(request.globalPos(), text);
    return true;
}
