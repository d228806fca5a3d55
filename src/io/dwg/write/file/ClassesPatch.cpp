#include "io/dwg/write/file/ClassesPatch.h"

#include "io/dwg/read/DwgObjectSource.h"
#include "io/dwg/sections/SectionStreams.h"
#include "io/dwg/write/RecordPatch.h"
#include "io/dwg/write/Spelling.h"

using Stream = RecordPatch::Stream;

QByteArray ClassesPatch::withVariableClass(const DwgObjectSource& source)
{
    constexpr qint16 kObjectClass = 0x1F3;
    constexpr qint32 kReleaseOfClass = 20; // that first had it
    const DwgFormat& format = source.format();
    const DwgClasses& classes = source.classes();
    const SectionStreams section(source.file(), DwgSection::Classes, format);
    const bool apart = hasTextStream(format.version);
    const bool counts = format.version >= DrawingVersion::V2004;
    const auto number = static_cast<qint16>(classes.nextNumber());

    BitWriter data;
    BitWriter text;
    data.bitShort(number);
    data.bitShort(0); // proxies may do nothing
    for (const char* name : {"ObjectDBX Classes", "AcDbDictionaryVar", "DICTIONARYVAR"})
        (apart ? text : data).append(Spelling::text(format, QString::fromLatin1(name)));
    data.bit(false);
    data.bitShort(kObjectClass);
    if (counts) {
        for (const qint32 value : {1, kReleaseOfClass, 0, 0, 0})
            data.bitLong(value);
    }

    RecordPatch patch(section);
    if (counts) {
        BitWriter highest;
        highest.bitShort(number);
        patch.replace(Stream::Data, classes.highestAt(), highest);
    }
    // What filled up the last byte goes.
    patch.replace(Stream::Data, {classes.dataEnd(), section.layout().dataEnd}, data);
    if (apart)
        patch.replace(Stream::Text, {classes.textEnd(), classes.textEnd()}, text);
    return SectionStreams::withBody(section, source.file().section(DwgSection::Classes),
                                    patch.body());
}
