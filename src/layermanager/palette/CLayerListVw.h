#pragma once

#include <QWidget>

class CLayerListCtrl;
class CLayerPaneView;

/// The palette's list: it holds the grid of layers.
class CLayerListVw : public QWidget
{
    Q_OBJECT
public:
    explicit CLayerListVw(QWidget* parent = nullptr);

    CLayerListCtrl& grid() const { return *m_grid; }
    void setPaneView(CLayerPaneView* view) { m_paneView = view; }
    CLayerPaneView* paneView() const { return m_paneView; }

private:
    CLayerListCtrl* m_grid;
    CLayerPaneView* m_paneView = nullptr;
};
