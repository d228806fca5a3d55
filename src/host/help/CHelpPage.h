#pragma once

#include <QTextBrowser>

/// Shows a page of the help; pictures are never wider than the view.
class CHelpPage : public QTextBrowser
{
    Q_OBJECT
public:
    explicit CHelpPage(QWidget* parent);

    QVariant loadResource(int type, const QUrl& name) override;

protected:
    void changeEvent(QEvent* event) override;
    void doSetSource(const QUrl& name, QTextDocument::ResourceType type) override;

private:
    void layOutTables();
};
