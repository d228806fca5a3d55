#include "database/drawing/OdDbDatabase.h"
#include "database/store/NameIndex.h"
#include "database/store/ObjectStore.h"
#include "database/tables/OdDbLayerTable.h"
#include "database/tables/OdDbLayerTableRecord.h"
#include "io/dxf/read/DxfObjectSource.h"
#include "io/dxf/text/GroupCode.h"

#include <QCoreApplication>

namespace {

constexpr int kMaterial = 347;
constexpr int kVisualStyle = 348;

QString tr(const char* text)
{
    return QCoreApplication::translate("DxfFileForm", text);
}

} // namespace

GroupSpelling DxfObjectSource::spelling(quint32 slot) const
{
    if (isBinary())
        return GroupSpelling::binary(m_landmarks.codeBytes);
    const ObjectStore& store = database().store();
    return GroupSpelling::sample(m_image->view(store.begin(slot), store.end(slot)));
}

GroupSpelling DxfObjectSource::spelling() const
{
    if (isBinary())
        return GroupSpelling::binary(m_landmarks.codeBytes);
    const ObjectStore& store = database().store();
    const OdDbObjectId zero = database().getLayerZeroId();
    const bool inFile = !zero.isNull() && zero.slot() < store.fileRecords();
    return inFile ? spelling(zero.slot()) : GroupSpelling::sample(m_image->view());
}

QByteArray DxfObjectSource::fileValue(int code, QByteArrayView canonical) const
{
    return groupKind(code) == GroupKind::Text ? m_text.encode(QString::fromUtf8(canonical))
                                              : canonical.toByteArray();
}

QByteArray DxfObjectSource::encodedName(const QString& name) const
{
    const QByteArray encoded = m_text.encode(name);
    // Names of these versions know no escapes.
    const bool needsEscape = m_version < DrawingVersion::V2000 && encoded.contains("\\U+");
    if (needsEscape || !name.isValidUtf16())
        throw OdError(OdResult::InvalidKey,
                      tr("The name \"%1\" has characters that the drawing's encoding cannot hold; "
                         "rename it before saving.")
                          .arg(name));
    return encoded;
}

std::vector<std::pair<int, QByteArray>> DxfObjectSource::layerZeroExtras() const
{
    std::vector<std::pair<int, QByteArray>> extras;
    const OdDbObjectId zero = database().getLayerZeroId();
    if (zero.isNull() || zero.slot() >= database().store().fileRecords())
        return extras;
    for (DxfCursor groups = cursor(zero.slot()); groups.next() && groups.code() < 1000;) {
        if (groups.code() == kMaterial || groups.code() == kVisualStyle)
            extras.emplace_back(groups.code(), groups.bytes().trimmed().toByteArray());
    }
    return extras;
}

QString DxfObjectSource::nameInFile(quint32 slot) const
{
    for (DxfCursor groups = cursor(slot); groups.next();) {
        if (groups.code() == 2 && groups.isOwn())
            return groups.text();
    }
    return {};
}

OdDbObjectId DxfObjectSource::layerOfFile(QByteArrayView name) const
{
    if (m_layersOfFile.isEmpty()) {
        for (const quint32 slot : database().layerTable().slotsInOrder()) {
            const QString known =
                slot < database().store().fileRecords() ? nameInFile(slot) : missingName(slot);
            const QByteArray key = NameIndex::fold(known);
            if (!known.isEmpty() && !m_layersOfFile.contains(key))
                m_layersOfFile.insert(key, slot);
        }
    }
    const auto found = m_layersOfFile.constFind(NameIndex::fold(m_text.decode(name)));
    return found == m_layersOfFile.constEnd() ? OdDbObjectId() : database().idOfSlot(*found);
}

LayerState DxfObjectSource::missingLayer(quint32 slot) const
{
    LayerState state;
    state.name = missingName(slot);
    if (!state.name.isEmpty())
        state.linetype = database().getLinetypeContinuousId();
    return state;
}
