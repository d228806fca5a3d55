#pragma once

#include "layermanager/layer_states/core/DrawingWatch.h"
#include "layermanager/palette/CToolTipImpl.h"

#include <QDialog>

class QAbstractButton;

/// The palette's settings: how new layers are evaluated and told about, whether the use of layers
/// is shown, and whether the filter holds for the host's layer toolbar too.
class CLayerSettingsDlg : public QDialog, public CToolTipImpl
{
    Q_OBJECT
public:
    enum ControlId : int {
        kWatch = 1021, ///< LAYEREVALCTL
        kEvaluate = 1022, ///< LAYEREVAL is not 0
        kDrawingOnly = 1023, ///< LAYEREVAL 1
        kEverywhere = 1024, ///< LAYEREVAL 2
        kNotify = 1026, ///< LAYERNOTIFY is positive
        kNotify2 = 1027,
        kNotify4 = 1028,
        kNotify8 = 1029,
        kNotify16 = 1030,
        kNotify32 = 1031,
        kNotify1 = 1032,
        kToolbar = 1033,
        kUsage = 1034,
    };

    explicit CLayerSettingsDlg(QWidget* parent = nullptr);

    /// Runs the dialog on the current drawing; whether it ended with OK.
    static bool run(QWidget* parent);

    void accept() override;

private:
    void createToolTips();
    /// Reads the settings into the controls.
    void readSettings();
    /// Enables what depends on other controls.
    void enableControls();
    /// LAYEREVAL and LAYERNOTIFY, which the drawing keeps.
    void storeDrawingSettings();
    QAbstractButton* button(int id) const;

    DrawingWatch m_watch; ///< that was current when the dialog was opened
};
