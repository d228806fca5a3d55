#pragma once

#include <QString>

/// Text of a TEXT, ATTRIB or ATTDEF as it is shown: %%d, %%p, %%c and %%nnn become characters, the
/// underline, overline and strike-through switches go.
QString plainSingleLine(const QString& coded);

/// Text of an MTEXT as it is shown, formatting codes stripped; paragraphs are separated by '\n'.
/// Stacked fractions become "a/b".
QString plainMultiLine(const QString& coded);
