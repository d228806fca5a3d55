#include "io/las/LasWriter.h"

#include "database/values/OdError.h"
#include "io/dxf/text/GroupCode.h"
#include "io/las/LasText.h"

#include <QCoreApplication>
#include <QDir>
#include <QLocale>
#include <QSaveFile>

namespace {

constexpr int kCodeColumns = 3;

QString tr(const char* text)
{
    return QCoreApplication::translate("LasWriter", text);
}

void append(QByteArray& bytes, int code, QByteArrayView value)
{
    bytes += QByteArray::number(code).rightJustified(kCodeColumns);
    bytes += "\r\n";
    bytes.append(value.data(), value.size());
    bytes += "\r\n";
}

void append(QByteArray& bytes, const PortableLayerState& state)
{
    append(bytes, 0, "LAYERSTATE");
    append(bytes, 1, LasText::plainName(state.name));
    for (const GroupList::Group group : state.groups) {
        if (groupKind(group.code) == GroupKind::Text)
            append(bytes, group.code, LasText::escaped(QString::fromUtf8(group.value)));
        else
            append(bytes, group.code, group.value);
    }
}

void append(QByteArray& bytes, const LinetypeState& linetype)
{
    append(bytes, 0, "LINETYPE");
    append(bytes, 2, LasText::escaped(linetype.name));
    append(bytes, 3, LasText::escaped(linetype.description));
    for (const double dash : linetype.dashes)
        append(bytes, 49, QByteArray::number(dash, 'g', QLocale::FloatingPointShortest));
}

} // namespace

QByteArray LasWriter::bytes(const std::vector<PortableLayerState>& states)
{
    QByteArray bytes;
    append(bytes, 0, "LAYERSTATEDICTIONARY");
    for (const PortableLayerState& state : states)
        append(bytes, state);
    return bytes;
}

QByteArray LasWriter::bytesWithLinetypes(const std::vector<PortableLayerState>& states)
{
    QByteArray bytes;
    append(bytes, 0, "LAYERSTATEDICTIONARY");
    for (const PortableLayerState& state : states) {
        append(bytes, state);
        for (const LinetypeState& linetype : state.linetypes)
            append(bytes, linetype);
    }
    return bytes;
}

void LasWriter::writeFile(const std::vector<PortableLayerState>& states, const QString& path)
{
    const QString shown = QDir::toNativeSeparators(path);
    const QByteArray contents = bytes(states);
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(contents) != contents.size()
        || !file.commit())
        throw OdError_FileAccess(OdResult::CantWriteFile,
                                 tr("%1 cannot be written: %2. A file that was there is as it was.")
                                     .arg(shown, file.errorString()));
}
