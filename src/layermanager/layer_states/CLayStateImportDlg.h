#pragma once

#include "layermanager/layer_states/core/DrawingWatch.h"
#include "layermanager/layer_states/core/LayerStateListModel.h"

#include <QDialog>
#include <QSet>

#include <memory>

class QTableView;

/// Lets the user tick layer states of another drawing, and copies them into the current one.
class CLayStateImportDlg : public QDialog
{
    Q_OBJECT
public:
    enum Control : int { kOk = 1, kCancel = 2, kList = 1011 };

    /// `existing`: names of the states in the current drawing.
    CLayStateImportDlg(std::unique_ptr<OdDbDatabase> source, const QStringList& existing,
                       QWidget* parent = nullptr);
    ~CLayStateImportDlg() override;

    const LayerStateListModel& states() const { return m_states; }

    void accept() override;

private:
    void build();
    /// Asks where the state exists and takes it over. False where the dialog or its drawing is
    /// gone.
    bool take(const QString& name);
    void copy(const QString& name);
    /// A state whose name differs in case only is another one and stays; to the service both names
    /// are the same.
    bool hasInOtherCase(const QString& name) const;

    std::unique_ptr<OdDbDatabase> m_source;
    QSet<QString> m_existing;
    QSet<QString> m_existingFolded;
    LayerStateListModel m_states{LayerStateListModel::Kind::Tickable};
    QTableView* m_list;
    bool m_begun = false; ///< the undo record for all states is open
    DrawingWatch m_watch;
};
