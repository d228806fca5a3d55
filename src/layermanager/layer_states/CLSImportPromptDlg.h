#pragma once

#include "layermanager/layer_states/core/DrawingWatch.h"

#include <QDialog>

/// Offers to restore a layer state that was just imported.
class CLSImportPromptDlg : public QDialog
{
    Q_OBJECT
public:
    enum Control : int { kCancel = 2, kRestore = 1018, kText = 1020 };

    explicit CLSImportPromptDlg(const QString& state, QWidget* parent = nullptr);

    /// Whether the user chose to restore the state. The result of the dialog does not tell.
    bool isToRestore() const { return m_bRestore; }

    void reject() override;

private:
    void restore();

    bool m_bRestore = false;
    DrawingWatch m_watch;
};
