#include "database/states/stored/StoredLayerWriter.h"

#include "database/drawing/OdDbDatabase.h"
#include "database/states/stored/StoredLayerReader.h"
#include "database/tables/OdDbLinetypeTableRecord.h"

#include <set>

namespace {

QByteArray hex(OdDbObjectId id)
{
    return QByteArray::number(id.getHandle().value(), 16).toUpper();
}

/// 32 bits as the drawing has them: with a sign.
qint64 asSigned(quint32 bits)
{
    return static_cast<qint32>(bits);
}

quint32 storedFlags(const LayerInfoInLS& layer)
{
    return layer.flags ^ LayerInfoInLS::kOn;
}

bool hasPackedColor(const LayerInfoInLS& layer)
{
    return layer.packedColor && layer.packedColorIndex == layer.color;
}

QString linetypeName(const LayerInfoInLS& layer)
{
    const auto linetype = layer.linetypeId.openObject<OdDbLinetypeTableRecord>();
    return linetype ? linetype->getName() : QString();
}

/// Writes one entry over the groups it was read from.
class EditedEntry
{
public:
    EditedEntry(GroupList& out, const LayerInfoInLS& layer)
        : m_out(out)
        , m_layer(layer)
    {
        StoredLayerReader(layer.stored).next(m_was);
    }

    void write()
    {
        for (const GroupList::Group group : m_layer.stored) {
            m_done.insert(group.code);
            if (!replace(group))
                m_out.append(group);
        }
        appendMissing();
    }

private:
    /// Writes the new value of a group that was edited, or leaves the group out; false when the
    /// group stays as it is.
    bool replace(const GroupList::Group& group)
    {
        switch (group.code) {
        case StateGroup::kLayerHandle:
            return put(group,
                       m_layer.layerId.isNull() || m_was.layerHandle == handle(m_layer.layerId),
                       hex(m_layer.layerId));
        case StateGroup::kFlags:
            return put(group, m_was.flags == storedFlags(m_layer), number(storedFlags(m_layer)));
        case StateGroup::kColorIndex:
            return put(group, m_was.colorIndex == m_layer.color, number(m_layer.color));
        case StateGroup::kLineWeight:
            return put(group, m_was.lineWeight == m_layer.lineWeight, number(m_layer.lineWeight));
        case StateGroup::kLinetypeHandle:
            return put(group,
                       m_layer.linetypeId.isNull()
                           || m_was.linetypeHandle == handle(m_layer.linetypeId),
                       hex(m_layer.linetypeId));
        case StateGroup::kLinetypeName:
            return putLinetypeName(group);
        case StateGroup::kPlotStyle:
        case StateGroup::kPlotStyleInFile:
            return put(group, QString::fromUtf8(m_was.plotStyle) == m_layer.plotStyleName,
                       m_layer.plotStyleName.toUtf8());
        case StateGroup::kTransparency:
            return put(group, m_was.transparency == m_layer.transparency,
                       number(m_layer.transparency.value_or(0)));
        case StateGroup::kPackedColor:
        case StateGroup::kBookName:
            return putColor(group);
        default:
            return false;
        }
    }

    static quint64 handle(OdDbObjectId id) { return id.getHandle().value(); }
    static QByteArray number(quint32 bits) { return QByteArray::number(asSigned(bits)); }
    static QByteArray number(qint32 value) { return QByteArray::number(value); }

    bool put(const GroupList::Group& group, bool unchanged, const QByteArray& value)
    {
        if (!unchanged)
            m_out.append(group.code, value);
        return !unchanged;
    }

    bool putLinetypeName(const GroupList::Group& group)
    {
        const QString name = linetypeName(m_layer);
        const bool unchanged = name.isEmpty()
            || name.compare(QString::fromUtf8(group.value), Qt::CaseInsensitive) == 0;
        return put(group, unchanged, name.toUtf8());
    }

