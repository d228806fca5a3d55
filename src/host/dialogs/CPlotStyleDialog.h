#pragma once

#include "toolkit/PickQuestions.h"

#include <QDialog>

#include <optional>

class QListWidget;

/// Picks a plot style by name.
class CPlotStyleDialog : public QDialog
{
    Q_OBJECT
public:
    /// Ids of the controls.
    enum Control { List = 3301 };

    CPlotStyleDialog(const PlotStyleQuestion& question, QWidget* parent);

    QString value() const;
    /// Runs the dialog; nothing when cancelled.
    std::optional<QString> run();

private:
    QListWidget* m_list;
};
