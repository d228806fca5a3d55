#include "io/dxf/text/CodePage.h"

#include "io/dxf/text/Johab.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringDecoder>
#include <QStringEncoder>

#include <algorithm>
#include <cctype>
#include <iterator>

namespace {

constexpr char kJohab[] = "johab";

struct Known
{
    const char* name; ///< letters and digits of a code page's name
    const char* converter;
};

/// Names without a number, or whose number is not that of a converter.
constexpr Known kKnown[] = {
    {"932", "Shift_JIS"},       {"936", "GBK"},
    {"949", "windows-949"},     {"950", "Big5"},
    {"874", "windows-874"},     {"1361", kJohab},
    {"gb2312", "GBK"},          {"big5", "Big5"},
    {"ksc5601", "windows-949"}, {"johab", kJohab},
    {"mac", "macintosh"},       {"macroman", "macintosh"},
    {"macintosh", "macintosh"}, {"10000", "macintosh"},
};

QByteArray lettersAndDigits(QByteArrayView name)
{
    QByteArray plain;
    for (const char c : name) {
        if (std::isalnum(static_cast<unsigned char>(c)) != 0)
            plain += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    }
    return plain;
}

QByteArray converterOf(QByteArrayView codePage)
{
    const QByteArray name = lettersAndDigits(codePage);
    QByteArray number = name;
    for (const char* prefix : {"ansi", "dos", "cp", "ibm", "windows"}) {
        if (name.startsWith(prefix))
            number = name.sliced(static_cast<qsizetype>(qstrlen(prefix)));
    }
    for (const Known& known : kKnown) {
        if (number == known.name)
            return known.converter;
    }
    if (name.startsWith("iso8859"))
        return "ISO-8859-" + name.sliced(7);
    const bool isNumber =
        std::all_of(number.begin(), number.end(), [](char c) { return c >= '0' && c <= '9'; });
    if (isNumber && number.size() == 4 && number.startsWith("125"))
        return "windows-" + number;
    if (isNumber && number.size() == 3)
        return "IBM" + number;
    return "windows-1252";
}

} // namespace

CodePage::CodePage()
    : m_bytes(0x10000, 0)
{
    m_singles.fill(kNoCharacter);
    m_pairs.fill(kNoPairs);
    for (quint16 c = 0; c < 0x80; ++c)
        add(c, c);
}

std::shared_ptr<const CodePage> CodePage::named(QByteArrayView name)
{
    const QByteArray converter = converterOf(name);
    if (converter != kJohab)
        return converted(converter.constData());
    auto page = std::make_shared<CodePage>();
    Johab::fill(*page, *converted("windows-949"));
    return page;
}

std::shared_ptr<const CodePage> CodePage::converted(const char* converter)
{
    // A build of Qt may lack converters: the western page is the least bad guess then.
    if (!QStringDecoder(converter).isValid() || !QStringEncoder(converter).isValid())
        converter = QStringDecoder("windows-1252").isValid() ? "windows-1252" : "ISO-8859-1";
    auto page = std::make_shared<CodePage>();
    page->addSingles(converter);
    page->addPairs(converter);
    page->prefer(converter);
    return page;
}

void CodePage::add(quint16 bytes, char16_t character)
{
    const std::size_t lead = bytes >> 8;
    if (lead == 0) {
        m_singles[bytes] = character;
    } else {
        if (m_pairs[lead] == kNoPairs) {
            m_pairs[lead] = static_cast<quint16>(m_rows.size());
            m_rows.emplace_back().fill(kNoCharacter);
        }
        m_rows[m_pairs[lead]][bytes & 0xFF] = character;
    }
    if (m_bytes[character] == 0)
        m_bytes[character] = bytes;
}

void CodePage::addSingles(const char* converter)
{
    for (int byte = 0x80; byte < 0x100; ++byte) {
        QStringDecoder decoder(converter);
        const char c = static_cast<char>(byte);
        const QString text = decoder(QByteArrayView(&c, 1));
        if (!decoder.hasError() && text.size() == 1 && text.front() != QChar(kNoCharacter))
            add(static_cast<quint16>(byte), text.front().unicode());
    }
}

void CodePage::addPairs(const char* converter)
{
    // All pairs in one go: a line feed is no trail byte, and ends whatever a pair left open.
    std::vector<quint16> pairs;
    QByteArray bytes;
    for (int lead = 0x81; lead < 0xFF; ++lead) {
        if (m_singles[static_cast<std::size_t>(lead)] != kNoCharacter)
            continue;
        for (int trail = 0x30; trail < 0xFF; ++trail) {
            pairs.push_back(static_cast<quint16>(lead << 8 | trail));
            bytes += static_cast<char>(lead);
            bytes += static_cast<char>(trail);
            bytes += '\n';
        }
    }
    QStringDecoder decoder(converter);
    const QString text = decoder(bytes);
    std::size_t pair = 0;
    for (const QStringView line : QStringView(text).split(u'\n')) {
        if (pair < pairs.size() && line.size() == 1 && line.front() != QChar(kNoCharacter))
            add(pairs[pair], line.front().unicode());
        ++pair;
    }
}

void CodePage::prefer(const char* converter)
{
    // Some characters stand in a page more than once; the converter knows where others write them.
    QString text;
    for (int c = 0x80; c < 0x10000; ++c) {
        if (m_bytes[static_cast<std::size_t>(c)] > 0xFF)
            text.append(QChar(c)).append(u'\n');
    }
    QStringEncoder encoder(converter);
    const QByteArray bytes = encoder(text);
    qsizetype at = 0;
    for (const QByteArray& line : bytes.split('\n')) {
        if (line.size() == 2 && at < text.size()
            && character(line[0], line[1]) == text[at].unicode())
            m_bytes[text[at].unicode()] =
                static_cast<quint16>(index(line[0]) << 8 | index(line[1]));
        at += 2;
    }
}
