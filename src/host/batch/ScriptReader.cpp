#include "host/batch/ScriptReader.h"

#include "host/text/HostText.h"

#include <QStringDecoder>

#include <algorithm>

namespace {
const QByteArray kByteOrderMark = QByteArrayLiteral("\xEF\xBB\xBF");

bool isControl(char byte)
{
    return (byte >= 0 && byte < ' ' && byte != '\t') || byte == 0x7F;
}
} // namespace

bool ScriptReader::fail(const QString& sentence)
{
    m_error = sentence;
    return false;
}

bool ScriptReader::next(QString& line)
{
    if (!m_error.isEmpty())
        return false;
    QByteArray bytes = m_device.readLine(kMaxLineBytes + 3); // with its line end
    if (bytes.isEmpty())
        return false;
    ++m_line;
    while (bytes.endsWith('\n') || bytes.endsWith('\r'))
        bytes.chop(1);
    if (m_line == 1 && bytes.startsWith(kByteOrderMark))
        bytes.remove(0, kByteOrderMark.size());
    if (bytes.size() > kMaxLineBytes)
        return fail(HostText::tr("The line is longer than %1 bytes.").arg(kMaxLineBytes));
    if (std::any_of(bytes.begin(), bytes.end(), isControl))
        return fail(HostText::tr("The line holds control characters; a script is plain text."));
    QStringDecoder decode(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    line = decode(bytes);
    if (decode.hasError())
        return fail(HostText::tr("The line is not UTF-8 text."));
    return true;
}
