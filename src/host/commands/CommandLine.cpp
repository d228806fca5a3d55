#include "host/commands/CommandLine.h"

#include "host/text/HostText.h"

namespace {
constexpr QChar kQuote = QLatin1Char('"');
constexpr QChar kComment = QLatin1Char(';');

// Reads a quoted word that starts at `at`; leaves `at` behind the closing quote. False without one.
bool readQuoted(const QString& line, qsizetype& at, QString& word)
{
    for (++at; at < line.size(); ++at) {
        if (line[at] != kQuote) {
            word += line[at];
        } else if (at + 1 < line.size() && line[at + 1] == kQuote) {
            word += kQuote;
            ++at;
        } else {
            ++at;
            return true;
        }
    }
    return false;
}

QString readPlain(const QString& line, qsizetype& at)
{
    const qsizetype begin = at;
    while (at < line.size() && !line[at].isSpace() && line[at] != kComment && line[at] != kQuote)
        ++at;
    return line.sliced(begin, at - begin);
}
} // namespace

CommandLine CommandLine::parse(const QString& line)
{
    CommandLine result;
    qsizetype at = 0;
    while (at < line.size() && line[at] != kComment) {
        if (line[at].isSpace()) {
            ++at;
            continue;
        }
        QString word;
        if (line[at] != kQuote) {
            word = readPlain(line, at);
        } else if (!readQuoted(line, at, word)) {
            return {{}, HostText::tr("A quote is opened and not closed.")};
        }
        if (at < line.size() && !line[at].isSpace() && line[at] != kComment)
            return {{},
                    HostText::tr("A quote must start and end at a blank or at the line's end.")};
        result.words.append(word);
    }
    return result;
}

QString CommandLine::quoted(const QString& word)
{
    QString inside = word;
    inside.replace(kQuote, QStringLiteral("\"\""));
    return kQuote + inside + kQuote;
}
