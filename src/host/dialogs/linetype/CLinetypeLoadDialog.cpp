#include "host/dialogs/linetype/CLinetypeLoadDialog.h"

#include "host/dialogs/DialogButtons.h"
#include "host/dialogs/SearchKeys.h"
#include "host/dialogs/linetype/CLinetypeList.h"
#include "host/dialogs/linetype/LinetypeFile.h"
#include "host/help/HelpTopics.h"
#include "host/resources/DataFiles.h"
#include "toolkit/ControlRegistry.h"
#include "toolkit/Prompts.h"

#include <QDialogButtonBox>
#include <QDir>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace {
constexpr int kWidthCharacters = 88;
constexpr int kHeightLines = 24;
} // namespace

CLinetypeLoadDialog::CLinetypeLoadDialog(QWidget* parent)
    : QDialog(parent)
    , m_file(new QLineEdit(this))
    , m_search(new QLineEdit(this))
    , m_list(new CLinetypeList(this))
    , m_problems(new QLabel(this))
{
    setModal(true);
    setWindowTitle(tr("Load Linetypes"));
    auto* layout = new QVBoxLayout(this);
    auto* fileRow = new QHBoxLayout;
    auto* fileLabel = new QLabel(tr("&File:"), this);
    auto* browseButton = new QPushButton(tr("&Browse..."), this);
    m_file->setReadOnly(true);
    m_file->setAccessibleName(tr("File"));
    fileLabel->setBuddy(m_file);
    browseButton->setAutoDefault(false);
    fileRow->addWidget(fileLabel);
    fileRow->addWidget(m_file, 1);
    fileRow->addWidget(browseButton);
    layout->addLayout(fileRow);
    m_search->setPlaceholderText(tr("Search in names and descriptions"));
    m_search->setAccessibleName(tr("Search"));
    m_search->setClearButtonEnabled(true);
    new SearchKeys(*m_search, *m_list);
    layout->addWidget(m_search);
    m_list->setSelectionMode(QAbstractItemView::ExtendedSelection);
    layout->addWidget(m_list, 1);
    m_problems->setTextFormat(Qt::PlainText);
    m_problems->setWordWrap(true);
    layout->addWidget(m_problems);
    m_ok = addDialogButtons(*this, help_topics::kLinetype)->button(QDialogButtonBox::Ok);
    registerControl(this, File, m_file);
    registerControl(this, Browse, browseButton);
    registerControl(this, Search, m_search);
    registerControl(this, List, m_list);

    connect(browseButton, &QPushButton::clicked, this, &CLinetypeLoadDialog::browse);
    connect(m_search, &QLineEdit::textChanged, m_list, &CLinetypeList::filter);
    connect(m_list, &CLinetypeList::itemSelectionChanged, this,
            [this] { m_ok->setEnabled(!m_list->chosen().isEmpty()); });
    connect(m_list, &CLinetypeList::itemDoubleClicked, this, &CLinetypeLoadDialog::accept);
    const QFontMetrics metrics(font());
    resize(kWidthCharacters * metrics.averageCharWidth(), kHeightLines * metrics.lineSpacing());
    showFile(dataFile(QStringLiteral("linetypes/metric.lin")));
    m_list->setFocus();
}

QList<LinetypeItem> CLinetypeLoadDialog::chosen() const
{
    return m_list->chosen();
}

void CLinetypeLoadDialog::showFile(const QString& path)
{
    const LinetypeFile file = LinetypeFile::read(path);
    m_file->setText(QDir::toNativeSeparators(path));
    m_search->clear();
    m_list->clear();
    for (const LinetypeItem& linetype : file.linetypes)
        m_list->add(linetype);
    m_list->setCurrentItem(m_list->topLevelItem(0));
    m_ok->setEnabled(!m_list->chosen().isEmpty());
    QString told = file.problems.value(0);
    if (file.problems.size() > 1)
        told = tr("%1 And %n more.", nullptr, static_cast<int>(file.problems.size()) - 1).arg(told);
    m_problems->setText(told);
    m_problems->setToolTip(file.problems.join(QLatin1Char('\n')));
    m_problems->setVisible(!told.isEmpty());
}

void CLinetypeLoadDialog::browse()
{
    FileQuestion question;
    question.title = tr("Open Linetype File");
    question.path = m_file->text();
    question.filter = tr("Linetypes (*.lin *.LIN);;All files (*)");
    const QString path = Prompts::current().openFile(this, question);
    if (!path.isEmpty())
        showFile(path);
}
