#pragma once

#include <QDialog>

class QCheckBox;

/// Tells that a layer which changed no longer agrees with the filter that the palette shows. The
/// user can switch such notices off in it.
class CLayer_Filter_ViolationPromptDlg : public QDialog
{
    Q_OBJECT
public:
    enum ControlId : int {
        kShowAgain = 1016, ///< s_Layer_FilterViolationPrompt
    };

    explicit CLayer_Filter_ViolationPromptDlg(QWidget* parent = nullptr);

    /// Shows the notice, unless the user switched it off.
    static void run(QWidget* parent);

private:
    QCheckBox* m_showAgain;
};
