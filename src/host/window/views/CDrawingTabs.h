#pragma once

#include "sdk/KsApDocManager.h"

#include <QTabWidget>

class CDrawingView;
class HostDocManager;
class HostDocument;

/// The open drawings in tabs. Follows the document manager: a tab comes and goes with its document.
class CDrawingTabs : public QTabWidget, private KsApDocManagerReactor
{
    Q_OBJECT
public:
    explicit CDrawingTabs(HostDocManager& documents, QWidget* parent = nullptr);
    ~CDrawingTabs() override;

    CDrawingView* currentView() const;
    QList<CDrawingView*> views() const;

signals:
    /// A view was made; it lives until its document ends.
    void viewAdded(CDrawingView* view);
    /// Another drawing is current now, or none.
    void currentDrawingChanged();
    void closeWanted(HostDocument* document);

protected:
    /// The middle button closes a tab.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void documentCreated(KsApDocument* document) override;
    void documentBecameCurrent(KsApDocument* document) override;
    void documentToBeDestroyed(KsApDocument* document) override;
    void documentDestroyed(const QString& fileName) override;

    CDrawingView* viewOf(const KsApDocument* document) const;
    CDrawingView* viewAt(int index) const;
    void showState(CDrawingView& view);
    void showMenu(QPoint at);

    HostDocManager& m_documents;
    bool m_following = false;
};
