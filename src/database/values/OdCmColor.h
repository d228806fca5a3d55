#pragma once

#include <QString>

#include <array>

/// 0xAARRGGBB, the layout that QRgb has in the GUI library.
using OdRgb = quint32;

/// A colour as drawings store it: by index into the 255-colour table, by RGB, by layer or by block,
/// optionally with a colour-book name ("BOOK$COLOUR").
class OdCmColor
{
public:
    enum Method : quint8 {
        kByLayer = 0xC0,
        kByBlock = 0xC1,
        kByColor = 0xC2,
        kByACI = 0xC3,
        kNone = 0xC8
    };

    OdCmColor() = default;
    /// index 1 to 255; 0 and 256 give by-block and by-layer.
    static OdCmColor fromIndex(int index);
    static OdCmColor fromRgb(int red, int green, int blue, const QString& bookName = {});
    /// A packed value as color() returns it, method byte included.
    static OdCmColor fromPacked(quint32 packed);

    /// Packed value: method byte, then 0x00RRGGBB or 0x0000nn.
    quint32 color() const { return m_packed; }
    Method colorMethod() const { return static_cast<Method>(m_packed >> 24); }
    bool isByLayer() const { return colorMethod() == kByLayer; }
    /// The index; for an RGB colour the nearest one (squared distance, the lowest index wins ties).
    int colorIndex() const;
    /// 0xffRRGGBB to paint with; index 7 is the opposite of the background.
    OdRgb rgb(bool darkBackground) const;
    const QString& bookName() const { return m_bookName; }
    /// The same colour under a name of a colour book ("BOOK$COLOUR").
    OdCmColor withBookName(const QString& name) const
    {
        OdCmColor named = *this;
        named.m_bookName = name;
        return named;
    }

    /// "red" ... "white" for indices 1 to 7, the number for other indices, "255,127,0" for RGB,
    /// the colour's name for a book colour, "ByLayer", "ByBlock".
    QString colorNameForDisplay() const;

    friend bool operator==(const OdCmColor&, const OdCmColor&) = default;

private:
    quint32 m_packed = 0xC3000007u;
    QString m_bookName;
};

namespace aci {
/// The 256 table colours as 0xffRRGGBB; entry 0 is a placeholder.
const std::array<OdRgb, 256>& table();
/// Nearest of the indices 1 to 255 by squared RGB distance.
int nearestIndex(OdRgb colour);
} // namespace aci
