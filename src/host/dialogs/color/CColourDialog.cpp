#include "host/dialogs/color/CColourDialog.h"

#include "host/dialogs/DialogButtons.h"
#include "host/dialogs/color/CColourGrid.h"
#include "host/dialogs/color/CColourPlane.h"
#include "host/dialogs/color/CColourSwatch.h"
#include "host/dialogs/color/CTrueColourPage.h"
#include "host/dialogs/color/ColourValues.h"
#include "host/help/HelpTopics.h"
#include "toolkit/ControlRegistry.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QTabWidget>
#include <QVBoxLayout>

#include <array>
#include <numeric>

namespace {
using Kind = ColourValue::Kind;

constexpr int kHues = 24;
constexpr int kFirstHue = 10;
/// Units of the indices in the rows of the large block: from the darkest above to the full colour
/// in the middle, then the same in half saturation downwards.
constexpr std::array kShades{8, 6, 4, 2, 0, 1, 3, 5, 7, 9};

std::vector<int> largeBlock()
{
    std::vector<int> indices;
    for (const int shade : kShades) {
        for (int hue = 0; hue < kHues; ++hue)
            indices.push_back(kFirstHue + hue * 10 + shade);
    }
    return indices;
}

std::vector<int> fromTo(int first, int last)
{
    std::vector<int> indices(static_cast<std::size_t>(last - first + 1));
    std::iota(indices.begin(), indices.end(), first);
    return indices;
}
} // namespace

CColourDialog::CColourDialog(const ColourQuestion& question, QWidget* parent)
    : QDialog(parent)
    , m_question(question)
    , m_value(question.start)
{
    setModal(true);
    setWindowTitle(question.title.isEmpty() ? tr("Select Color") : question.title);
    auto* layout = new QVBoxLayout(this);
    m_tabs = new QTabWidget(this);
    registerControl(this, Tabs, m_tabs);
    m_tabs->addTab(makeIndexPage(), tr("&Index Color"));
    m_tabs->addTab(makeTrueColourPage(), tr("&True Color"));
    layout->addWidget(m_tabs);
    layout->addLayout(makeFoot());
    m_problem = new QLabel(this);
    m_problem->setObjectName(QStringLiteral("problem"));
    m_problem->setTextFormat(Qt::PlainText);
    m_problem->setWordWrap(true);
    layout->addWidget(m_problem);
    addDialogButtons(*this, help_topics::kColour);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    m_tabs->setCurrentIndex(m_value.kind == Kind::TrueColour ? 1 : 0);
    set(m_value, nullptr);
    m_text->setFocus();
    m_text->selectAll();
}

std::optional<ColourValue> CColourDialog::run()
{
    return exec() == Accepted ? std::optional(m_value) : std::nullopt;
}

CColourGrid* CColourDialog::addGrid(QVBoxLayout& layout, Control id, const QString& name,
                                    int columns, const std::vector<int>& indices)
{
    auto* grid = new CColourGrid(columns, indices, m_question.isOnDark, this);
    grid->setAccessibleName(name);
    registerControl(this, id, grid);
    layout.addWidget(grid);
    m_grids.append(grid);
    connect(grid, &CColourGrid::picked, this, [this, grid](int index) {
        set({Kind::Index, index, 0, {}}, grid);
    });
    connect(grid, &CColourGrid::accepted, this, &CColourDialog::accept);
    connect(grid, &CColourGrid::pointedAt, this, &CColourDialog::showPointed);
    return grid;
}

QWidget* CColourDialog::makeIndexPage()
{
    auto* page = new QWidget(m_tabs);
    auto* layout = new QVBoxLayout(page);
    addGrid(*layout, LargeGrid, tr("Colors 10 to 249"), kHues, largeBlock());
    m_pointed = new QLabel(page);
    m_pointed->setObjectName(QStringLiteral("pointedColour"));
    layout->addWidget(m_pointed);
    auto* row = new QHBoxLayout;
    auto* small = new QVBoxLayout;
    addGrid(*small, StandardGrid, tr("Standard colors 1 to 9"), 9, fromTo(1, 9));
    addGrid(*small, GreyGrid, tr("Grays 250 to 255"), 6, fromTo(250, 255));
    row->addLayout(small);
    row->addStretch();
    row->addLayout(makeNamedButtons());
    layout->addLayout(row);
    layout->addStretch();
    showPointed(0);
    return page;
}

