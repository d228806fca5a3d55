#include "sdk/texts/CatalogueFormat.h"

#include <QtEndian>

#include <optional>

namespace {

constexpr unsigned char kMagic[] = {0x3c, 0xb8, 0x64, 0x18, 0xca, 0xef, 0x9c, 0x95,
                                    0xcd, 0x21, 0x1c, 0xbf, 0x60, 0xa1, 0xbd, 0xdd};

/// Sections follow the magic: a tag, the length as a big-endian number, the contents.
enum Section : unsigned char {
    kContexts = 0x2f,
    kHashes = 0x42,
    kMessages = 0x69,
    kNumerusRules = 0x88,
    kDependencies = 0x96,
    kLanguage = 0xa7,
};

/// A message is a row of parts, each a tag, a length and a text, up to the end mark.
enum MessagePart : unsigned char {
    kEnd = 1,
    kTranslation = 3,
    kSourceText = 6,
    kContext = 7,
    kComment = 8,
};

constexpr quint32 kNoTranslation = 0xffffffff;
constexpr qsizetype kHashEntry = 8; ///< hash and offset of its message

quint32 numberAt(QByteArrayView bytes, qsizetype at)
{
    return qFromBigEndian<quint32>(bytes.data() + at);
}

/// Contents of the section or part that begins at `at`, which moves behind it.
std::optional<QByteArrayView> taggedAt(QByteArrayView bytes, qsizetype& at)
{
    if (bytes.size() - at < 5)
        return std::nullopt;
    const quint32 length = numberAt(bytes, at + 1);
    at += 5;
    if (length > static_cast<quint64>(bytes.size() - at))
        return std::nullopt;
    const QByteArrayView contents = bytes.sliced(at, static_cast<qsizetype>(length));
    at += contents.size();
    return contents;
}

bool isMessageSound(QByteArrayView messages, qsizetype at)
{
    while (at < messages.size()) {
        switch (static_cast<unsigned char>(messages[at])) {
        case kEnd:
            return true;
        case kTranslation:
            if (messages.size() - at >= 5 && numberAt(messages, at + 1) == kNoTranslation) {
                at += 5;
                break;
            }
            if (const auto text = taggedAt(messages, at); !text || text->size() % 2 != 0)
                return false;
            break;
        case kSourceText:
        case kContext:
        case kComment:
            if (!taggedAt(messages, at))
                return false;
            break;
        default:
            return false;
        }
    }
    return false;
}

const char* messagesFault(QByteArrayView hashes, QByteArrayView messages)
{
    if (hashes.isEmpty())
        return "it has no texts";
    if (hashes.size() % kHashEntry != 0)
        return "its index is cut off";
    for (qsizetype at = 0; at < hashes.size(); at += kHashEntry) {
        const quint32 offset = numberAt(hashes, at + 4);
        if (offset >= static_cast<quint64>(messages.size())
            || !isMessageSound(messages, static_cast<qsizetype>(offset)))
            return "a message does not lie within it";
    }
    return nullptr;
}

} // namespace

const char* catalogueFault(const QByteArray& bytes)
{
    const QByteArrayView magic(reinterpret_cast<const char*>(kMagic), sizeof(kMagic));
    if (!bytes.startsWith(magic))
        return "it is no catalogue of Qt Linguist";
    QByteArrayView hashes;
    QByteArrayView messages;
    qsizetype at = magic.size();
    while (at < bytes.size()) {
        const auto tag = static_cast<unsigned char>(bytes[at]);
        const auto contents = taggedAt(bytes, at);
        if (!contents)
            return "a section is cut off";
        // QTranslator reads no further than to an empty one; there is none in a sound file.
        if (contents->isEmpty())
            return "a section is empty";
        switch (tag) {
        case kHashes:
            hashes = *contents;
            break;
        case kMessages:
            messages = *contents;
            break;
        case kNumerusRules:
        case kLanguage:
            break;
        case kContexts:
        case kDependencies:
        default:
            return "it has a section that is not expected";
        }
    }
    return messagesFault(hashes, messages);
}
