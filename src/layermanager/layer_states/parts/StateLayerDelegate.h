#pragma once

#include "layermanager/resources/LayerIcons.h"

#include <QStyledItemDelegate>

class StateLayerListModel;

/// Draws the flags of a state's layers as icons and a swatch beside the color.
class StateLayerDelegate : public QStyledItemDelegate
{
    Q_OBJECT
public:
    explicit StateLayerDelegate(const StateLayerListModel& model, QObject* parent = nullptr);

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;

private:
    const StateLayerListModel& m_model;
    LayerIcons m_icons;
};
