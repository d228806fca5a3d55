#include "layermanager/filter_editor/core/FilterEditorRules.h"

#include "base/NameCharacters.h"
#include "database/filters/FilterCriteria.h"
#include "database/filters/FilterExpressionText.h"
#include "layermanager/filters/FilterExpression.h"

#include <algorithm>

namespace {

constexpr QLatin1String kNotInName("<>/':;\"?*|,=`");
constexpr QLatin1String kNotInCells("<>/':;\"?|,=`");

QString rebuilt(LayerFilterRows rows)
{
    rows.emplace_back();
    QStringList rowTexts;
    QString expression;
    BuildFilterExpression(rows, rowTexts, expression);
    return expression;
}

/// The one text of all that say the same; none where the criteria cannot be told.
std::optional<QString> canonical(const OdDbDatabase& database, const QString& expression)
{
    const std::optional<FilterRows> rows = FilterExpressionParser(expression).rows();
    return rows ? FilterCriteria::spelled(database, *rows) : std::nullopt;
}

} // namespace

bool IsValidFilterName(QString& name, const QStringList& names)
{
    name = name.trimmed();
    return !name.isEmpty() && !name_characters::containsAnyOf(name, kNotInName)
        && !names.contains(name, Qt::CaseInsensitive);
}

bool isFilterCellText(QStringView text)
{
    return !name_characters::containsAnyOf(text, kNotInCells);
}

bool rowsSayAllOf(const OdDbDatabase& database, const QString& expression,
                  const LayerFilterRows& rows)
{
    const QString text = rebuilt(rows);
    if (text == expression)
        return true;
    const std::optional<QString> meant = canonical(database, expression);
    return meant && meant == canonical(database, text);
}

bool canBeReadBack(const OdDbDatabase& database, const LayerFilterRows& rows,
                   const QString& expression)
{
    LayerFilterRows read;
    ParseFilterExpression(database, expression, read);
    return std::equal(read.begin(), read.end(), rows.begin(), rows.end() - 1)
        && (read.empty() || FilterExpressionText::spelled(database, expression).isSayable);
}
