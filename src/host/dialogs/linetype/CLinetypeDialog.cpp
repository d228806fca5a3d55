#include "host/dialogs/linetype/CLinetypeDialog.h"

#include "host/dialogs/DialogButtons.h"
#include "host/dialogs/SearchKeys.h"
#include "host/dialogs/linetype/CLinetypeList.h"
#include "host/dialogs/linetype/CLinetypeLoadDialog.h"
#include "host/help/HelpTopics.h"
#include "toolkit/ControlRegistry.h"
#include "toolkit/Prompts.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace {
constexpr int kWidthCharacters = 88;
constexpr int kHeightLines = 20;
} // namespace

CLinetypeDialog::CLinetypeDialog(const LinetypeQuestion& question, QWidget* parent)
    : QDialog(parent)
    , m_question(question)
    , m_search(new QLineEdit(this))
    , m_list(new CLinetypeList(this))
    , m_load(new QPushButton(tr("&Load..."), this))
{
    setModal(true);
    setWindowTitle(question.title.isEmpty() ? tr("Select Linetype") : question.title);
    auto* layout = new QVBoxLayout(this);
    auto* label = new QLabel(tr("L&inetypes of the drawing:"), this);
    label->setBuddy(m_list);
    m_search->setPlaceholderText(tr("Search in names and descriptions"));
    m_search->setAccessibleName(tr("Search"));
    m_search->setClearButtonEnabled(true);
    new SearchKeys(*m_search, *m_list);
    layout->addWidget(m_search);
    layout->addWidget(label);
    layout->addWidget(m_list, 1);
    QDialogButtonBox* buttons = addDialogButtons(*this, help_topics::kLinetype);
    buttons->addButton(m_load, QDialogButtonBox::ResetRole); // apart from the others
    m_load->setAutoDefault(false);
    m_load->setVisible(static_cast<bool>(question.load));
    m_ok = buttons->button(QDialogButtonBox::Ok);
    registerControl(this, Search, m_search);
    registerControl(this, List, m_list);
    registerControl(this, Load, m_load);

    connect(m_search, &QLineEdit::textChanged, m_list, &CLinetypeList::filter);
    connect(m_list, &CLinetypeList::itemSelectionChanged, this,
            [this] { m_ok->setEnabled(!m_list->chosen().isEmpty()); });
    connect(m_list, &CLinetypeList::itemDoubleClicked, this, &CLinetypeDialog::accept);
    connect(m_load, &QPushButton::clicked, this, &CLinetypeDialog::load);
    fill();
    const QFontMetrics metrics(font());
    resize(kWidthCharacters * metrics.averageCharWidth(), kHeightLines * metrics.lineSpacing());
    m_list->setFocus();
}

void CLinetypeDialog::fill()
{
    if (m_question.offersByLayer)
        m_list->add({QStringLiteral("ByLayer"), tr("The linetype of the layer"), {}});
    if (m_question.offersByBlock)
        m_list->add({QStringLiteral("ByBlock"), tr("The linetype of the block reference"), {}});
    for (const LinetypeItem& linetype : std::as_const(m_question.linetypes))
        m_list->add(linetype);
    m_list->select(m_question.current);
    m_ok->setEnabled(!m_list->chosen().isEmpty());
}

QString CLinetypeDialog::value() const
{
    const QList<LinetypeItem> chosen = m_list->chosen();
    return chosen.isEmpty() ? QString() : chosen.first().name;
}

std::optional<QString> CLinetypeDialog::run()
{
    return exec() == Accepted ? std::optional(value()) : std::nullopt;
}

void CLinetypeDialog::accept()
{
    if (!value().isEmpty())
        QDialog::accept();
}

void CLinetypeDialog::load()
{
    CLinetypeLoadDialog dialog(this);
    if (dialog.exec() != Accepted)
        return;
    QString last;
    QStringList problems;
    for (const LinetypeItem& linetype : dialog.chosen()) {
        last = linetype.name;
        if (m_list->contains(linetype.name))
            continue;
        const QString problem = m_question.load(linetype);
        if (problem.isEmpty())
            m_list->add(linetype);
        else
            problems << problem;
    }
    m_search->clear();
    m_list->select(last);
    m_list->setFocus();
    if (!problems.isEmpty())
        Prompts::current().message(this, problems.join(QLatin1Char('\n')));
}
