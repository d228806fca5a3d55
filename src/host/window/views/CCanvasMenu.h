#pragma once

#include <QMenu>

class HostCore;
struct HostQuestion;

/// The menu of the right mouse button over a drawing: what can be answered while something is
/// asked, else the latest command and what concerns view and selection.
class CCanvasMenu : public QMenu
{
    Q_OBJECT
public:
    /// `question`: the open one, or null.
    CCanvasMenu(HostCore& core, const HostQuestion* question, QWidget* parent);

signals:
    /// A command line, or, while something is asked, an answer.
    void lineWanted(const QString& line);
    void enterWanted();
    void cancelWanted();
    void selectAllWanted();
    void deselectWanted();

private:
    void addAnswers(const HostQuestion& question);
    void addCommands(HostCore& core);
    void addLine(const QString& text, const QString& line);
    void addView(bool isAsking);
};
