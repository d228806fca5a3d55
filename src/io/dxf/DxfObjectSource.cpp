#include "io/dxf/DxfObjectSource.h"

#include "database/ObjectStore.h"
#include "database/OdDbBlockTableRecord.h"
#include "database/OdDbDatabase.h"
#include "database/OdDbDictionary.h"
#include "database/OdDbDictionaryVar.h"
#include "database/OdDbEntity.h"
#include "database/OdDbLayerTableRecord.h"
#include "database/OdDbLayout.h"
#include "database/OdDbLinetypeTableRecord.h"
#include "database/OdDbNamedRecord.h"
#include "database/OdDbXrecord.h"
#include "io/dxf/DictionaryGroups.h"
#include "io/dxf/GroupCode.h"
#include "io/dxf/LayerExtras.h"
#include "io/dxf/LayerGroups.h"

#include <algorithm>

namespace {

constexpr int kDependentFlag = 16;

/// In drawings up to R14 the layers frozen in a viewport are names in its extended data, inside the
/// second pair of braces.
void readMviewLayer(const DxfCursor& cursor, int& braces, const DxfObjectSource& source,
                    ViewportState& state)
{
    if (cursor.code() == 1002)
        braces += cursor.bytes().trimmed() == "{" ? 1 : -1;
    else if (cursor.code() == 1003 && braces == 2) {
        if (const OdDbObjectId layer = source.layerOfFile(cursor.bytes()); !layer.isNull())
            state.frozenLayers.push_back(layer);
    }
}

} // namespace

DxfObjectSource::DxfObjectSource(std::shared_ptr<const FileImage> image, OdDbDatabase& database,
                                 const DxfText& text, DxfVersion version, DxfLandmarks landmarks)
    : m_image(std::move(image))
    , m_database(database)
    , m_text(text)
    , m_version(version)
    , m_landmarks(std::move(landmarks))
{ }

std::unique_ptr<GroupCursor> DxfObjectSource::makeCursor() const
{
    return std::make_unique<DxfCursor>(m_image, m_database.store(), m_text, m_landmarks.codeBytes);
}

DxfCursor DxfObjectSource::cursor(quint32 slot) const
{
    DxfCursor cursor(m_image, m_database.store(), m_text, m_landmarks.codeBytes);
    cursor.open(slot);
    return cursor;
}

OdDbObjectId DxfObjectSource::id(quint64 handle) const
{
    return m_database.getOdDbObjectId(OdDbHandle(handle));
}

void DxfObjectSource::read(OdDbObject& object) const
{
    const quint32 slot = object.objectId().slot();
    switch (object.kind()) {
    case OdDbObjectKind::Layer:
        static_cast<OdDbLayerTableRecord&>(object).stateForLoading() = readLayer(slot);
        break;
    case OdDbObjectKind::BlockTableRecord:
        static_cast<OdDbBlockTableRecord&>(object).stateForLoading() = readBlock(slot);
        break;
    case OdDbObjectKind::Linetype:
        static_cast<OdDbLinetypeTableRecord&>(object).stateForLoading() = readLinetype(slot);
        break;
    case OdDbObjectKind::Dictionary:
        static_cast<OdDbDictionary&>(object).stateForLoading() = readDictionary(slot);
        break;
    case OdDbObjectKind::Xrecord:
        static_cast<OdDbXrecord&>(object).stateForLoading() = readXrecord(slot);
        break;
    case OdDbObjectKind::DictionaryVar:
        static_cast<OdDbDictionaryVar&>(object).stateForLoading() = readDictionaryVar(slot);
        break;
    case OdDbObjectKind::Layout:
        static_cast<OdDbLayout&>(object).stateForLoading() = readLayout(slot);
        break;
    case OdDbObjectKind::Viewport:
        static_cast<OdDbViewport&>(object).stateForLoading() = readViewport(slot);
        break;
    case OdDbObjectKind::SymbolTableRecord: {
        auto& state = static_cast<OdDbNamedRecord&>(object).stateForLoading();
        bool named = false; // where a record has two names, the first counts
        for (DxfCursor groups = cursor(slot); groups.next();) {
            if (groups.code() == 2 && groups.isOwn() && !std::exchange(named, true))
                state.name = groups.text();
            else if (groups.code() == 70)
                state.dependent = (groups.integer() & kDependentFlag) != 0;
        }
        break;
    }
    default:
        break;
    }
}

quint32 DxfObjectSource::extensionDictionary(quint32 slot) const
{
    bool inExtension = false;
    for (DxfCursor groups = cursor(slot); groups.next() && groups.code() < 1000;) {
        if (groups.code() == 102)
            inExtension = groups.bytes().trimmed() == "{ACAD_XDICTIONARY";
        else if (inExtension && (groups.code() == 360 || groups.code() == 350))
            return id(groups.handle()).slot();
    }
    return OdDbObjectId::kNoSlot;
}

LayerState DxfObjectSource::readLayer(quint32 slot) const
{
    LayerState layer;
    layer.linetype = m_database.table(OdDbTableKind::Linetype).getAt(QStringLiteral("Continuous"));
    LayerGroups::Reader reader(m_database, layer);
    bool inExtension = false;
    quint32 extras = OdDbObjectId::kNoSlot;
    for (DxfCursor groups = cursor(slot); groups.next();) {
        if (groups.code() == 102)
            inExtension = groups.bytes().trimmed() == "{ACAD_XDICTIONARY";
        else if (inExtension && (groups.code() == 360 || groups.code() == 350))
            extras = id(groups.handle()).slot();
        reader.take(groups);
    }
    if (extras != OdDbObjectId::kNoSlot)
        readLayerExtras(extras, layer);
    return layer;
}

