#include "host/sysvars/HeaderSysvars.h"

#include "base/NumberText.h"
#include "database/drawing/OdDbDatabase.h"
#include "database/store/HeaderVariables.h"

#include <QLocale>

#include <optional>

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

/// What the header says; nothing where that is no value of the variable. Files hold any numbers,
/// and such as are none.
std::optional<SysvarValue> stated(const HeaderVariables& header, const SysvarDefinition& row)
{
    const HeaderVariables::Variable* variable = header.find(headerName(row));
    if (!variable)
        return std::nullopt;
    if (row.type == SysvarType::Text)
        return variable->value;
    const QByteArray text = variable->value.toLatin1();
    if (row.type == SysvarType::Real) {
        const auto real = NumberText::real(text);
        return real && row.isInRange(*real) ? std::optional<SysvarValue>(*real) : std::nullopt;
    }
    const auto integer = NumberText::integer(text);
    return integer && row.isInRange(static_cast<double>(*integer))
        ? std::optional<SysvarValue>(static_cast<int>(*integer))
        : std::nullopt;
}

SysvarValue fallbackOf(const SysvarDefinition& row)
{
    switch (row.type) {
    case SysvarType::Real:
        return row.fallback;
    case SysvarType::Text:
        return QString(QLatin1String(row.text));
    default:
        return static_cast<int>(row.fallback);
    }
}
} // namespace

SysvarValue header_variables::get(const SysvarContext& context, const SysvarDefinition& row)
{
    return stated(context.drawing().header(), row).value_or(fallbackOf(row));
}

void header_variables::set(const SysvarContext& context, const SysvarDefinition& row,
                           const SysvarValue& value)
{
    const HeaderVariables& header = context.drawing().header();
    const std::optional<SysvarValue> before = stated(header, row);
    const bool isMissing = !header.contains(headerName(row));
    if (before == value || (isMissing && value == fallbackOf(row)))
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
