#include "layermanager/palette/CToolTipImpl.h"

#include "layermanager/layers/FilledText.h"
#include "sdk/CSECommonUtil.h"
#include "sdk/texts/KsResString.h"
#include "toolkit/ControlRegistry.h"

#include <QAbstractButton>
#include <QEvent>
#include <QWidget>

#include <array>

namespace {

constexpr int kIsWindow = 0x1; ///< flag: the tool is known by its window
constexpr quint32 kNotAButton = 0x80000002;
constexpr QMargins kMargins(-2, -2, -2, -2);

constexpr KsResText kHelpLine{
    51575, QT_TRANSLATE_NOOP3("KsResString", "Press F1 for more help.", "51575")};

constexpr auto kPanel = "<StackPanel Margin='1' MaxWidth='400' Background='#F1F1FA'>";
constexpr auto kTitle = "<TextBlock Padding='1, 2, 1, 2' FontWeight='Bold'>%s</TextBlock>";
constexpr auto kDescription = "<TextBlock Padding='2, 2, 10, 3' TextWrapping='Wrap'>%s</TextBlock>";
constexpr auto kThird = "<TextBlock Padding='3, 2, 10, 3' TextWrapping='Wrap'>%s</TextBlock>";
constexpr auto kOnlyThird = "<TextBlock Padding='2, 2, 10, 7' TextWrapping='Wrap'>%s</TextBlock>";
constexpr auto kPlain = "<TextBlock Padding='1, 2, 1, 2' TextWrapping='Wrap'>%s</TextBlock>";
constexpr auto kHelp =
    "<Border Height='1' Background='Black' /><Border Height='1' Background='#F1F1FA' />"
    "<StackPanel Margin='1, 3, 0, 3' Orientation='Horizontal'><Image Source='res://Help.ico'/>"
    "<TextBlock Margin='5, 0, 0, 0' VerticalAlignment='Center' FontWeight='Bold'>%s</TextBlock>"
    "</StackPanel>";
constexpr auto kPanelEnd = "</StackPanel>";

/// Title, description and third paragraph; what is behind a third "/" is dropped.
std::array<QString, 3> partsOf(const QString& text)
{
    std::array<QString, 3> parts;
    const QStringList split = text.split(QLatin1Char('/'));
    for (qsizetype i = 0; i < std::min<qsizetype>(split.size(), 3); ++i) {
        if (split[i] != QLatin1String(" "))
            parts[static_cast<size_t>(i)] = split[i];
    }
    parts[0].replace(QLatin1String("@@"), QLatin1String("/"));
    return parts;
}

QString block(const char* layout, const QString& text)
{
    return filledText(QLatin1String(layout), {text.toHtmlEscaped()});
}

} // namespace

QString toolTipMarkup(const QString& text)
{
    const auto [title, description, third] = partsOf(text);
    const QString help = KsResString(kHelpLine);
    QString blocks;
    if (title.isEmpty() && description.isEmpty() && !third.isEmpty()) {
        blocks = block(kOnlyThird, third) + block(kHelp, help);
    } else if (!title.isEmpty() && !description.isEmpty()) {
        blocks = block(kTitle, title) + block(kDescription, description);
        if (!third.isEmpty())
            blocks += block(kThird, third);
        blocks += block(kHelp, help);
    } else {
        // A description without a title shows an empty panel: that is deliberate.
        blocks = block(kPlain, title);
    }
    return QLatin1String(kPanel) + blocks + QLatin1String(kPanelEnd);
}

/// Shows the tooltip context what the owner hears.
class CToolTipImpl::OwnerFilter : public QObject
{
public:
    explicit OwnerFilter(CXTPToolTipContext& context)
        : m_context(context)
    { }
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        return m_context.FilterToolTipMessage(watched, event);
    }

private:
    CXTPToolTipContext& m_context;
};

CToolTipImpl::CToolTipImpl()
{
    m_context.SetStyle(CXTPToolTipContext::kMarkupStyle);
    m_context.SetTipBkColor(Qt::white);
    m_context.SetMargin(kMargins);
    m_context.setHitTest(
        [this](QPoint point, XTPToolInfo& info) { return OnToolHitTest(point, info); });
}

CToolTipImpl::~CToolTipImpl() = default;

void CToolTipImpl::setToolTipOwner(QWidget* owner)
{
    m_owner = owner;
    m_filter = std::make_unique<OwnerFilter>(m_context);
    owner->installEventFilter(m_filter.get());
}

void CToolTipImpl::AddTool(int id, const QString& text)
{
    if (!m_owner)
        return;
    QWidget* control = controlById(m_owner, id);
    m_tools.push_back({id, control, 0, text});
    describe(control, text);
}

void CToolTipImpl::AddTool(QWidget* control, const QString& text)
{
    m_tools.push_back({-1, control, 0, text});
    describe(control, text);
}

void CToolTipImpl::describe(QWidget* control, const QString& text)
{
    if (!control || !control->accessibleDescription().isEmpty())
        return;
    const auto [title, description, third] = partsOf(text);
    QStringList said{title, description, third};
    said.removeAll(QString());
    control->setAccessibleDescription(said.join(QLatin1Char(' ')).trimmed());
}

int CToolTipImpl::OnToolHitTest(QPoint point, XTPToolInfo& info) const
{
    if (CSECommonUtil::GetToolTipsSysVar() == 0 || !m_owner || !m_owner->isEnabled())
        return CXTPToolTipContext::kNoTool;
    for (const ToolTipInfo& tool : m_tools) {
        // One without its control ends the search.
        if (!tool.control)
            return CXTPToolTipContext::kNoTool;
        const QRect rect(tool.control->mapToGlobal(QPoint()), tool.control->size());
        if (!rect.contains(point) || !tool.control->isVisible() || !tool.control->isEnabled())
            continue;
        if (info.size < XTPToolInfo::kSize)
            return CXTPToolTipContext::kNoTool;
        info.owner = m_owner;
        info.flags = kIsWindow;
        if (!qobject_cast<QAbstractButton*>(tool.control))
            info.flags |= kNotAButton;
        m_context.FillInToolInfo(info, tool.control, rect, toolTipMarkup(tool.text));
        return 0;
    }
    return CXTPToolTipContext::kNoTool;
}
