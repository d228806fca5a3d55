#pragma once

#include <QString>

class OdDbDatabase;

/// Filter expressions in the spellings of other programs: blanks, parentheses, operators and truth
/// values in any case, OR inside AND. This system's own spelling is a list of rows, joined with OR,
/// whose criteria are joined with AND.
namespace FilterExpressionText {

struct Spelling
{
    QString text; ///< in this system's spelling where it can be said so, else as it was
    bool isSayable = true;
};

/// Texts that are in the own spelling already come back as they are.
Spelling spelled(const OdDbDatabase& database, const QString& expression);

} // namespace FilterExpressionText
