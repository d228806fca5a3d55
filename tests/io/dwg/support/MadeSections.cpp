#include "io/dwg/support/MadeSections.h"

#include "io/dwg/bits/Checksums.h"
#include "io/dwg/support/MadeFields.h"
#include "io/dwg/support/MadeHandles.h"
#include "io/dwg/support/MadeRecords.h"

#include <utility>

namespace {

constexpr QByteArrayView
    kHeaderMark("\xCF\x7B\x1F\x23\xFD\xDE\x38\xA9\x5F\x7C\x68\xB8\x4E\x6D\x33\x5F", 16);
constexpr QByteArrayView
    kClassesMark("\x8D\xA1\xC4\xB8\xC4\xA9\xF8\xC5\xC0\xDC\xF4\x5F\xE7\xCF\xB6\x8A", 16);
constexpr QByteArrayView
    kPreviewMark("\x1F\x25\x6D\x07\xD4\x36\x28\x28\x9D\x57\xCA\x3F\x9D\x44\x10\x2B", 16);
constexpr QByteArrayView
    kSecondMark("\xD4\x7B\x21\xCE\x28\x93\x9F\xBF\x53\x24\x40\x09\x12\x3C\xAA\x01", 16);
constexpr int kDay = 2460000; ///< all dates are that one

/// What closes a section: its mark with all bits turned.
QByteArray inverse(QByteArrayView mark)
{
    QByteArray turned = mark.toByteArray();
    for (char& byte : turned)
        byte = static_cast<char>(~byte);
    return turned;
}

void appendSum(QByteArray& bytes, quint16 sum)
{
    bytes.append(static_cast<char>(sum & 0xFF));
    bytes.append(static_cast<char>(sum >> 8));
}

/// The tables by the number that the second header gives them.
constexpr std::pair<const char*, quint64> kReferences[] = {
    {"$HANDSEED", 0},
    {"*BLOCK", MadeHandle::BlockControl},
    {"*LAYER", MadeHandle::LayerControl},
    {"*STYLE", MadeHandle::StyleControl},
    {"*LTYPE", MadeHandle::LtypeControl},
    {"*VIEW", MadeHandle::ViewControl},
    {"*UCS", MadeHandle::UcsControl},
    {"*VPORT", MadeHandle::VportControl},
    {"*APPID", MadeHandle::AppIdControl},
    {"*DIMSTYLE", MadeHandle::DimStyleControl},
    {"*VX", MadeHandle::VxControl},
    {"*NAMED", MadeHandle::Named},
    {"*MLINESTYLES", MadeHandle::MultiLineStyles},
    {"*GROUPS", MadeHandle::Groups},
};

} // namespace

quint8 MadeSections::maintenance(DrawingVersion version)
{
    // Above 3 the sections of 2010 have a size of 8 bytes.
    switch (version) {
    case DrawingVersion::V2000:
        return 6;
    case DrawingVersion::V2010:
        return 3;
    case DrawingVersion::V2013:
        return 8;
    case DrawingVersion::V2018:
        return 4;
    default:
        return 0;
    }
}

QByteArray MadeSections::marked(QByteArrayView mark, const QByteArray& body) const
{
    const bool highSize = m_format.version >= DrawingVersion::V2013;
    BitWriter sized;
    sized.rawLong(static_cast<quint32>(body.size()));
    if (highSize)
        sized.rawLong(0);
    sized.raw(body);
    QByteArray section = mark.toByteArray() + sized.bytes();
    appendSum(section, Checksums::crc16(sized.bytes()));
    return section + inverse(mark);
}

QByteArray MadeSections::header(quint64 seed, const std::map<QByteArray, quint64>& amiss) const
{
    MadeFields fields(m_format);
    for (const auto& [name, handle] : kReferences)
        fields.setReference(name, handle);
    fields.setReference("$HANDSEED", seed);
    fields.setReference("$CLAYER", MadeHandle::FirstLayer);
    fields.setReference("$TEXTSTYLE", MadeHandle::Style);
    fields.setReference("$DIMTXSTY", MadeHandle::Style);
    fields.setReference("$CELTYPE", MadeHandle::ByLayer);
    fields.setReference("$DIMSTYLE", MadeHandle::DimStyle);
    fields.setReference("*LAYOUTS", MadeHandle::Layouts);
    fields.setReference("*PAPER", MadeHandle::PaperSpace);
    fields.setReference("*MODEL", MadeHandle::ModelSpace);
    fields.setReference("*BYLAYER", MadeHandle::ByLayer);
    fields.setReference("*BYBLOCK", MadeHandle::ByBlock);
    fields.setReference("*CONTINUOUS", MadeHandle::Continuous);
    for (const auto& [name, handle] : amiss)
        fields.setReference(name.constData(), handle);
    for (const char* one : {"$TILEMODE", "$VISRETAIN", "$FILLMODE", "$PSLTSCALE", "$CELTSCALE",
                            "$DIMSCALE", "$DIMLFAC", "$DIMTFAC", "$CMLSCALE"})
        fields.setNumber(one, 1);
    fields.setNumber("$LTSCALE", 1.5);
    fields.setNumber("$TEXTSIZE", 2.5);
    fields.setNumber("$TDCREATE", kDay);
    fields.setNumber("$TDUPDATE", kDay);
    RecordParts parts;
    parts.version = m_format.version;
    const bool apart = hasTextStream(m_format.version);
    if (apart)
        parts.data.rawLong(0); // the length of the data, which is told below
    fields.appendAll(parts, apart ? parts.handles : parts.data);
    quint64 handlesAt = 0;
    return marked(kHeaderMark, parts.body(apart, handlesAt));
}

