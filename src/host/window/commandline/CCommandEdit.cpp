#include "host/window/commandline/CCommandEdit.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QKeyEvent>
#include <QStringListModel>

CCommandEdit::CCommandEdit(QWidget* parent)
    : QLineEdit(parent)
    , m_names(new QStringListModel(this))
{
    setObjectName(QStringLiteral("commandEdit"));
    setAccessibleName(tr("Command line"));
    setPlaceholderText(tr("Type a command"));
    auto* completer = new QCompleter(m_names, this);
    completer->setCaseSensitivity(Qt::CaseInsensitive);
    completer->setModelSorting(QCompleter::CaseInsensitivelySortedModel);
    completer->setMaxVisibleItems(10);
    completer->popup()->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    completer->popup()->setAccessibleName(tr("Commands"));
    setCompleter(completer);
}

void CCommandEdit::setNames(const QStringList& names)
{
    if (m_names->stringList() != names)
        m_names->setStringList(names);
}

bool CCommandEdit::isCompleting() const
{
    return completer()->popup()->isVisible();
}

void CCommandEdit::submit()
{
    completer()->popup()->hide();
    const QString line = text();
    clear();
    m_history.add(line.trimmed());
    emit submitted(line);
}

void CCommandEdit::focusInEvent(QFocusEvent* event)
{
    emit namesWanted();
    QLineEdit::focusInEvent(event);
}

void CCommandEdit::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        // Taken here: left to the completion, the key would put the chosen name back afterwards.
        event->accept();
        submit();
        return;
    }
    switch (isCompleting() ? 0 : event->key()) {
    case Qt::Key_Up:
        setText(m_history.previous(text()));
        return;
    case Qt::Key_Down:
        setText(m_history.next(text()));
        return;
    case Qt::Key_F2:
        emit historyWanted();
        return;
    case Qt::Key_Escape:
        if (text().isEmpty())
            emit cancelled();
        else
            clear();
        return;
    default:
        QLineEdit::keyPressEvent(event);
    }
}
