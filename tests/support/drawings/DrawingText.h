#pragma once

#include <QByteArray>
#include <QList>

/// Small ASCII DXF drawings for tests, group by group.
class DrawingText
{
public:
    struct Layer
    {
        QByteArray name;
        int flags = 0;
        int colour = 7;
        QByteArray more = {}; ///< further groups, written by groups()
    };

    /// A complete drawing of version 2004 with these layers beside layer 0, two linetypes, two
    /// sheets
    /// ("Sheet A" with an overall and two floating viewports, "Sheet B" never opened) and one LINE
    /// per layer except the last; handles as in the constants below.
    static QByteArray withLayers(const QList<Layer>& layers, const QByteArray& lineEnd = "\n");
    /// A drawing of withLayers() with named plot styles "Normal" (handle 81) and "Thin" (82).
    static QByteArray withPlotStyles(QByteArray text);
    /// A drawing of the oldest kind: layer table and entities only, no handles.
    static QByteArray old(const QList<Layer>& layers);

    /// "62\n7\n" and so on, from code, value, code, value ...
    static QByteArray groups(std::initializer_list<QByteArray> codesAndValues);

    static constexpr quint64 kFirstLayer = 0x30; ///< handle of layer 0; the others follow
    static constexpr quint64 kOverallViewport = 0xA1;
    static constexpr quint64 kFirstViewport = 0xA2;
    static constexpr quint64 kSecondViewport = 0xA3;
};
