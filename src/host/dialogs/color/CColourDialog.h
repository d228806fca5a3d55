#pragma once

#include "toolkit/PickQuestions.h"

#include <QDialog>

#include <optional>

class CColourGrid;
class CColourSwatch;
class CTrueColourPage;
class QLabel;
class QLineEdit;
class QPushButton;
class QTabWidget;
class QVBoxLayout;

/// Picks a colour: from the table, as a true colour, or by typing it.
class CColourDialog : public QDialog
{
    Q_OBJECT
public:
    /// Ids of the controls.
    enum Control {
        TextEdit = 3001,
        LargeGrid = 3002, ///< indices 10 to 249
        StandardGrid = 3003, ///< 1 to 9
        GreyGrid = 3004, ///< 250 to 255
        ByLayer = 3005,
        ByBlock = 3006,
        Swatch = 3007,
        Tabs = 3008,
        HexEdit = 3009,
        FirstField = 3010, ///< the fields of CTrueColourPage from here on
        Plane = 3020,
    };

    CColourDialog(const ColourQuestion& question, QWidget* parent);

    const ColourValue& value() const { return m_value; }
    /// Runs the dialog; nothing when cancelled.
    std::optional<ColourValue> run();

    void accept() override;

private:
    QWidget* makeIndexPage();
    QWidget* makeTrueColourPage();
    CColourGrid* addGrid(QVBoxLayout& layout, Control id, const QString& name, int columns,
                         const std::vector<int>& indices);
    QLayout* makeNamedButtons();
    QLayout* makeFoot();
    void set(const ColourValue& value, const QObject* from);
    void typed(const QString& text);
    void showPointed(int index);
    void showProblem(const QString& sentence);

    ColourQuestion m_question;
    ColourValue m_value;
    bool m_isTextGood = true;
    QList<CColourGrid*> m_grids;
    QTabWidget* m_tabs = nullptr;
    CTrueColourPage* m_truePage = nullptr;
    CColourSwatch* m_swatch = nullptr;
    QLineEdit* m_text = nullptr;
    QLabel* m_pointed = nullptr;
    QLabel* m_problem = nullptr;
};
