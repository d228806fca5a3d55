#include "host/canvas/support/CanvasDrawing.h"

namespace {

QByteArray tag(const QByteArray& code, const QByteArray& value)
{
    return code + '\n' + value + '\n';
}

QByteArray allTags(const QByteArray& lines)
{
    QByteArray result;
    for (const QByteArray& line : lines.split('\n')) {
        if (!line.trimmed().isEmpty())
            result += CanvasDrawing::tags(line.simplified());
    }
    return result;
}

const QByteArray kSpaces = CanvasDrawing::tags("BLOCK_RECORD 5=D3 2=*Model_Space")
    + CanvasDrawing::tags("BLOCK_RECORD 5=D4 2=*Paper_Space 340=D2");

QByteArray section(const QByteArray& name, const QByteArray& contents)
{
    return tag("0", "SECTION") + tag("2", name) + contents + tag("0", "ENDSEC");
}

QByteArray table(const QByteArray& name, const QByteArray& records)
{
    return tag("0", "TABLE") + tag("2", name) + tag("70", "1") + records + tag("0", "ENDTAB");
}

} // namespace

QByteArray CanvasDrawing::tags(const QByteArray& words)
{
    const QByteArrayList all = words.split(' ');
    QByteArray result = tag("0", all.front());
    for (qsizetype i = 1; i < all.size(); ++i) {
        const qsizetype equals = all[i].indexOf('=');
        result += tag(all[i].left(equals), all[i].mid(equals + 1).replace('~', ' '));
    }
    return result;
}

CanvasDrawing& CanvasDrawing::layer(const char* name, int colour, int flags, const char* handle)
{
    m_layers += tag("0", "LAYER");
    if (handle)
        m_layers += tag("5", handle);
    m_layers += tag("2", name) + tag("70", QByteArray::number(flags))
        + tag("62", QByteArray::number(colour)) + tag("6", "CONTINUOUS");
    return *this;
}

CanvasDrawing& CanvasDrawing::layerWith(const char* name, int colour, const QByteArray& words)
{
    m_layers += tags(QByteArray("LAYER 2=") + name + " 70=0 62=" + QByteArray::number(colour) + ' '
                     + words);
    return *this;
}

CanvasDrawing& CanvasDrawing::linetype(const char* name, const QByteArray& lengths,
                                       const QByteArray& words)
{
    const QByteArrayList all = lengths.split(' ');
    QByteArray record =
        QByteArray("LTYPE 2=") + name + " 70=0 3=x 72=65 73=" + QByteArray::number(all.size());
    for (const QByteArray& length : all)
        record += " 49=" + length;
    m_linetypes += tags(words.isEmpty() ? record : record + ' ' + words);
    return *this;
}

CanvasDrawing& CanvasDrawing::variable(const char* name, const QByteArray& word)
{
    const qsizetype equals = word.indexOf('=');
    m_header += tag("9", name) + tag(word.left(equals), word.mid(equals + 1));
    return *this;
}

CanvasDrawing& CanvasDrawing::textStyle(const char* words)
{
    m_styles += tags(QByteArray("STYLE ") + words);
    return *this;
}

CanvasDrawing& CanvasDrawing::block(const QByteArray& name, double x, double y,
                                    const QByteArray& entities)
{
    m_blocks += tag("0", "BLOCK") + tag("8", "0") + tag("2", name) + tag("70", "0")
        + tag("10", QByteArray::number(x)) + tag("20", QByteArray::number(y)) + tag("30", "0")
        + allTags(entities) + tag("0", "ENDBLK") + tag("8", "0");
    return *this;
}

CanvasDrawing& CanvasDrawing::add(const QByteArray& entities)
{
    m_entities += allTags(entities);
    return *this;
}

CanvasDrawing& CanvasDrawing::paper(const char* name, const QByteArray& words)
{
    m_objects = tags("DICTIONARY 5=D0 330=0 100=AcDbDictionary 3=ACAD_LAYOUT 350=D1")
        + tags(QByteArray("DICTIONARY 5=D1 330=D0 100=AcDbDictionary 3=") + name + " 350=D2")
        + tags("LAYOUT 5=D2 330=D1 100=AcDbPlotSettings " + words + " 100=AcDbLayout 1=" + name
               + " 70=0 71=1 330=D4");
    return *this;
}

QByteArray CanvasDrawing::bytes() const
{
    const QByteArray zero = tag("0", "LAYER") + tag("2", "0") + tag("70", "0") + tag("62", "7")
        + tag("6", "CONTINUOUS");
    return section("HEADER", tag("9", "$ACADVER") + tag("1", "AC1018") + m_header)
        + section("TABLES",
                  (m_linetypes.isEmpty() ? QByteArray() : table("LTYPE", m_linetypes))
                      + table("LAYER", m_layers.contains("\n2\n0\n") ? m_layers : zero + m_layers)
                      + table("STYLE", m_styles)
                      + (m_objects.isEmpty() ? QByteArray() : table("BLOCK_RECORD", kSpaces)))
        + section("BLOCKS", m_blocks) + section("ENTITIES", m_entities)
        + (m_objects.isEmpty() ? QByteArray() : section("OBJECTS", m_objects)) + tag("0", "EOF");
}
