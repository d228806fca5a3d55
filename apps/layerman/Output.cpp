#include "layerman/Output.h"

#include <algorithm>

namespace {
/// Marks that change the direction of text: with them a name could turn the rest of its line
/// around.
bool isDirection(QChar c)
{
    switch (c.direction()) {
    case QChar::DirLRE:
    case QChar::DirLRO:
    case QChar::DirRLE:
    case QChar::DirRLO:
    case QChar::DirPDF:
    case QChar::DirLRI:
    case QChar::DirRLI:
    case QChar::DirFSI:
    case QChar::DirPDI:
        return true;
    default:
        return c.unicode() == 0x200E || c.unicode() == 0x200F || c.unicode() == 0x061C;
    }
}

QString escape(QChar c)
{
    switch (c.unicode()) {
    case u'\n':
        return QStringLiteral("\\n");
    case u'\r':
        return QStringLiteral("\\r");
    case u'\t':
        return QStringLiteral("\\t");
    default:
        break;
    }
    const int digits = c.unicode() < 0x100 ? 2 : 4;
    return (digits == 2 ? QStringLiteral("\\x") : QStringLiteral("\\u"))
        + QString::number(c.unicode(), 16).rightJustified(digits, QLatin1Char('0'));
}
} // namespace

bool Output::isUnsafe(QChar c)
{
    if (c.unicode() >= 0x20 && c.unicode() < 0x7F)
        return false;
    const auto category = c.category();
    return category == QChar::Other_Control || category == QChar::Separator_Line
        || category == QChar::Separator_Paragraph || isDirection(c);
}

QString Output::escaped(const QString& text)
{
    if (std::none_of(text.begin(), text.end(), isUnsafe))
        return text;
    QString safe;
    for (const QChar c : text)
        safe += isUnsafe(c) ? escape(c) : QString(c);
    return safe;
}

void Output::print(const QString& text)
{
    const QByteArray bytes = text.toUtf8();
    const auto size = static_cast<std::size_t>(bytes.size());
    if (std::fwrite(bytes.constData(), 1, size, m_output) != size)
        m_isWhole = false;
}

bool Output::isWhole()
{
    if (std::fflush(m_output) != 0)
        m_isWhole = false;
    return m_isWhole;
}

void Output::complain(const QString& line)
{
    isWhole(); // what was printed before comes before
    const QByteArray bytes = escaped(line).toUtf8() + '\n';
    std::fwrite(bytes.constData(), 1, static_cast<std::size_t>(bytes.size()), m_errors);
    std::fflush(m_errors);
}

void Output::complain(const QString& file, const QString& sentence)
{
    complain(QStringLiteral("%1: %2").arg(file, sentence));
}

void Output::complain(const QString& file, const QString& layer, const QString& sentence)
{
    complain(QStringLiteral("%1: %2: %3").arg(file, layer, sentence));
}