QLayout* CColourDialog::makeNamedButtons()
{
    auto* row = new QHBoxLayout;
    const auto add = [&](const QString& text, Control id, Kind kind) {
        auto* button = new QPushButton(text, this);
        button->setAutoDefault(false);
        registerControl(this, id, button);
        row->addWidget(button, 0, Qt::AlignTop);
        connect(button, &QPushButton::clicked, this, [this, button, kind] {
            set({kind, 0, 0, {}}, button);
        });
    };
    if (m_question.offersByLayer)
        add(tr("By&Layer"), ByLayer, Kind::ByLayer);
    if (m_question.offersByBlock)
        add(tr("By&Block"), ByBlock, Kind::ByBlock);
    return row;
}

QWidget* CColourDialog::makeTrueColourPage()
{
    m_truePage = new CTrueColourPage(m_tabs);
    for (int id = 0; id < CTrueColourPage::FieldCount; ++id)
        registerControl(this, FirstField + id,
                        m_truePage->field(static_cast<CTrueColourPage::Field>(id)));
    registerControl(this, HexEdit, m_truePage->hexEdit());
    registerControl(this, Plane, m_truePage->plane());
    connect(m_truePage, &CTrueColourPage::picked, this, [this](const QColor& colour) {
        set({Kind::TrueColour, 0, colour.rgb() & 0xFFFFFFu, {}}, m_truePage);
    });
    return m_truePage;
}

QLayout* CColourDialog::makeFoot()
{
    auto* row = new QHBoxLayout;
    auto* column = new QVBoxLayout;
    auto* label = new QLabel(tr("&Color:"), this);
    m_text = new QLineEdit(this);
    m_text->setAccessibleName(tr("Color"));
    m_text->setPlaceholderText(tr("number, name or r,g,b"));
    m_text->setMinimumWidth(fontMetrics().averageCharWidth() * 24);
    label->setBuddy(m_text);
    registerControl(this, TextEdit, m_text);
    column->addWidget(label);
    column->addWidget(m_text);
    connect(m_text, &QLineEdit::textEdited, this, &CColourDialog::typed);
    m_swatch = new CColourSwatch(m_value, m_question.isOnDark, this);
    registerControl(this, Swatch, m_swatch);
    row->addLayout(column);
    row->addStretch();
    row->addWidget(m_swatch, 0, Qt::AlignBottom);
    return row;
}

void CColourDialog::set(const ColourValue& value, const QObject* from)
{
    m_value = value;
    m_isTextGood = true;
    showProblem({});
    for (CColourGrid* grid : std::as_const(m_grids))
        grid->setChosen(value.kind == Kind::Index ? value.index : 0);
    const QColor shown = colour_values::shown(value, m_question.isOnDark);
    if (from != m_truePage && shown.isValid())
        m_truePage->setColour(shown);
    if (from != m_text)
        m_text->setText(colour_values::text(value));
    m_swatch->setNow(value);
}

void CColourDialog::typed(const QString& text)
{
    const auto value = colour_values::fromText(text, m_question);
    m_isTextGood = value.has_value();
    if (value)
        set(*value, m_text);
}

void CColourDialog::showPointed(int index)
{
    if (index == 0)
        return m_pointed->setText(tr("Index colors 10 to 249, standard colors and grays"));
    const ColourValue value{Kind::Index, index, 0, {}};
    const QColor colour = colour_values::shown(value, m_question.isOnDark);
    m_pointed->setText(tr("Index %1: red %2, green %3, blue %4")
                           .arg(index)
                           .arg(colour.red())
                           .arg(colour.green())
                           .arg(colour.blue()));
}

void CColourDialog::showProblem(const QString& sentence)
{
    m_problem->setText(sentence);
    m_problem->setVisible(!sentence.isEmpty());
}

void CColourDialog::accept()
{
    // A text that stands for no colour must not end the dialog with the colour before it.
    if (!m_isTextGood) {
        showProblem(tr("\"%1\" is no color. Type a number from 1 to 255, a name such as red, or "
                       "red, green and blue as 255,127,0.")
                        .arg(m_text->text()));
        m_text->setFocus();
        m_text->selectAll();
        return;
    }
    QDialog::accept();
}
