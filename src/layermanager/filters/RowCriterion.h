#pragma once

#include "layermanager/filters/LayerFilterRow.h"

#include <QLatin1String>

#include <span>
#include <variant>

/// How one criterion of a row stands in a filter's text. Builder and parser go by the same table;
/// USED, a field of two keys, is not in it.
struct RowCriterion
{
    enum class Kind {
        Truth, ///< "True" or "False"
        Text,
        Color, ///< index in decimal
        Linetype, ///< by name
        Lineweight, ///< as the host words it
    };
    enum Quirk : quint8 {
        kNone = 0,
        kFirstIsFalse = 1, ///< value 1 of the field is written "False"
        kWithoutAnd = 2, ///< never has an " AND " before it; deliberately so
        kRunsOn = 4, ///< without a closing quote the value is all the rest
        kCutsUnit = 8, ///< three characters go where "mm" follows anywhere behind the key
    };
    using Number = qint32 LayerFilterRow::*;
    using Text = QString LayerFilterRow::*;
    using Id = OdDbObjectId LayerFilterRow::*;

    QLatin1String key; ///< up to the quote that opens the value
    Kind kind;
    std::variant<Number, Text, Id> field;
    /// Characters which, just before the key, make it the tail of a longer one.
    const char* longerKeyEndsIn;
    quint8 quirks;

    /// All, in the order in which they are written.
    static std::span<const RowCriterion> inOrder();

    bool has(Quirk quirk) const { return (quirks & quirk) != 0; }
};

/// The two keys of field m_nUsed.
inline constexpr QLatin1String kUsedKey("USED==\"");
inline constexpr QLatin1String kOverridesKey("VPOVERRIDES==\"");