QByteArray MadeSections::classes(bool forVariables) const
{
    constexpr qint16 kObjectClass = 0x1F3;
    const bool apart = hasTextStream(m_format.version);
    const bool counts = m_format.version >= DrawingVersion::V2004;
    const auto highest = static_cast<qint16>(MadeRecords::kVariableType - (forVariables ? 0 : 1));
    RecordParts parts;
    parts.version = m_format.version;
    BitWriter& data = parts.data;
    if (apart)
        data.rawLong(0);
    if (counts) {
        data.bitShort(highest);
        data.rawShort(0);
        data.bit(true);
    }
    if (forVariables) {
        data.bitShort(highest);
        data.bitShort(0);
        for (const char* text : {"ObjectDBX Classes", "AcDbDictionaryVar", "DICTIONARYVAR"})
            (apart ? parts.text : data).append(Spelling::text(m_format, QString::fromLatin1(text)));
        data.bit(false);
        data.bitShort(kObjectClass);
        for (const int number : {1, 0, 0, 0, 0}) { // how many there are, versions
            if (counts)
                data.bitLong(number);
        }
    }
    parts.hasText = apart && forVariables;
    quint64 handlesAt = 0;
    return marked(kClassesMark, parts.body(apart, handlesAt));
}

QByteArray MadeSections::auxHeader(quint64 seed) const
{
    const bool longer = m_format.version >= DrawingVersion::V2018;
    const quint16 version = static_cast<quint16>(m_format.version);
    BitWriter out;
    out.raw(QByteArrayView("\xFF\x77\x01", 3));
    const auto versions = [&] {
        out.rawShort(version);
        out.rawShort(maintenance(m_format.version));
    };
    versions();
    out.rawLong(1); // saves
    out.rawLong(0xFFFFFFFF);
    out.rawShort(1);
    out.rawShort(0);
    out.rawLong(0);
    versions();
    versions();
    for (const int number : {0x0005, 0x0893, 0x0005, 0x0893, 0x0000, 0x0001})
        out.rawShort(static_cast<quint16>(number));
    if (longer) {
        for (int i = 0; i < 3; ++i)
            out.rawShort(0);
    }
    for (int i = 0; i < 5; ++i)
        out.rawLong(0);
    for (int date = 0; date < 2; ++date) {
        out.rawLong(kDay);
        out.rawLong(0);
    }
    out.rawLong(static_cast<quint32>(seed));
    out.rawLong(0);
    out.rawShort(0);
    out.rawShort(1);
    for (const quint32 number : {0u, 0u, 0u, 1u, 0u, 0u, 0u, 0u})
        out.rawLong(number);
    return out.bytes();
}

QByteArray MadeSections::freeSpace(std::size_t records, quint32 objects) const
{
    // Numbers take 8 bytes since 2010, where the start of the records is told no more.
    const bool longer = m_format.version >= DrawingVersion::V2010;
    BitWriter out;
    const auto number = [&](quint32 value) {
        out.rawLong(value);
        if (longer)
            out.rawLong(0);
    };
    number(0);
    number(static_cast<quint32>(records));
    out.rawLong(kDay);
    out.rawLong(0);
    if (!longer)
        out.rawLong(objects);
    out.rawChar(4);
    for (const quint32 value : {0x32u, 0u, 0x64u, 0u, 0x200u, 0u, 0xFFFFFFFFu, 0u})
        number(value);
    return out.bytes();
}

QByteArray MadeSections::preview(quint32 place)
{
    constexpr QByteArrayView kPicture("picture");
    constexpr quint32 kList = 1 + 9; // the number of pictures, and one entry
    BitWriter out;
    out.rawLong(kList + static_cast<quint32>(kPicture.size()));
    out.rawChar(1);
    out.rawChar(2); // its kind
    out.rawLong(place + static_cast<quint32>(kPreviewMark.size()) + 4 + kList);
    out.rawLong(static_cast<quint32>(kPicture.size()));
    out.raw(kPicture);
    return kPreviewMark.toByteArray() + out.bytes() + inverse(kPreviewMark);
}

QByteArray MadeSections::secondHeader(quint64 address,
                                      const std::vector<FlatFile::Locator>& locators,
                                      quint64 seed) const
{
    constexpr int kBehindSum = 8;
    BitWriter out;
    out.rawLong(0); // its length, which is told below
    out.bitLong(static_cast<qint32>(address));
    out.raw("AC" + QByteArray::number(static_cast<int>(m_format.version)));
    out.raw(QByteArray(5, '\0'));
    out.rawChar(maintenance(m_format.version));
    out.rawChar(1);
    out.bits(0, 4);
    for (const int number : {0x10, 0x84, 0xBD, 0xCA, 0x06})
        out.rawChar(static_cast<quint8>(number));
    for (const FlatFile::Locator& locator : locators) {
        out.rawChar(static_cast<quint8>(locator.number));
        out.bitLong(static_cast<qint32>(locator.offset));
        out.bitLong(static_cast<qint32>(locator.size));
    }
    out.bitShort(static_cast<qint16>(std::size(kReferences)));
    quint8 number = 0;
    for (const auto& [name, handle] : kReferences) {
        BitWriter bits;
        bits.handle(DwgReference::Own, number == 0 ? seed : handle);
        out.rawChar(static_cast<quint8>(bits.bytes().size() - 1));
        out.rawChar(number++);
        out.raw(QByteArrayView(bits.bytes()).sliced(1));
    }
    out.fillByte(false);
    QByteArray bytes = out.bytes();
    qToLittleEndian(static_cast<quint32>(bytes.size() + 2 + kBehindSum), bytes.data());
    appendSum(bytes, Checksums::crc16(bytes));
    return kSecondMark.toByteArray() + bytes + QByteArray(kBehindSum, '\0') + inverse(kSecondMark);
}
