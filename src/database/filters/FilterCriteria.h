#pragma once

#include "database/filters/FilterExpressionParser.h"

#include <span>

class OdDbDatabase;

/// The criteria that rows of this system can set, in the order in which they are written.
namespace FilterCriteria {

enum class Kind { Truth, Text, Colour, Linetype, Lineweight };

struct Criterion
{
    const char* key;
    Kind kind;
};

/// In the order in which they are written.
std::span<const Criterion> all();
/// By the key in upper case, or null.
const Criterion* find(QStringView key);

/// The rows in this system's spelling. Nothing where a row cannot be set in the row editor: a key
/// that is not known, two patterns for one name, a linetype that the drawing has not.
std::optional<QString> spelled(const OdDbDatabase& database, const FilterRows& rows);

/// Whether every value is spelled as this system would.
bool usesOwnWords(const OdDbDatabase& database, const FilterRows& rows);

} // namespace FilterCriteria
