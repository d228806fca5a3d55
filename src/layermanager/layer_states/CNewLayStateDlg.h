#pragma once

#include "layermanager/layer_states/core/DrawingWatch.h"
#include "layermanager/palette/CToolTipImpl.h"

#include <QDialog>
#include <QList>
#include <QPair>

class QComboBox;
class QLineEdit;
class QPushButton;

/// Names and descriptions of layer states.
using ExistingStates = QList<QPair<QString, QString>>;

/// Saves the layers of the current drawing as a layer state, or gives an existing state another
/// description.
class CNewLayStateDlg : public QDialog, private CToolTipImpl
{
    Q_OBJECT
public:
    enum Control : int { kOk = 1, kCancel = 2, kName = 1010, kDescription = 1011, kHelp = 1012 };
    static constexpr int kLongestDescription = 250;

    explicit CNewLayStateDlg(const ExistingStates& existing, QWidget* parent = nullptr);

    enum class Outcome : qint16 {
        Added, ///< also where the name was empty and nothing happened: deliberate
        Replaced, ///< the description of an existing state
        Declined, ///< to replace it
    };
    Outcome outcome() const { return m_result; }
    const QString& name() const { return m_strName; }
    const QString& description() const { return m_strDescription; }

    /// Closes in any case, unless the drawing goes while the user is asked.
    void accept() override;

private:
    void build();
    void nameChanged(const QString& text);
    void existingChosen(int index);
    /// False where the dialog or its drawing is gone.
    bool store();

    QComboBox* m_names;
    QLineEdit* m_description;
    QPushButton* m_ok = nullptr;
    QString m_strName;
    QString m_strDescription;
    Outcome m_result = Outcome::Added;
    DrawingWatch m_watch;
};
