#pragma once

#include "toolkit/PickQuestions.h"

#include <QDialog>

class CLinetypeList;
class QLabel;
class QLineEdit;
class QPushButton;

/// Offers the linetypes of a file; several can be chosen. It starts with the file that comes with
/// the program.
class CLinetypeLoadDialog : public QDialog
{
    Q_OBJECT
public:
    /// Ids of the controls.
    enum Control { File = 3151, Browse = 3152, Search = 3153, List = 3154 };

    explicit CLinetypeLoadDialog(QWidget* parent);

    QList<LinetypeItem> chosen() const;
    /// Lists the linetypes of that file instead; tells what of it cannot be loaded.
    void showFile(const QString& path);

private:
    void browse();

    QLineEdit* m_file;
    QLineEdit* m_search;
    CLinetypeList* m_list;
    QLabel* m_problems;
    QPushButton* m_ok = nullptr;
};
