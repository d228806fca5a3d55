#include "base/NumberText.h"

#include <charconv>

namespace {

QByteArrayView withoutPlus(QByteArrayView text)
{
    text = text.trimmed();
    return text.size() > 1 && text.front() == '+' && text[1] != '-' ? text.sliced(1) : text;
}

template <class Number, class... Format>
std::optional<Number> parse(QByteArrayView text, Format... format)
{
    Number number{};
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number, format...);
    if (error != std::errc() || stop != end)
        return std::nullopt;
    return number;
}

} // namespace

std::optional<qint64> NumberText::integer(QByteArrayView text)
{
    return parse<qint64>(withoutPlus(text), 10);
}

std::optional<double> NumberText::real(QByteArrayView text)
{
    return parse<double>(withoutPlus(text), std::chars_format::general);
}

std::optional<quint64> NumberText::handle(QByteArrayView text)
{
    return parse<quint64>(text.trimmed(), 16);
}
