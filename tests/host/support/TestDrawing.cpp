#include "host/support/TestDrawing.h"

#include "host/resources/HostResources.h"
#include "io/DrawingFile.h"
#include "support/TestFailure.h"

#include <QDir>
#include <QFile>

namespace {
QByteArray group(int code, const QByteArray& value)
{
    return QByteArray::number(code).rightJustified(3) + '\n' + value + '\n';
}

QByteArray group(int code, int value)
{
    return group(code, QByteArray::number(value));
}

void insertBefore(QByteArray& text, const QByteArray& mark, const QByteArray& part,
                  const QByteArray& after)
{
    const qsizetype at = text.indexOf(mark, text.indexOf(after));
    if (at < 0)
        reportTestFailure(QStringLiteral("The new drawing has no such place."));
    text.insert(at, part);
}
} // namespace

TestDrawing& TestDrawing::add(const Layer& layer)
{
    ++m_layerCount;
    m_layers += group(0, "LAYER") + group(5, nextHandle()) + group(330, "2")
        + group(100, "AcDbSymbolTableRecord") + group(100, "AcDbLayerTableRecord")
        + group(2, layer.name) + group(70, layer.flags) + group(62, layer.color)
        + group(6, "Continuous");
    if (!layer.plots)
        m_layers += group(290, 0);
    m_layers += group(370, layer.lineweight) + group(390, "F") + group(347, "2D");
    if (!layer.description.isEmpty()) {
        m_layers +=
            group(1001, "AcAecLayerStandard") + group(1000, "") + group(1000, layer.description);
    }
    return *this;
}

TestDrawing& TestDrawing::addLine(const QByteArray& layerName)
{
    m_entities += group(0, "LINE") + group(5, nextHandle()) + group(330, "1F")
        + group(100, "AcDbEntity") + group(8, layerName) + group(100, "AcDbLine") + group(10, 0)
        + group(20, 0) + group(30, 0) + group(11, 100) + group(21, 50) + group(31, 0);
    return *this;
}

TestDrawing& TestDrawing::append(const QByteArray& type, const QByteArray& space,
                                 const QByteArray& words)
{
    m_entities +=
        group(0, type) + group(5, nextHandle()) + group(330, space) + group(100, "AcDbEntity");
    for (const QByteArray& word : words.split(' ')) {
        const qsizetype equals = word.indexOf('=');
        QByteArray value = word.mid(equals + 1);
        m_entities += group(word.left(equals).toInt(), value.replace('~', ' '));
    }
    return *this;
}

TestDrawing& TestDrawing::addEntity(const QByteArray& type, const QByteArray& layerName,
                                    const QByteArray& words)
{
    return append(type, "1F", "8=" + layerName + ' ' + words);
}

TestDrawing& TestDrawing::addViewport(int x, int y)
{
    ++m_viewportCount;
    const QByteArray number = QByteArray::number(m_viewportCount);
    return append("VIEWPORT", "1B",
                  "67=1 8=0 100=AcDbViewport 10=" + QByteArray::number(x) + " 20="
                      + QByteArray::number(y) + " 30=0 40=60 41=60 68=" + number + " 69=" + number
                      + " 12=100 22=100 16=0 26=0 36=1 17=0 27=0 37=0 45=30 51=0 90=0");
}

QByteArray TestDrawing::bytes() const
{
    QByteArray text = newDrawingTemplate();
    insertBefore(text, group(0, "ENDTAB"), m_layers, group(100, "AcDbLayerTableRecord"));
    insertBefore(text, group(0, "ENDSEC"), m_entities, group(2, "ENTITIES"));
    text.replace(group(9, "$HANDSEED") + group(5, "60"), group(9, "$HANDSEED") + group(5, "FFFF"));
    return text;
}

std::unique_ptr<OdDbDatabase> TestDrawing::read() const
{
    return readDrawing(bytes(), QStringLiteral("test drawing"));
}

QString TestDrawing::writeTo(const QString& folder, const QString& name) const
{
    const QString path = QDir(folder).filePath(name);
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes()) < 0)
        reportTestFailure(QStringLiteral("%1 cannot be written.").arg(path));
    return path;
}
