#pragma once

#include <QStringView>

/// What WildcardPattern promises, spelled out as plainly as can be: every rule is looked at anew
/// for each pattern, and each token moves the set of all places that the tokens before it can
/// reach. Takes the pattern's length times the text's, and allocates for every token.
bool referenceWildcardMatch(QStringView text, QStringView pattern, Qt::CaseSensitivity sensitivity);
