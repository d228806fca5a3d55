#include "RawLayers.h"

#include <QRegularExpression>

#include <cmath>

RawLayers::RawLayers(const QByteArray& text)
{
    const QList<QByteArray> lines = text.split('\n');
    Record record;
    for (qsizetype i = 0; i + 1 < lines.size(); i += 2) {
        const int code = lines[i].trimmed().toInt();
        QByteArray value = lines[i + 1];
        if (value.endsWith('\r'))
            value.chop(1);
        if (code == 0) {
            take(record);
            record = {QString::fromUtf8(value), {}};
        } else {
            record.groups.append({code, QString::fromUtf8(value)});
        }
    }
}

void RawLayers::take(const Record& record)
{
    if (record.type == QStringLiteral("LAYER")) {
        Layer layer;
        for (const auto& [code, value] : record.groups) {
            if (!layer.contains(code))
                layer.insert(code, value);
        }
        m_layers << layer;
    }
    if (record.type != QStringLiteral("XRECORD"))
        return;
    Filter filter;
    bool isFilter = false;
    for (const auto& [code, value] : record.groups) {
        if (code == 1 && value.startsWith(QStringLiteral("AcLyLayer"))) {
            isFilter = true;
            filter.isGroup = value == QStringLiteral("AcLyLayerGroup");
        } else if (isFilter && code == 300) {
            filter.name = value;
        } else if (isFilter && code == 301) {
            filter.expression = value;
        } else if (isFilter && code == 330) {
            filter.members << value;
        }
    }
    if (isFilter)
        m_filters << filter;
}

std::optional<bool> RawLayers::meets(const Layer& layer, const QString& criterion)
{
    static const QRegularExpression form(
        QStringLiteral("^[( ]*([A-Z]+)\\s*==\\s*\"([^\"]*)\"[) ]*$"));
    const auto match = form.match(criterion);
    if (!match.hasMatch())
        return std::nullopt;
    const QString key = match.captured(1);
    const QString value = match.captured(2);
    const bool isTrue = value.compare(QStringLiteral("true"), Qt::CaseInsensitive) == 0;
    const int color = layer.value(62).trimmed().toInt();
    if (key == QStringLiteral("NAME")) {
        const QString pattern = QRegularExpression::wildcardToRegularExpression(value).replace(
            QStringLiteral("[^/]"), QStringLiteral("."));
        return QRegularExpression(pattern, QRegularExpression::CaseInsensitiveOption)
            .match(layer.value(2))
            .hasMatch();
    }
    if (key == QStringLiteral("OFF"))
        return (color < 0) == isTrue;
    if (key == QStringLiteral("LOCKED"))
        return ((layer.value(70).trimmed().toInt() & 4) != 0) == isTrue;
    if (key == QStringLiteral("PLOTTABLE"))
        return (layer.value(290, QStringLiteral("1")).trimmed() != QStringLiteral("0")) == isTrue;
    if (key == QStringLiteral("COLOR"))
        return !layer.contains(420) && std::abs(color) == value.toInt();
    if (key == QStringLiteral("LINEWEIGHT"))
        return layer.value(370).trimmed().toInt()
            == std::lround(value.left(value.indexOf(QLatin1Char(' '))).toDouble() * 100);
    return std::nullopt;
}

std::optional<QStringList> RawLayers::layersOf(const Filter& filter) const
{
    QStringList names;
    static const QRegularExpression orWord(QStringLiteral("\\s+or\\s+"),
                                           QRegularExpression::CaseInsensitiveOption);
    const QStringList criteria = filter.expression.split(orWord);
    for (const Layer& layer : m_layers) {
        bool isIn = filter.isGroup && filter.members.contains(layer.value(5));
        for (const QString& criterion : criteria) {
            if (filter.isGroup)
                break;
            const auto met = meets(layer, criterion);
            if (!met)
                return std::nullopt;
            isIn = isIn || *met;
        }
        if (isIn)
            names << layer.value(2);
    }
    names.sort();
    return names;
}
