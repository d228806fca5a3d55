#pragma once

#include "host/help/HelpPages.h"

#include <QWidget>

class CHelpPage;
class QLineEdit;
class QListWidget;

/// The help: contents at the left, a page at the right. A search leaves the pages that hold all of
/// its words.
class CHelpViewer : public QWidget
{
    Q_OBJECT
public:
    /// Shows the pages of that folder.
    explicit CHelpViewer(const QString& folder, QWidget* parent = nullptr);

    void showTopic(int topic);
    /// Over a modal dialog it becomes the dialog's window, so that it can be used; when the dialog
    /// ends it belongs to its first parent again.
    void present();
    CHelpPage& page() const { return *m_page; }
    QListWidget& contents() const { return *m_contents; }
    QLineEdit& search() const { return *m_search; }

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void makeToolBar();
    void fill(const QString& text);
    void showPage(const QString& file);
    void markPage();
    void findNext();
    void belongTo(QWidget* owner);

    QString m_folder;
    QString m_shown; ///< the file of the page
    HelpPages m_pages;
    QWidget* m_home;
    CHelpPage* m_page;
    QListWidget* m_contents;
    QLineEdit* m_search;
};
