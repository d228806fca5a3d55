#pragma once

#include "host/window/commandline/CommandHistory.h"

#include <QLineEdit>

class QStringListModel;

/// The line in which commands and answers are typed: completes names, walks through what was typed
/// before with Up and Down; Escape closes the completion, then empties the line, then cancels.
class CCommandEdit : public QLineEdit
{
    Q_OBJECT
public:
    explicit CCommandEdit(QWidget* parent = nullptr);

    /// Names that the line completes.
    void setNames(const QStringList& names);
    CommandHistory& history() { return m_history; }
    const CommandHistory& history() const { return m_history; }
    /// Whether names are offered at the moment.
    bool isCompleting() const;

signals:
    void submitted(const QString& text);
    void cancelled();
    /// F2: more of what was said is wanted.
    void historyWanted();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;

signals:
    /// The line is about to be used: names may have changed since.
    void namesWanted();

private:
    void submit();

    QStringListModel* m_names;
    CommandHistory m_history;
};
