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
    /// An entity of model space; `words`: groups from the subclass mark on, as "10=0 20=5"; a tilde
    /// stands for a blank. Handles count up from 40, layers' and entities' together.
    TestDrawing& addEntity(const QByteArray& type, const QByteArray& layerName,
                           const QByteArray& words);
    /// A viewport of the sheet, 60 wide and high about (x, y), that shows model space about (100,
    /// 100), 30 units high.
    TestDrawing& addViewport(int x, int y);

    QByteArray bytes() const;
    std::unique_ptr<OdDbDatabase> read() const;
    /// Writes the drawing to a file and returns the path.
    QString writeTo(const QString& folder, const QString& name) const;

private:
    TestDrawing& append(const QByteArray& type, const QByteArray& space, const QByteArray& words);
    QByteArray nextHandle() const { return QByteArray::number(m_handle++, 16).toUpper(); }

    QByteArray m_layers;
    QByteArray m_entities;
    int m_layerCount = 1;
    int m_viewportCount = 1; ///< the sheet's own is the first
    mutable int m_handle = 0x40;
};
