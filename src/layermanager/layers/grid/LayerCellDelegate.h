#pragma once

#include "layermanager/layers/LayerListModel.h"
#include "layermanager/resources/LayerIcons.h"

#include <QStyledItemDelegate>

struct CellLook;

/// Draws the cells of the layer grid straight from the layer records.
class LayerCellDelegate : public QStyledItemDelegate
{
    Q_OBJECT
public:
    explicit LayerCellDelegate(const LayerListModel& model, QObject* parent = nullptr);

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    /// Shows the text of cells that are too narrow for it, and the states of icons in words.
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;

    /// The icon of a status or flag cell; nothing for viewport cells without a viewport.
    std::optional<LayerIcon> icon(const OdDbLayerTableRecord& layer, LayerColumn column) const;

private:
    static void paintColor(QPainter& painter, const CellLook& look, const OdCmColor& color,
                           const QString& text);
    static void paintLineweight(QPainter& painter, const CellLook& look, int weight,
                                const QString& text);
    /// Width that the whole contents of a cell need, margins included.
    static int neededWidth(const CellLook& look, LayerCellKind kind, const QString& text);

    const LayerListModel& m_model;
    LayerIcons m_icons;
};
