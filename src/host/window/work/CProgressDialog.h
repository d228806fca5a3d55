#pragma once

#include <QDialog>

class QLabel;
class QProgressBar;
class QPushButton;

/// Shows how far work has come, and lets the user cancel it. It stays until the work itself has
/// ended: cancelling asks the work to stop, closing the dialog does the same.
class CProgressDialog : public QDialog
{
    Q_OBJECT
public:
    CProgressDialog(const QString& text, QWidget* parent);

    /// Fraction from 0 to 1; negative while it is not known.
    void setFraction(double fraction);
    bool isCancelled() const { return m_cancelled; }
    void reject() override;

signals:
    void cancelled();

private:
    QLabel* m_label;
    QProgressBar* m_bar;
    QPushButton* m_cancel;
    bool m_cancelled = false;
};
