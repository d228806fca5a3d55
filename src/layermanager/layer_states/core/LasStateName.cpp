#include "layermanager/layer_states/core/LasStateName.h"

#include "sdk/CLayerStateUtility.h"

#include <QFile>

namespace {

constexpr QLatin1String kDictionary("LAYERSTATEDICTIONARY");
constexpr QLatin1String kState("LAYERSTATE");

/// Whether it is worth while to decode a file: nonsense may be long.
bool mayHoldName(const QByteArray& bytes)
{
    if (bytes.startsWith("\xFF\xFE") || bytes.startsWith("\xFE\xFF"))
        return true; // two or four bytes a character
    const qsizetype dictionary = bytes.indexOf(kDictionary.data());
    return dictionary >= 0 && bytes.indexOf(kState.data(), dictionary + kDictionary.size()) >= 0;
}

} // namespace

QString stateNameInLas(const QString& text)
{
    const qsizetype dictionary = text.indexOf(kDictionary);
    if (dictionary < 0)
        return {};
    const qsizetype state = text.indexOf(kState, dictionary + kDictionary.size());
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
    if (bytes.size() > CLayerStateUtility::kLargestLasFile || !mayHoldName(bytes))
        return {};
    return stateNameInLas(CLayerStateUtility::LasFileText(bytes));
}
