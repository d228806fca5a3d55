#pragma once

#include "toolkit/PickQuestions.h"

#include <QDialog>

#include <optional>

class QListWidget;

/// Picks a lineweight from a list with samples.
class CLineweightDialog : public QDialog
{
    Q_OBJECT
public:
    /// Ids of the controls.
    enum Control { List = 3201 };

    CLineweightDialog(const LineweightQuestion& question, QWidget* parent);

    int value() const;
    /// Runs the dialog; nothing when cancelled.
    std::optional<int> run();

protected:
    void showEvent(QShowEvent* event) override;

private:
    void fill(const LineweightQuestion& question);

    QListWidget* m_list;
};
