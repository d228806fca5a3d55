#pragma once

#include "toolkit/Prompts.h"

#include <QDialog>

class QCommandLinkButton;
class QVBoxLayout;

/// A modal question: main instruction, explanation, and one command link per answer. The links are
/// registered as controls under their ids. Esc and the close button answer Prompts::kCancelled
/// where the question allows it, and do nothing where it does not.
class CXTPTaskDialog : public QDialog
{
    Q_OBJECT
public:
    explicit CXTPTaskDialog(const TaskQuestion& question, QWidget* parent = nullptr);

    /// Runs the dialog; the id of the chosen link, or Prompts::kCancelled.
    int DoModal();
    QCommandLinkButton* link(int id) const;

    void reject() override;

protected:
    void changeEvent(QEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void addTexts(const TaskQuestion& question, QVBoxLayout& layout);
    void addLinks(const TaskQuestion& question, QVBoxLayout& layout);
    /// Gives the dialog the size that shows every text in full.
    void fit();

    bool m_allowCancel;
    int m_wantedUnits;
    int m_answer = Prompts::kCancelled;
};
