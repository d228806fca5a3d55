#pragma once

#include <QByteArray>
#include <QList>
#include <QMap>
#include <QString>
#include <QStringList>

#include <optional>

/// Layers and filters of a text drawing, straight from its groups and by no code of the program:
/// what the program says is compared with this. Knows no more than it needs.
class RawLayers
{
public:
    struct Filter
    {
        QString name;
        bool isGroup;
        QStringList members; ///< handles, as written
        QString expression;
    };

    explicit RawLayers(const QByteArray& text);

    const QList<Filter>& filters() const { return m_filters; }
    /// Names of a filter's layers, sorted; nothing for an expression in a form that is not known
    /// here: KEY=="value" with NAME, COLOR, OFF, LOCKED, PLOTTABLE or LINEWEIGHT, joined with OR.
    std::optional<QStringList> layersOf(const Filter& filter) const;

private:
    /// Group code to value; of several, the first.
    using Layer = QMap<int, QString>;
    struct Record
    {
        QString type;
        QList<std::pair<int, QString>> groups;
    };

    void take(const Record& record);
    static std::optional<bool> meets(const Layer& layer, const QString& criterion);

    QList<Layer> m_layers;
    QList<Filter> m_filters;
};