void DxfObjectSource::readLayerExtras(quint32 dictionarySlot, LayerState& layer) const
{
    const ObjectStore& store = m_database.store();
    if (store.type(dictionarySlot) != RecordType::Dictionary)
        return;
    for (const DictionaryEntry& entry : readDictionary(dictionarySlot).entries) {
        if (!entry.value.isNull() && store.type(entry.value.slot()) == RecordType::Xrecord)
            LayerExtras::read(m_database, entry.key, readXrecord(entry.value.slot()).groups, layer);
    }
}

BlockState DxfObjectSource::readBlock(quint32 slot) const
{
    BlockState state;
    bool named = false;
    for (DxfCursor groups = cursor(slot); groups.next();) {
        if (groups.code() == 2 && groups.isOwn() && !std::exchange(named, true))
            state.name = groups.text();
        else if (groups.code() == 340)
            state.layout = id(groups.handle());
    }
    return state;
}

LinetypeState DxfObjectSource::readLinetype(quint32 slot) const
{
    LinetypeState state;
    bool named = false;
    for (DxfCursor groups = cursor(slot); groups.next();) {
        switch (groups.code()) {
        case 2:
            if (groups.isOwn() && !std::exchange(named, true))
                state.name = groups.text();
            break;
        case 3:
            state.description = groups.text();
            break;
        case 49:
            state.dashes.push_back(groups.real());
            break;
        case 70:
            state.dependent = (groups.integer() & kDependentFlag) != 0;
            break;
        default:
            break;
        }
    }
    return state;
}

DictionaryState DxfObjectSource::readDictionary(quint32 slot) const
{
    DictionaryState state;
    QString key;
    bool hasKey = false;
    for (DxfCursor groups = cursor(slot); groups.next();) {
        if (groups.code() >= 1000) {
            appendCanonical(groups, state.xData);
        } else if (groups.code() == 3) {
            key = groups.text();
            hasKey = true;
        } else if (groups.code() == 280) {
            state.treatElementsAsHard = groups.integer() == 1;
        } else if (hasKey && DictionaryGroups::isValue(groups.code())) {
            state.entries.push_back({key, id(groups.handle())});
            hasKey = false;
        }
    }
    return state;
}

XrecordState DxfObjectSource::readXrecord(quint32 slot) const
{
    XrecordState state;
    bool inData = false;
    bool atStart = true; // the cloning flag belongs to the record, not to its data
    for (DxfCursor groups = cursor(slot); groups.next();) {
        if (groups.code() >= 1000)
            appendCanonical(groups, state.xData);
        else if (inData && !(std::exchange(atStart, false) && groups.code() == 280))
            appendCanonical(groups, state.groups);
        else if (!inData && groups.code() == 100)
            inData = groups.bytes().trimmed() == "AcDbXrecord";
    }
    return state;
}

DictionaryVarState DxfObjectSource::readDictionaryVar(quint32 slot) const
{
    DictionaryVarState state;
    for (DxfCursor groups = cursor(slot); groups.next();) {
        if (groups.code() == 1)
            state.value = groups.text();
    }
    return state;
}

void DxfObjectSource::appendCanonical(const DxfCursor& group, GroupList& groups) const
{
    const QByteArrayView bytes = group.bytes();
    if (groupKind(group.code()) != GroupKind::Text)
        return groups.append(group.code(), bytes.trimmed());
    const bool plain = std::all_of(bytes.begin(), bytes.end(),
                                   [](char c) { return c > 0 && c != '\\' && c != '^'; });
    if (plain)
        groups.append(group.code(), bytes);
    else
        groups.append(group.code(), group.text().toUtf8());
}

LayoutState DxfObjectSource::readLayout(quint32 slot) const
{
    LayoutState state;
    bool inPlotSettings = false;
    bool inLayout = false;
    for (DxfCursor groups = cursor(slot); groups.next();) {
        if (groups.code() == 100) {
            inPlotSettings = groups.bytes().trimmed() == "AcDbPlotSettings";
            inLayout = groups.bytes().trimmed() == "AcDbLayout";
        } else if (inPlotSettings && groups.code() == 7) {
            state.styleSheet = groups.text();
        } else if (inLayout && groups.code() == 1) {
            state.name = groups.text();
        } else if (inLayout && groups.code() == 71) {
            state.tabOrder = static_cast<int>(groups.integer());
        } else if (inLayout && groups.code() == 330) {
            state.block = id(groups.handle());
        } else if (inLayout && groups.code() == 331) {
            state.lastActiveViewport = id(groups.handle());
        }
    }
    return state;
}

ViewportState DxfObjectSource::readViewport(quint32 slot) const
{
    ViewportState state;
    int braces = 0;
    bool ownData = false;
    for (DxfCursor groups = cursor(slot); groups.next();) {
        switch (groups.code()) {
        case 100:
            ownData = groups.bytes().trimmed() == "AcDbViewport";
            break;
        case 68:
            state.status = static_cast<int>(groups.integer());
            break;
        case 69:
            state.number = static_cast<int>(groups.integer());
            break;
        case 331:
        case 341: // drawings of version 2000
            if (const OdDbObjectId layer = id(groups.handle());
                ownData && layer.openObject<OdDbLayerTableRecord>())
                state.frozenLayers.push_back(layer);
            break;
        default:
            if (groups.code() >= 1000)
                readMviewLayer(groups, braces, *this, state);
            break;
        }
    }
    return state;
}
