#pragma once

class QDialog;
class QDialogButtonBox;

/// The buttons at the foot of a dialog: OK (1), Cancel (2) and Help (9), which opens that topic; F1
/// opens it too.
QDialogButtonBox* addDialogButtons(QDialog& dialog, int helpTopic);
