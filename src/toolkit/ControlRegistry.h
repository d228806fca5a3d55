#pragma once

class QWidget;

/// Controls of dialogs and panes by the fixed numeric ids that commands and tests know them by.
void registerControl(QWidget* owner, int id, QWidget* control);
/// The control of that id in `owner`, or null.
QWidget* controlById(const QWidget* owner, int id);
