#pragma once

#include <QString>

/// Matches a text against the wildcard pattern of WildcardPattern.h, upper and lower case being
/// different. kest::kNormal on a match, else kest::kError, also where an argument is null.
int MatchWildcard(const QString* text, const QString* pattern);
