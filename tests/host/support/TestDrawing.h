#pragma once

#include <QByteArray>
#include <QString>

#include <memory>
#include <vector>

class OdDbDatabase;

/// A drawing made of the host's own new drawing with layers and lines added.
class TestDrawing
{
public:
    struct Layer
    {
        QByteArray name;
        int flags =
            0; ///< group 70: 1 frozen, 2 frozen in new viewports, 4 locked, 16 from a reference
        int color = 7; ///< negative: off
        int lineweight = -3;
        bool plots = true;
        QByteArray description = {};
    };

    TestDrawing& add(const Layer& layer);
    TestDrawing& addLine(const QByteArray& layerName);

    QByteArray bytes() const;
    std::unique_ptr<OdDbDatabase> read() const;
    /// Writes the drawing to a file and returns the path.
    QString writeTo(const QString& folder, const QString& name) const;

private:
    QByteArray nextHandle() const { return QByteArray::number(m_handle++, 16).toUpper(); }

    QByteArray m_layers;
    QByteArray m_entities;
    int m_layerCount = 1;
    mutable int m_handle = 0x40;
};
