#pragma once

#include "layermanager/layer_states/core/DrawingWatch.h"

#include <QDialog>
#include <QStringListModel>

class QListView;

/// Lets the user choose layers that a layer state is to have as well.
class CLayStateMgrAddDlg : public QDialog
{
    Q_OBJECT
public:
    enum Control : int { kOk = 1, kCancel = 2, kNames = 1015 };

    explicit CLayStateMgrAddDlg(const QStringList& names, QWidget* parent = nullptr);

    /// In the order of the list.
    const QStringList& chosen() const { return m_chosen; }

    void accept() override;

private:
    QStringListModel m_model;
    QListView* m_names;
    QStringList m_chosen;
    DrawingWatch m_watch;
};
