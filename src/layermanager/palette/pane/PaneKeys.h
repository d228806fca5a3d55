#pragma once

#include <QObject>

class CLayerPaneView;
class QKeyEvent;
class QWidget;

/// Sees keys and presses for the palette's windows before these do, and takes those that the
/// palette handles itself.
class PaneKeys : public QObject
{
    Q_OBJECT
public:
    explicit PaneKeys(CLayerPaneView& view);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Step;
    static const Step* stepFor(const PaneKeys& keys, const QWidget& widget, const QKeyEvent& key);

    bool isForGrid(const QWidget& widget) const;
    bool isForTree(const QWidget& widget) const;

    // Whether a step is meant by a key, and what it does. True eats the key.
    bool isHelp(const QWidget& widget, const QKeyEvent& key) const;
    bool showHelp(QWidget& widget, const QKeyEvent& key);
    bool isSelectAll(const QWidget& widget, const QKeyEvent& key) const;
    bool selectAll(QWidget& widget, const QKeyEvent& key);
    bool isDelete(const QWidget& widget, const QKeyEvent& key) const;
    bool deleteThere(QWidget& widget, const QKeyEvent& key);
    bool isRename(const QWidget& widget, const QKeyEvent& key) const;
    bool rename(QWidget& widget, const QKeyEvent& key);
    bool isRowStep(const QWidget& widget, const QKeyEvent& key) const;
    bool stepRow(QWidget& widget, const QKeyEvent& key);
    bool isColumnStep(const QWidget& widget, const QKeyEvent& key) const;
    bool stepColumn(QWidget& widget, const QKeyEvent& key);

    CLayerPaneView& m_view;
};
