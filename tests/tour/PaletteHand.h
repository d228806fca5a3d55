#pragma once

#include "layermanager/layers/LayerColumn.h"

#include <QModelIndex>
#include <QString>
#include <QStringList>

#include <functional>

class QCheckBox;
class QLineEdit;
class QTableView;
class QTreeView;
class QWidget;

/// A user's hand on the layer palette of a window: clicks and keys, and what is to be read there.
class PaletteHand
{
public:
    explicit PaletteHand(QWidget& window)
        : m_window(window)
    { }

    QTableView& grid() const;
    QTreeView& tree() const;
    QLineEdit& search() const;
    QCheckBox& invert() const;

    // What is to be read

    /// Names of the listed layers, from top to bottom.
    QStringList rows() const;
    QStringList selectedRows() const;
    /// The text of a cell, or what it says to those who cannot see its sign.
    QString cell(const char* layer, LayerColumn column) const;
    /// The texts above and below the list.
    QString currentLine() const;
    QString statusLine() const;
    /// The tree's nodes, a dot in front for each level below the first.
    QStringList filters() const;
    QString selectedFilter() const;

    // What the hand does

    /// Waits until the palette has done all that it puts off to the end of a burst of changes; its
    /// timers are cut short.
    void pause() const;

    void clickTool(const char* name) const;
    void clickFilter(const char* name) const;
    /// Right-clicks a filter, and goes through the menu's entries.
    void chooseOnFilter(const char* name, const QStringList& path) const;
    void onFilterMenu(const char* name, const std::function<void(class QMenu&)>& steps) const;
    /// The same on a layer.
    void chooseOnLayer(const char* layer, const QStringList& path) const;
    /// Types into the label or cell that is being edited, in the place of its text, and presses
    /// Enter.
    void typeLabel(const char* text) const;
    void click(const char* layer, LayerColumn column, Qt::KeyboardModifiers modifiers = {}) const;
    /// Selects from one layer to another: a click, and one with Shift.
    void selectFromTo(const char* first, const char* last) const;
    /// Pulls the selected layers by the name of one of them onto a filter; `over`, where given, is
    /// done while they are held there.
    void drag(const char* layer, const char* filter,
              const std::function<void(class QDrag&, QPoint)>& over = {}) const;

    QModelIndex indexOf(const char* layer, LayerColumn column) const;
    QModelIndex filter(const char* name) const;

private:
    QWidget& m_window;
};
