#include "layerman/choice/ExpressionChoice.h"

#include "database/drawing/OdDbDatabase.h"
#include "database/filters/FilterCriteria.h"
#include "database/filters/FilterExpressionText.h"
#include "layerman/AbridgedText.h"
#include "layerman/CompanionText.h"
#include "layerman/arguments/NearestName.h"
#include "layerman/arguments/UsageError.h"
#include "layermanager/filters/FilterExpression.h"

#include <QStringList>

namespace {
bool namesLinetype(const FilterCriterion& criterion)
{
    const FilterCriteria::Criterion* known = FilterCriteria::find(criterion.key);
    return known && known->kind == FilterCriteria::Kind::Linetype;
}

FilterRows parsed(const QString& text)
{
    FilterExpressionParser parser(text);
    const auto rows = parser.rows();
    if (parser.isTooLarge()) {
        throw UsageError(
            CompanionText::tr("--expr is too large: at most %1 rows once all is multiplied out, "
                              "of %2 criteria each, and parentheses %3 deep can be read.")
                .arg(FilterExpressionParser::kMostRows)
                .arg(FilterExpressionParser::kMostCriteria)
                .arg(FilterExpressionParser::kDeepest));
    }
    if (!rows) {
        throw UsageError(
            CompanionText::tr("--expr \"%1\" is no filter expression; expected criteria such "
                              "as NAME==\"A*\" or LOCKED==\"True\", joined with AND, OR and "
                              "parentheses.")
                .arg(abridged(text)));
    }
    return *rows;
}

void requireKnownKeys(const FilterRows& rows)
{
    for (const FilterRow& row : rows) {
        for (const FilterCriterion& criterion : row) {
            if (FilterCriteria::find(criterion.key))
                continue;
            QStringList keys;
            for (const FilterCriteria::Criterion& known : FilterCriteria::all())
                keys << QLatin1String(known.key);
            throw UsageError(
                CompanionText::tr("--expr knows no criterion %1; the nearest is %2.")
                    .arg(abridged(criterion.key), nearest_name::of(criterion.key, keys).value(0)));
        }
    }
}
} // namespace

ExpressionChoice::ExpressionChoice(const QString& text)
    : m_text(text)
{
    FilterRows rows = parsed(text);
    requireKnownKeys(rows);
    for (FilterRow& row : rows)
        std::erase_if(row, namesLinetype);
    // No criterion that is left asks for anything of a drawing.
    const OdDbDatabase none;
    if (!FilterCriteria::spelled(none, rows)) {
        throw UsageError(
            CompanionText::tr("--expr \"%1\" cannot be said in rows of criteria; expected True "
                              "or False, a color from 1 to 255, a valid lineweight or Default "
                              "as values, one value for each key of a row, and not NEWVPFROZEN "
                              "beside VPFROZEN.")
                .arg(abridged(text)));
    }
}

LayerFilterRows ExpressionChoice::rows(const OdDbDatabase& drawing, const QString& file) const
{
    for (const FilterRow& row : parsed(m_text)) {
        for (const FilterCriterion& criterion : row) {
            if (namesLinetype(criterion)
                && !drawing.table(OdDbTableKind::Linetype).has(criterion.value)) {
                throw OdError(OdResult::KeyNotFound,
                              CompanionText::tr("%1 has no linetype \"%2\", which --expr asks for.")
                                  .arg(file, abridged(criterion.value)));
            }
        }
    }
    LayerFilterRows rows;
    ParseFilterExpression(drawing, FilterExpressionText::spelled(drawing, m_text).text, rows);
    return rows;
}
