#include "io/dxf/read/DxfRecordReader.h"

#include "database/drawing/OdDbDatabase.h"
#include "database/objects/OdDbDictionary.h"
#include "database/objects/OdDbDictionaryVar.h"
#include "database/objects/OdDbEntity.h"
#include "database/objects/OdDbLayout.h"
#include "database/objects/OdDbXrecord.h"
#include "database/store/ObjectStore.h"
#include "database/tables/OdDbBlockTableRecord.h"
#include "database/tables/OdDbLayerTableRecord.h"
#include "database/tables/OdDbLinetypeTableRecord.h"
#include "database/tables/OdDbNamedRecord.h"
#include "io/dxf/read/DictionaryGroups.h"
#include "io/dxf/read/DxfObjectSource.h"
#include "io/dxf/read/LayerGroups.h"
#include "io/dxf/text/GroupCode.h"

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

OdDbObjectId DxfRecordReader::object(const DxfCursor& group) const
{
    return m_source.database().getOdDbObjectId(OdDbHandle(group.handle()));
}

LayerState DxfRecordReader::layer(DxfCursor groups, OdDbObjectId& extension) const
{
    LayerState layer;
    layer.linetype = m_source.database().getLinetypeContinuousId();
    LayerGroups::Reader reader(m_source.database(), layer);
    bool inExtension = false;
    extension = {};
    while (groups.next()) {
        if (groups.code() == 102)
            inExtension = opensExtension(groups);
        else if (inExtension && (groups.code() == 360 || groups.code() == 350))
            extension = object(groups);
        reader.take(groups);
    }
    return layer;
}

NamedRecordState DxfRecordReader::namedRecord(DxfCursor groups) const
{
    NamedRecordState state;
    bool named = false; // where a record has two names, the first counts
    while (groups.next()) {
        if (groups.code() == 2 && groups.isOwn() && !std::exchange(named, true))
            state.name = groups.text();
        else if (groups.code() == 70)
            state.dependent = (groups.integer() & kDependentFlag) != 0;
    }
    return state;
}

QString DxfRecordReader::entityLayer(DxfCursor groups) const
{
    while (groups.next()) {
        if (groups.code() == 8)
            return groups.text();
    }
    return QStringLiteral("0");
}

BlockState DxfRecordReader::block(DxfCursor groups) const
{
    BlockState state;
    bool named = false;
    while (groups.next()) {
        if (groups.code() == 2 && groups.isOwn() && !std::exchange(named, true))
            state.name = groups.text();
        else if (groups.code() == 340)
            state.layout = object(groups);
    }
    return state;
}

LinetypeState DxfRecordReader::linetype(DxfCursor groups) const
{
    LinetypeState state;
    bool named = false;
    while (groups.next()) {
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

DictionaryState DxfRecordReader::dictionary(DxfCursor groups) const
{
    DictionaryState state;
    QString key;
    bool hasKey = false;
    while (groups.next()) {
        if (groups.code() >= 1000) {
            appendCanonical(groups, state.xData);
        } else if (groups.code() == 3) {
            key = groups.text();
            hasKey = true;
        } else if (groups.code() == 280) {
            state.treatElementsAsHard = groups.integer() == 1;
        } else if (hasKey && DictionaryGroups::isValue(groups.code())) {
            state.entries.push_back({key, object(groups)});
            hasKey = false;
        }
    }
    return state;
}

XrecordState DxfRecordReader::xrecord(DxfCursor groups) const
{
    XrecordState state;
    bool inData = false;
    bool atStart = true; // the cloning flag belongs to the record, not to its data
    while (groups.next()) {
        if (groups.code() >= 1000)
            appendCanonical(groups, state.xData);
        else if (inData && !(std::exchange(atStart, false) && groups.code() == 280))
            appendCanonical(groups, state.groups);
        else if (!inData && groups.code() == 100)
            inData = groups.bytes().trimmed() == "AcDbXrecord";
    }
    return state;
}

DictionaryVarState DxfRecordReader::dictionaryVar(DxfCursor groups) const
{
    DictionaryVarState state;
    while (groups.next()) {
        if (groups.code() == 1)
            state.value = groups.text();
    }
    return state;
}

void DxfRecordReader::appendCanonical(const DxfCursor& group, GroupList& groups) const
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

LayoutState DxfRecordReader::layout(DxfCursor groups) const
{
    LayoutState state;
    bool inPlotSettings = false;
    bool inLayout = false;
    while (groups.next()) {
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
            state.block = object(groups);
        } else if (inLayout && groups.code() == 331) {
            state.lastActiveViewport = object(groups);
        }
    }
    return state;
}

ViewportState DxfRecordReader::viewport(DxfCursor groups) const
{
    ViewportState state;
    int braces = 0;
    bool ownData = false;
    while (groups.next()) {
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
            // One erased since then, too: the erasing may be undone.
            if (const OdDbObjectId layer = object(groups); ownData && !layer.isNull()
                && m_source.database().store().type(layer.slot()) == RecordType::Layer)
                state.frozenLayers.push_back(layer);
            break;
        default:
            if (groups.code() >= 1000)
                readMviewLayer(groups, braces, m_source, state);
            break;
        }
    }
    return state;
}
