#include "host/sysvars/HeaderSysvars.h"

#include "base/NumberText.h"
#include "database/HeaderVariables.h"
#include "database/OdDbDatabase.h"

#include <QLocale>

namespace {
QString headerName(const SysvarDefinition& row)
{
    return QLatin1Char('$') + QLatin1String(row.name);
}

// As drawings spell them: the shortest text that reads back as the same number, never without a
// point.
QString realText(double value)
{
    QString text = QString::number(value, 'g', QLocale::FloatingPointShortest);
    if (!text.contains(QLatin1Char('.')) && !text.contains(QLatin1Char('e')))
        text += QStringLiteral(".0");
    return text;
}
} // namespace

SysvarValue header_variables::get(const SysvarContext& context, const SysvarDefinition& row)
{
    const HeaderVariables& header = context.drawing().header();
    const QString name = headerName(row);
    switch (row.type) {
    case SysvarType::Real:
        return NumberText::real(header.value(name).toLatin1()).value_or(row.fallback);
    case SysvarType::Text:
        return header.value(name, QLatin1String(row.text));
    default:
        return header.intValue(name, static_cast<int>(row.fallback));
    }
}

void header_variables::set(const SysvarContext& context, const SysvarDefinition& row,
                           const SysvarValue& value)
{
    if (get(context, row) == value)
        return; // however the drawing spells it
    QString text;
    if (const int* integer = std::get_if<int>(&value))
        text = QString::number(*integer);
    else if (const double* real = std::get_if<double>(&value))
        text = realText(*real);
    else
        text = std::get<QString>(value);
    context.drawing().setHeaderVariable(headerName(row), row.code, text);
}
