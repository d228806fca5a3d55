#include "host/help/CHelpViewer.h"

#include "host/help/CHelpPage.h"
#include "host/help/HelpTopics.h"

#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QDir>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QSplitter>
#include <QStyle>
#include <QToolBar>
#include <QVBoxLayout>

namespace {
constexpr QSize kFirstSize(860, 620);
constexpr int kContentsWidth = 230;
constexpr int kRowSpace = 6;
constexpr int kFileRole = Qt::UserRole;
} // namespace

CHelpViewer::CHelpViewer(const QString& folder, QWidget* parent)
    : QWidget(parent, Qt::Window)
    , m_folder(folder)
    , m_pages(folder)
    , m_home(parent)
    , m_page(new CHelpPage(this))
    , m_contents(new QListWidget(this))
    , m_search(new QLineEdit(this))
{
    setObjectName(QStringLiteral("helpViewer"));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    makeToolBar();
    auto* splitter = new QSplitter(this);
    auto* side = new QWidget(splitter);
    auto* column = new QVBoxLayout(side);
    m_search->setPlaceholderText(tr("Search the help"));
    m_search->setAccessibleName(tr("Search"));
    m_search->setClearButtonEnabled(true);
    m_contents->setAccessibleName(tr("Contents"));
    column->addWidget(m_search);
    column->addWidget(m_contents);
    splitter->addWidget(side);
    splitter->addWidget(m_page);
    splitter->setSizes({kContentsWidth, kFirstSize.width() - kContentsWidth});
    splitter->setStretchFactor(1, 1);
    splitter->setChildrenCollapsible(false);
    layout->addWidget(splitter, 1);
    resize(kFirstSize);

    connect(m_search, &QLineEdit::textChanged, this, &CHelpViewer::fill);
    connect(m_search, &QLineEdit::returnPressed, this, &CHelpViewer::findNext);
    connect(m_contents, &QListWidget::currentItemChanged, this,
            [this](const QListWidgetItem* item) {
                if (item)
                    showPage(item->data(kFileRole).toString());
            });
    connect(m_page, &CHelpPage::sourceChanged, this, [this](const QUrl& source) {
        // The browser's own source() is still the page before.
        m_shown = source.fileName();
        markPage();
    });
    fill({});
    setWindowTitle(tr("Help"));
}

void CHelpViewer::makeToolBar()
{
    auto* bar = new QToolBar(this);
    bar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    const auto add = [&](const QString& text, const QIcon& icon, const char* name,
                         const QKeySequence& key) {
        QAction* action = bar->addAction(icon, text);
        action->setObjectName(QLatin1String(name));
        action->setShortcut(key);
        addAction(action);
        return action;
    };
    QAction* back = add(tr("Back"), style()->standardIcon(QStyle::SP_ArrowBack), "helpBack",
                        QKeySequence::Back);
    QAction* forward = add(tr("Forward"), style()->standardIcon(QStyle::SP_ArrowForward),
                           "helpForward", QKeySequence::Forward);
    QAction* home =
        add(tr("Contents"), QIcon(), "helpContents", QKeySequence(Qt::ALT | Qt::Key_Home));
    back->setEnabled(false);
    forward->setEnabled(false);
    connect(back, &QAction::triggered, m_page, &CHelpPage::backward);
    connect(forward, &QAction::triggered, m_page, &CHelpPage::forward);
    connect(home, &QAction::triggered, this, [this] { showTopic(help_topics::kContents); });
    connect(m_page, &CHelpPage::backwardAvailable, back, &QAction::setEnabled);
    connect(m_page, &CHelpPage::forwardAvailable, forward, &QAction::setEnabled);
    auto* find = new QAction(this);
    find->setShortcut(QKeySequence::Find);
    addAction(find);
    connect(find, &QAction::triggered, this, [this] {
        m_search->setFocus();
        m_search->selectAll();
    });
    layout()->addWidget(bar);
}

void CHelpViewer::fill(const QString& text)
{
    const QSignalBlocker quiet(m_contents);
    m_contents->clear();
    for (const HelpPages::Page* page : m_pages.find(text)) {
        auto* item = new QListWidgetItem(page->title, m_contents);
        item->setData(kFileRole, page->file);
        item->setSizeHint(QSize(0, fontMetrics().height() + kRowSpace));
    }
    markPage();
}

void CHelpViewer::showTopic(int topic)
{
    // A search that hides the page's entry has done its work.
    m_search->clear();
    showPage(help_topics::page(topic));
}

void CHelpViewer::showPage(const QString& file)
{
    const QUrl page = QUrl::fromLocalFile(QDir(m_folder).filePath(file));
    if (m_page->source() != page)
        m_page->setSource(page);
}

void CHelpViewer::markPage()
{
    const QSignalBlocker quiet(m_contents);
    m_contents->setCurrentItem(nullptr);
    for (int row = 0; row < m_contents->count(); ++row) {
        if (m_contents->item(row)->data(kFileRole).toString() == m_shown)
            m_contents->setCurrentRow(row);
    }
    const QListWidgetItem* current = m_contents->currentItem();
    if (current)
        setWindowTitle(tr("Help: %1").arg(current->text()));
}

void CHelpViewer::findNext()
{
    if (!m_contents->currentItem() && m_contents->count() > 0)
        m_contents->setCurrentRow(0);
    const QString word = m_search->text().section(QLatin1Char(' '), 0, 0);
    if (word.isEmpty() || m_page->find(word))
        return;
    m_page->moveCursor(QTextCursor::Start);
    m_page->find(word);
}

void CHelpViewer::belongTo(QWidget* owner)
{
    if (parentWidget() == owner)
        return;
    const bool wasShown = isVisible();
    const QRect place = geometry();
    setParent(owner, Qt::Window);
    if (wasShown) {
        setGeometry(place);
        show();
    }
}

void CHelpViewer::present()
{
    auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    belongTo(dialog ? static_cast<QWidget*>(dialog) : m_home);
    if (dialog)
        connect(
            dialog, &QDialog::finished, this, [this] { belongTo(m_home); },
            Qt::SingleShotConnection);
    show();
    raise();
    activateWindow();
}

void CHelpViewer::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape)
        close();
    else
        QWidget::keyPressEvent(event);
}
