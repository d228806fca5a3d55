#include "host/window/commandline/CHistoryWindow.h"

#include <QBoxLayout>
#include <QKeyEvent>
#include <QPlainTextEdit>
#include <QScrollBar>

namespace {
constexpr int kColumns = 110;
constexpr int kLines = 40;
} // namespace

CHistoryWindow::CHistoryWindow(const QPlainTextEdit& history, QWidget* parent)
    : QWidget(parent, Qt::Window)
    , m_text(new QPlainTextEdit(this))
{
    setObjectName(QStringLiteral("historyWindow"));
    setWindowTitle(tr("Command History"));
    m_text->setAccessibleName(tr("Command history"));
    m_text->setReadOnly(true);
    m_text->setLineWrapMode(QPlainTextEdit::NoWrap);
    m_text->setFont(history.font());
    m_text->setDocument(history.document());
    setFocusProxy(m_text);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_text);
    const QFontMetrics metrics = m_text->fontMetrics();
    resize(metrics.horizontalAdvance(QLatin1Char('0')) * kColumns, metrics.lineSpacing() * kLines);
}

void CHistoryWindow::toggle()
{
    if (isVisible()) {
        hide();
        return;
    }
    show();
    raise();
    activateWindow();
    m_text->verticalScrollBar()->setValue(m_text->verticalScrollBar()->maximum());
}

void CHistoryWindow::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_F2 || event->key() == Qt::Key_Escape)
        hide();
    else
        QWidget::keyPressEvent(event);
}
