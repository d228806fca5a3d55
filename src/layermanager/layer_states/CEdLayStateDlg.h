#pragma once

#include "layermanager/layer_states/core/DrawingWatch.h"
#include "layermanager/palette/CToolTipImpl.h"

#include <QDialog>

class CEdLayStateListCtrl;

/// Shows the layers recorded in a layer state of the current drawing and changes what is recorded;
/// the state is written when the user accepts.
class CEdLayStateDlg : public QDialog, private CToolTipImpl
{
    Q_OBJECT
public:
    enum Control : int { kOk = 1, kCancel = 2, kList = 1010, kHelp = 1011, kAdd = 1012, kRemove };

    explicit CEdLayStateDlg(const QString& state, QWidget* parent = nullptr);

    CEdLayStateListCtrl& list() const { return *m_list; }
    /// Whether the state, as it was written, is what the drawing is.
    bool isSameAsDrawing() const { return m_bSameAsDrawing; }

    void accept() override;

private:
    void build(const QString& state);
    void addLayers();
    void removeLayers();

    CEdLayStateListCtrl* m_list;
    bool m_bSameAsDrawing = false;
    DrawingWatch m_watch;
};
