#pragma once

class QWidget;

/// Controls of dialogs and panes by the fixed numeric ids that commands and tests know them by. A
/// later control of the same id takes the place of the earlier; a deleted control leaves its id
/// free. A control without an object name gets "control_<id>".
void registerControl(QWidget* owner, int id, QWidget* control);
/// The control of that id in `owner`, or null.
QWidget* controlById(const QWidget* owner, int id);
/// The id under which `owner` knows the control, or -1.
int controlId(const QWidget* owner, const QWidget* control);
