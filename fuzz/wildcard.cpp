// Wildcard patterns: whatever pattern and name are, the fast matcher and the plain one agree, with
// case and without.
//
// The first line of the input is the pattern, the rest the name. Bytes from 128 on stand for units
// where something may go wrong.

#include "base/WildcardPattern.h"
#include "support/reference/ReferenceWildcard.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <iterator>

namespace {

/// Letters with odd cases, digits and signs beyond ASCII, halves of surrogate pairs.
constexpr char16_t kUnits[] = {0x00C4, 0x00E4, 0x03A3, 0x03C3, 0x03C2, 0x017F, 0x212A,
                               0x0345, 0x03B9, 0x00DF, 0x0663, 0x00BD, 0x2160, 0xD801,
                               0xDC01, 0xDC29, 0xD834, 0xDD1E, 0xFFFF, 0x0080};

// What the plain matcher does quickly; longer names than a flat one can be are among them.
constexpr qsizetype kLongestPattern = 60;
constexpr qsizetype kLongestName = 330;

void require(bool condition)
{
    if (!condition)
        std::abort();
}

QString textOf(QByteArrayView bytes, qsizetype longest)
{
    QString text;
    for (const char byte : bytes.first(std::min(bytes.size(), longest))) {
        const auto value = static_cast<unsigned char>(byte);
        text += QChar(value < 0x80 ? char16_t(value) : kUnits[value % std::size(kUnits)]);
    }
    return text;
}

/// One alternative, in which no halves of a surrogate pair can meet when back-quotes are taken off.
bool isPlain(const QString& pattern)
{
    return std::none_of(pattern.begin(), pattern.end(),
                        [](QChar c) { return c == QLatin1Char(',') || c.isSurrogate(); });
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, size_t size)
{
    const QByteArrayView bytes(data, static_cast<qsizetype>(size));
    const void* end = std::memchr(data, '\n', size);
    const qsizetype line =
        end ? static_cast<const unsigned char*>(end) - data : static_cast<qsizetype>(size);
    const QString pattern = textOf(bytes.first(line), kLongestPattern);
    const QString name = textOf(end ? bytes.sliced(line + 1) : QByteArrayView(), kLongestName);

    for (const Qt::CaseSensitivity sensitivity : {Qt::CaseInsensitive, Qt::CaseSensitive}) {
        const WildcardPattern compiled(pattern, sensitivity);
        require(compiled.matches(name) == referenceWildcardMatch(name, pattern, sensitivity));
        require(compiled.matches(pattern) == referenceWildcardMatch(pattern, pattern, sensitivity));
        if (isPlain(pattern) && WildcardPattern::isLiteral(pattern)) {
            const QString literal = WildcardPattern::unescaped(pattern);
            require(compiled.matches(literal));
            require(compiled.matches(name) == (literal.compare(name, sensitivity) == 0));
        }
    }
    return 0;
}
