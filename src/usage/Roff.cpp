#include "usage/Roff.h"

#include <QStringList>

#include <algorithm>

namespace {
QString plain(const QString& text)
{
    struct Special
    {
        char16_t character;
        const char* escape;
    };
    static constexpr Special kSpecials[] = {{u'\\', "\\e"},  {u'-', "\\-"},   {u'~', "\\(ti"},
                                            {u'^', "\\(ha"}, {u'`', "\\(ga"}, {u'\'', "\\(aq"},
                                            {u'"', "\\(dq"}};
    QString result;
    for (const QChar c : text) {
        const auto* found =
            std::find_if(std::begin(kSpecials), std::end(kSpecials),
                         [c](const Special& special) { return c == QChar(special.character); });
        result += found == std::end(kSpecials) ? QString(c) : QLatin1String(found->escape);
    }
    // At the start of a line a full stop begins a request.
    return result.startsWith(QLatin1Char('.')) ? QStringLiteral("\\&") + result : result;
}

QString request(const char* name, const QString& text)
{
    return QLatin1Char('.') + QLatin1String(name) + QLatin1Char(' ') + text + QLatin1Char('\n');
}
} // namespace

QString roff::pageHead(const QString& program, const QString& version, const QString& summary)
{
    // Neither hyphens nor wide blanks in what is to be typed.
    return request("TH",
                   QStringLiteral("%1 1 \"\" \"%2 %3\"").arg(program.toUpper(), program, version))
        + QStringLiteral(".nh\n.ad l\n") + section(QStringLiteral("NAME")) + plain(program)
        + QStringLiteral(" \\- ") + line(summary);
}

QString roff::section(const QString& title)
{
    return request("SH", title);
}

QString roff::subsection(const QString& title)
{
    return request("SS", plain(title));
}

QString roff::line(const QString& text)
{
    return plain(text) + QLatin1Char('\n');
}

QString roff::paragraphs(const QString& text)
{
    QString result;
    for (const QString& part : text.split(QStringLiteral("\n\n")))
        result += result.isEmpty() ? line(part) : paragraph(part);
    return result;
}

QString roff::paragraph(const QString& text)
{
    return QStringLiteral(".PP\n") + line(text);
}

QString roff::item(const QString& name, const QString& text)
{
    return QStringLiteral(".TP\n\\fB") + plain(name) + QStringLiteral("\\fR\n") + line(text);
}

QString roff::call(const QString& name, const QString& rest, bool isFirst)
{
    return (isFirst ? QString() : QStringLiteral(".br\n")) + QStringLiteral("\\fB") + plain(name)
        + QStringLiteral("\\fR ") + line(rest);
}
