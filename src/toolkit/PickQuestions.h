#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include <functional>
#include <vector>

/// A colour as a question states it and an answer gives it.
struct ColourValue
{
    enum class Kind { ByLayer, ByBlock, Index, TrueColour };

    Kind kind = Kind::Index;
    int index = 7; ///< of Index: 1 to 255
    quint32 rgb = 0; ///< of TrueColour: 0x00RRGGBB
    QString bookName; ///< of a true colour that is kept under a name of a colour book
    bool operator==(const ColourValue&) const = default;
};

/// A question for a colour.
struct ColourQuestion
{
    QString title;
    ColourValue start;
    bool offersByLayer = false;
    bool offersByBlock = false;
    bool isOnDark = true; ///< index 7 is shown as it is on the drawing's background
};

/// A linetype of a drawing or of a file.
struct LinetypeItem
{
    QString name;
    QString description;
    std::vector<double> dashes; ///< drawing units; negative: gap, 0: dot
};

/// A question for a linetype of the drawing; it is answered by name.
struct LinetypeQuestion
{
    QString title;
    QList<LinetypeItem> linetypes;
    QString current;
    bool offersByLayer = false;
    bool offersByBlock = false;
    /// Adds a linetype of a file to the drawing; a sentence where that cannot be done, else empty.
    /// Not set: nothing can be loaded.
    std::function<QString(const LinetypeItem&)> load;
};

/// A question for a lineweight in hundredths of a millimetre; -1 is by layer, -2 by block, -3 the
/// default.
struct LineweightQuestion
{
    QString title;
    int current = -3;
    bool inMillimetres = true;
    bool offersByLayer = false;
    bool offersByBlock = false;
    bool offersDefault = true;
};

/// A question for a plot style; it is answered by name.
struct PlotStyleQuestion
{
    QString title;
    QStringList names;
    QString current;
    QString whyFixed; ///< where nothing can be chosen: the sentence that says why
};
