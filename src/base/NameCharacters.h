#pragma once

#include <QLatin1String>
#include <QStringView>

/// The characters that names may not hold, in the order in which messages list them. Names of
/// layers and of filters differ in that order only, deliberately; the fields of the filter editor
/// refuse sets of their own, and names of layer states are not looked at.
namespace name_characters {

inline constexpr QLatin1String kNotInLayers("<>/\":;?*|,=`\\");
inline constexpr QLatin1String kNotInFilters("<>/\\\":;?*|,=`");

bool containsAnyOf(QStringView name, QLatin1String characters);

/// Whether a record of a symbol table or dictionary can have the name: 1 to 255 units, none of them
/// a control character or one of those that layers refuse.
bool canNameRecord(QStringView name);

} // namespace name_characters
