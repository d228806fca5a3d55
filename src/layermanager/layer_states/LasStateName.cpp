#include "layermanager/layer_states/LasStateName.h"

#include "sdk/CLayerStateUtility.h"

#include <QFile>

QString stateNameInLas(const QString& text)
{
    constexpr qsizetype kPastDictionary = 20;
    const qsizetype dictionary = text.indexOf(QLatin1String("LAYERSTATEDICTIONARY"));
    if (dictionary < 0)
        return {};
    const qsizetype state = text.indexOf(QLatin1String("LAYERSTATE"), dictionary + kPastDictionary);
    if (state < 0)
        return {};
    // The line with the code of the name is skipped, whatever it says.
    const qsizetype codeLine = text.indexOf(QLatin1Char('\n'), state);
    const qsizetype nameLine = codeLine < 0 ? -1 : text.indexOf(QLatin1Char('\n'), codeLine + 1);
    if (nameLine < 0)
        return {};
    const qsizetype end = text.indexOf(QLatin1Char('\n'), nameLine + 1);
    QString name = text.mid(nameLine + 1, end < 0 ? -1 : end - nameLine - 1);
    if (name.endsWith(QLatin1Char('\r')))
        name.chop(1);
    return CLayerStateUtility::LasFileName(name).trimmed();
}

QString readStateName(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QByteArray bytes = file.read(CLayerStateUtility::kLargestLasFile + 1);
    if (bytes.isEmpty() || bytes.size() > CLayerStateUtility::kLargestLasFile)
        return {};
    return stateNameInLas(CLayerStateUtility::LasFileText(bytes));
}
