#pragma once

#include <QStringList>

#include <functional>
#include <vector>

class QAbstractButton;
class QDialog;
class QMenu;
class QWidget;

/// How a user works with what opens over the window and holds it up until it is answered.
namespace tour_dialogs {

using Steps = std::function<void(QDialog&)>;

/// Does `open`, and the steps in the dialog that comes up over what is there. Fails the test when
/// none comes, and closes one that the steps left open.
void inDialog(const std::function<void()>& open, const Steps& steps);
/// The same with dialogs of which one follows the other.
void inDialogs(const std::function<void()>& open, const std::vector<Steps>& steps);
/// The same with a menu that opens at a place.
void inMenu(const std::function<void()>& open, const std::function<void(QMenu&)>& steps);

/// Opens the submenus of a path like {"Visibility", "Frozen"} by clicks; the last entry is
/// pointed at. Entries are told by their texts without the marks of keys. Null where there is no
/// such entry that can be chosen.
QMenu* pointAt(QMenu& menu, const QStringList& path);
/// The same, and clicks on the last entry.
void choose(QMenu& menu, const QStringList& path);

/// Clicks on the button of that text, without its mark of a key.
void press(const QWidget& dialog, const QString& button);
/// The visible button of that text, or null.
QAbstractButton* button(const QWidget& dialog, const QString& text);
/// Chooses the kind of files that begins so in a file dialog.
void pickKind(const QDialog& dialog, const QString& beginning);
/// Pastes a path into a file dialog, and clicks on its button.
void pickFile(const QDialog& dialog, const QString& path);

} // namespace tour_dialogs
