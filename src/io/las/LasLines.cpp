#include "io/las/LasLines.h"

#include "database/values/OdError.h"
#include "io/dxf/text/GroupCode.h"

#include <QCoreApplication>

namespace {

/// No name or description comes near; what is longer is no layer-state file.
constexpr qsizetype kLongestLine = 65536;
constexpr qsizetype kShownCharacters = 40;

QString tr(const char* text)
{
    return QCoreApplication::translate("LasReader", text);
}

/// What a sentence shows of a line.
QString shown(QStringView line)
{
    return line.size() <= kShownCharacters
        ? line.toString()
        : line.first(kShownCharacters).toString() + QStringLiteral("...");
}

} // namespace

LasLines::LasLines(QStringView text, const QString& file)
    : m_rest(text)
    , m_file(file)
{
    QStringView groups = text.trimmed();
    if (groups.endsWith(QChar(0x1A)))
        groups = groups.chopped(1).trimmed();
    m_lastGroupEnd = groups.data() + groups.size();
}

void LasLines::fail(const QString& sentence) const
{
    throw OdError_InvalidDrawing(m_file, m_line, sentence);
}

QStringView LasLines::takeLine()
{
    ++m_line;
    const qsizetype end = m_rest.indexOf(QLatin1Char('\n'));
    QStringView line = end < 0 ? m_rest : m_rest.first(end);
    m_rest = end < 0 ? QStringView() : m_rest.sliced(end + 1);
    if (line.endsWith(QLatin1Char('\r')))
        line.chop(1);
    if (line.size() > kLongestLine)
        fail(tr("the line has %1 characters; expected at most %2.")
                 .arg(line.size())
                 .arg(kLongestLine));
    return line;
}

std::optional<LasLines::Group> LasLines::next()
{
    if (m_rest.isEmpty() || m_rest.data() >= m_lastGroupEnd)
        return std::nullopt;
    const QStringView text = takeLine().trimmed();
    bool isNumber = false;
    const int code = text.toInt(&isNumber);
    if (!isNumber || code < 0 || code > GroupCodes::kHighest)
        fail(tr("expected a group code, found \"%1\".").arg(shown(text)));
    if (m_rest.isEmpty())
        fail(tr("the file ends after group code %1; expected its value.").arg(code));
    return Group{code, takeLine()};
}
