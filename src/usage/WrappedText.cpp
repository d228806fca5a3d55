#include "usage/WrappedText.h"

#include <QStringList>

namespace {
constexpr qsizetype kIndent = 2;
constexpr qsizetype kTextColumn = 22;

QString blanks(qsizetype count)
{
    return QString(count, QLatin1Char(' '));
}
} // namespace

QString wrappedText(const QString& head, const QString& text, qsizetype column)
{
    QString result;
    QString line = head;
    if (line.size() >= column && !head.isEmpty()) {
        result = line + QLatin1Char('\n');
        line.clear();
    }
    line = line.leftJustified(column);
    bool isFresh = true;
    for (const QString& word : text.split(QLatin1Char(' '))) {
        if (!isFresh && line.size() + 1 + word.size() > kUsageWidth) {
            result += line + QLatin1Char('\n');
            line = blanks(column);
            isFresh = true;
        }
        line += (isFresh ? QString() : QStringLiteral(" ")) + word;
        isFresh = false;
    }
    return result + line + QLatin1Char('\n');
}

QString usageRow(const QString& name, const QString& text)
{
    return wrappedText(blanks(kIndent) + name, text, kTextColumn);
}