    /// A packed colour that no longer goes with the index leaves, unless it only repeats the index.
    bool putColor(const GroupList::Group& group)
    {
        if (hasPackedColor(m_layer)) {
            if (group.code == StateGroup::kPackedColor)
                return put(group, m_was.packedColor == m_layer.packedColor,
                           number(*m_layer.packedColor));
            const bool dropped = m_layer.bookName.isEmpty() && !m_was.bookName.isEmpty();
            return dropped
                || put(group, QString::fromUtf8(m_was.bookName) == m_layer.bookName,
                       m_layer.bookName.toUtf8());
        }
        const bool repeatsIndex =
            m_was.packedColor && *m_was.packedColor >> 24 == OdCmColor::kByACI;
        if (group.code == StateGroup::kPackedColor && repeatsIndex)
            m_out.append(group.code, number(OdCmColor::fromIndex(m_layer.color).color()));
        return true;
    }

    /// What the entry did not have and has now.
    void appendMissing()
    {
        const auto missing = [&](int code) { return !m_done.contains(code); };
        const LayerInfoInLS blank;
        if (missing(StateGroup::kFlags) && m_layer.flags != blank.flags)
            m_out.append(StateGroup::kFlags, number(storedFlags(m_layer)));
        if (missing(StateGroup::kColorIndex) && m_layer.color != blank.color)
            m_out.append(StateGroup::kColorIndex, number(m_layer.color));
        if (missing(StateGroup::kLineWeight) && m_layer.lineWeight != blank.lineWeight)
            m_out.append(StateGroup::kLineWeight, number(m_layer.lineWeight));
        if (missing(StateGroup::kLinetypeHandle) && missing(StateGroup::kLinetypeName)
            && !m_layer.linetypeId.isNull())
            m_out.append(StateGroup::kLinetypeHandle, hex(m_layer.linetypeId));
        if (missing(StateGroup::kPlotStyle) && missing(StateGroup::kPlotStyleInFile)
            && !m_layer.plotStyleName.isEmpty())
            m_out.append(StateGroup::kPlotStyle, m_layer.plotStyleName.toUtf8());
        if (missing(StateGroup::kTransparency) && m_layer.transparency)
            m_out.append(StateGroup::kTransparency, number(*m_layer.transparency));
        if (missing(StateGroup::kPackedColor) && hasPackedColor(m_layer))
            m_out.append(StateGroup::kPackedColor, number(*m_layer.packedColor));
        if (missing(StateGroup::kBookName) && hasPackedColor(m_layer)
            && !m_layer.bookName.isEmpty())
            m_out.append(StateGroup::kBookName, m_layer.bookName.toUtf8());
    }

    GroupList& m_out;
    const LayerInfoInLS& m_layer;
    StoredLayer m_was;
    std::set<int> m_done; ///< codes that the entry had
};

void appendNewLayer(GroupList& groups, const LayerInfoInLS& layer)
{
    if (!layer.layerId.isNull())
        groups.append(StateGroup::kLayerHandle, hex(layer.layerId));
    else
        groups.append(StateGroup::kLayerName, layer.name.toUtf8());
    groups.append(StateGroup::kFlags, asSigned(storedFlags(layer)));
    groups.append(StateGroup::kColorIndex, qint64(layer.color));
    groups.append(StateGroup::kLineWeight, qint64(layer.lineWeight));
    if (!layer.linetypeId.isNull())
        groups.append(StateGroup::kLinetypeHandle, hex(layer.linetypeId));
    groups.append(StateGroup::kPlotStyle, layer.plotStyleName.toUtf8());
    if (layer.transparency)
        groups.append(StateGroup::kTransparency, asSigned(*layer.transparency));
    if (!hasPackedColor(layer))
        return;
    groups.append(StateGroup::kPackedColor, asSigned(*layer.packedColor));
    if (!layer.bookName.isEmpty())
        groups.append(StateGroup::kBookName, layer.bookName.toUtf8());
}

} // namespace

void appendStoredLayer(GroupList& groups, const LayerInfoInLS& layer)
{
    if (layer.stored.isEmpty())
        appendNewLayer(groups, layer);
    else
        EditedEntry(groups, layer).write();
}
