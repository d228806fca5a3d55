#pragma once

#include "toolkit/PickQuestions.h"

#include <QDialog>

#include <optional>

class CLinetypeList;
class QLineEdit;
class QPushButton;

/// Picks a linetype of the drawing, and loads others from files.
class CLinetypeDialog : public QDialog
{
    Q_OBJECT
public:
    /// Ids of the controls.
    enum Control { Search = 3101, List = 3102, Load = 3103 };

    CLinetypeDialog(const LinetypeQuestion& question, QWidget* parent);

    /// The name of the linetype that is chosen; empty: none.
    QString value() const;
    /// Runs the dialog; nothing when cancelled.
    std::optional<QString> run();

    void accept() override;

private:
    void fill();
    void load();

    LinetypeQuestion m_question;
    QLineEdit* m_search;
    CLinetypeList* m_list;
    QPushButton* m_load;
    QPushButton* m_ok = nullptr;
};
