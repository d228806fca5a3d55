#pragma once

#include <QDialog>
#include <QPointer>

class QAbstractItemView;
class QDialogButtonBox;

/// Help topic of all dialogs of layer states.
inline constexpr int kLayerStateHelp = 706;
/// In characters; wider columns are the choice of the user.
inline constexpr int kWidestStateColumn = 40;

/// Icon, title and, if wanted, the topic of F1.
void setUpStateDialog(QDialog& dialog, const QString& title, int helpTopic = 0);

/// A control known by its id, with the name that assistive programs read.
void registerStateControl(QDialog& dialog, int id, QWidget* control, const QString& name = {});

/// A size in which an average text of that many characters, and that many lines, fits.
QSize sizeInCharacters(const QWidget& widget, int columns, int lines);

/// The height of a row of a list: as in the layer grid.
int stateRowHeight(const QWidget& list);

/// A dialog that is run and may go meanwhile with its parent.
template <class Dialog>
class ModalDialog
{
public:
    explicit ModalDialog(Dialog* dialog)
        : m_dialog(dialog)
    { }
    ~ModalDialog() { delete m_dialog; }
    ModalDialog(const ModalDialog&) = delete;
    ModalDialog& operator=(const ModalDialog&) = delete;

    /// True when the user accepted and the dialog is still there.
    bool accepted() { return run() == QDialog::Accepted && m_dialog; }
    int run() { return m_dialog->exec(); }
    bool isThere() const { return !m_dialog.isNull(); }
    Dialog* operator->() const { return m_dialog; }

private:
    QPointer<Dialog> m_dialog;
};
