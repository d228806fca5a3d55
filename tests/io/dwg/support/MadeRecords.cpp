#include "io/dwg/support/MadeRecords.h"

#include "database/tables/OdDbLinetypeTableRecord.h"
#include "io/dwg/records/DwgTypes.h"
#include "io/dwg/support/MadeFields.h"
#include "io/dwg/support/MadeHandles.h"

MadeRecords::MadeRecords(const MadeDrawing& drawing, const DwgFormat& format)
    : m_drawing(drawing)
    , m_format(format)
    , m_new(format)
{
    addControls();
    addApplications();
    addLinetypes();
    addStyle();
    addDimStyle();
    addLayers();
    addVport();
    addEntities();
    addDictionaries();
    addFilters();
    addState();
    addOverrides();
}

quint64 MadeRecords::layerHandle(std::size_t layer)
{
    return MadeHandle::FirstLayer + layer;
}

/// All records that are no entities begin so.
RecordParts MadeRecords::begin(quint16 type, const Head& head) const
{
    RecordParts parts = m_new.begin(type, head);
    parts.handles.handle(DwgReference::SoftPointer, head.owner);
    m_new.appendReactors(parts, head);
    return parts;
}

void MadeRecords::addControl(quint16 type, const Head& head, const std::vector<quint64>& records,
                             const std::vector<quint64>& extras)
{
    RecordParts parts = begin(type, head);
    parts.data.bitLong(static_cast<qint32>(records.size()));
    if (type == DwgType::DimStyleControl && since(DrawingVersion::V2000))
        parts.data.rawChar(0);
    for (const quint64 record : records)
        parts.handles.handle(DwgReference::SoftOwner, record);
    for (const quint64 record : extras)
        parts.handles.handle(DwgReference::HardOwner, record);
    put(head.handle, parts);
}

void MadeRecords::addControls()
{
    using namespace MadeHandle;
    constexpr quint16 kVxControl = 70;
    std::vector<quint64> layers;
    for (std::size_t i = 0; i < m_drawing.layers.size(); ++i)
        layers.push_back(layerHandle(i));
    addControl(DwgType::BlockControl, {BlockControl}, {}, {ModelSpace, PaperSpace});
    addControl(DwgType::LayerControl, {LayerControl, 0, {}, LayerExtras}, layers);
    addControl(DwgType::StyleControl, {StyleControl}, {Style});
    addControl(DwgType::LtypeControl, {LtypeControl}, {Continuous, Dashed}, {ByBlock, ByLayer});
    addControl(DwgType::ViewControl, {ViewControl}, {});
    addControl(DwgType::UcsControl, {UcsControl}, {});
    addControl(DwgType::VportControl, {VportControl}, {Vport});
    addControl(DwgType::AppIdControl, {AppIdControl}, {AppAcad, AppDescription, AppTransparency});
    addControl(DwgType::DimStyleControl, {DimStyleControl}, {DimStyle});
    if (!since(DrawingVersion::V2004))
        addControl(kVxControl, {VxControl}, {});
}

void MadeRecords::addApplications()
{
    const auto add = [&](quint64 handle, const char* name) {
        m_records[handle] =
            m_new.application({handle, MadeHandle::AppIdControl}, QString::fromLatin1(name));
    };
    add(MadeHandle::AppAcad, "ACAD");
    add(MadeHandle::AppDescription, "AcAecLayerStandard");
    add(MadeHandle::AppTransparency, "AcCmTransparency");
}

void MadeRecords::addLinetypes()
{
    const auto add = [&](quint64 handle, const LinetypeState& state) {
        m_records[handle] = m_new.linetype({handle, MadeHandle::LtypeControl}, state);
    };
    add(MadeHandle::ByBlock, {QStringLiteral("ByBlock"), {}, {}});
    add(MadeHandle::ByLayer, {QStringLiteral("ByLayer"), {}, {}});
    add(MadeHandle::Continuous, {QStringLiteral("Continuous"), QStringLiteral("Solid line"), {}});
    add(MadeHandle::Dashed, {QStringLiteral("DASHED"), QStringLiteral("__ __"), {0.5, -0.25}});
}

void MadeRecords::addStyle()
{
    RecordParts parts = begin(DwgType::Style, {MadeHandle::Style, MadeHandle::StyleControl});
    m_new.appendName(parts, QStringLiteral("Standard"));
    parts.data.bit(false); // no shapes
    parts.data.bit(false); // not vertical
    parts.data.bitDouble(0); // any height
    parts.data.bitDouble(1); // width
    parts.data.bitDouble(0); // slant
    parts.data.rawChar(0);
    parts.data.bitDouble(2.5); // the last height
    m_new.appendText(parts, QStringLiteral("txt"));
    m_new.appendText(parts, {});
    parts.handles.handle(DwgReference::HardPointer, 0);
    put(MadeHandle::Style, parts);
}

void MadeRecords::addDimStyle()
{
    // Its values have the order that the header variables of that name have.
    constexpr quint16 kDimStyle = 69;
    MadeFields fields(m_format);
    fields.setNumber("$DIMSCALE", 1);
    fields.setNumber("$DIMASZ", 2.5);
    fields.setNumber("$DIMTXT", 2.5);
    fields.setNumber("$DIMLFAC", 1);
    fields.setReference("$DIMTXSTY", MadeHandle::Style);
    RecordParts parts = begin(kDimStyle, {MadeHandle::DimStyle, MadeHandle::DimStyleControl});
    m_new.appendName(parts, QStringLiteral("Standard"));
    parts.handles.handle(DwgReference::HardPointer, 0);
    fields.append("$DIMPOST", "$DIMLWE", parts, parts.handles);
    parts.data.bit(false);
    put(MadeHandle::DimStyle, parts);
}

std::vector<std::pair<quint64, QByteArray>> MadeRecords::xData(const LayerState& state) const
{
    std::vector<std::pair<quint64, QByteArray>> blocks;
    if (!state.description.isEmpty()) {
        BitWriter strings;
        for (const QString& text : {QString(), state.description}) {
            strings.rawChar(0); // group 1000
            const QByteArray bytes = m_format.text.encode(text);
            const bool isWide = m_format.version >= DrawingVersion::V2007;
            strings.rawShort(static_cast<quint16>(isWide ? text.size() : bytes.size()));
            if (!isWide) {
                strings.rawChar(static_cast<quint8>(m_format.codePage));
                strings.raw(bytes);
                continue;
            }
            for (const QChar unit : text)
                strings.rawShort(unit.unicode());
        }
        blocks.emplace_back(MadeHandle::AppDescription, strings.bytes());
    }
    if (state.transparency != 0) {
        BitWriter number;
        number.rawChar(71); // group 1071
        number.rawLong(state.transparency);
        blocks.emplace_back(MadeHandle::AppTransparency, number.bytes());
    }
    return blocks;
}

void MadeRecords::addLayers()
{
    TableRecords::Layer zero;
    zero.plotStyle = MadeHandle::PlotStyle;
    for (std::size_t i = 0; i < m_drawing.layers.size(); ++i) {
        const MadeDrawing::Layer& layer = m_drawing.layers[i];
        const bool overridden = i == m_drawing.override.layer;
        const bool dashed = layer.linetype == QLatin1String("DASHED");
        m_records[layerHandle(i)] =
            m_new.layer({layerHandle(i),
                         MadeHandle::LayerControl,
                         {},
                         overridden ? MadeHandle::OverrideExtras : quint64(0),
                         xData(layer.state)},
                        layer.state, {dashed ? MadeHandle::Dashed : MadeHandle::Continuous}, zero);
    }
}

void MadeRecords::addXrecord(quint64 handle, quint64 owner, const GroupList& groups)
{
    m_records[handle] = m_new.xrecord({handle, owner, {owner}}, groups).value();
}

void MadeRecords::addDictionaries()
{
    using namespace MadeHandle;
    constexpr quint16 kPlaceholder = 80;
    const auto add = [&](quint64 handle, quint64 owner, const std::vector<KeyedHandle>& entries) {
        m_records[handle] = m_new.dictionary({handle, owner}, true, entries);
    };
    add(Named, 0,
        {{QStringLiteral("ACAD_GROUP"), Groups},
         {QStringLiteral("ACAD_LAYOUT"), Layouts},
         {QStringLiteral("ACAD_MLINESTYLE"), MultiLineStyles},
         {QStringLiteral("ACAD_PLOTSTYLENAME"), PlotStyles},
         {QStringLiteral("AcDbVariableDictionary"), Variables}});
    add(Groups, Named, {});
    add(MultiLineStyles, Named, {});
    add(Layouts, Named, {{QStringLiteral("Model"), ModelLayout}, {QStringLiteral("Sheet"), Sheet}});
    add(PlotStyles, Named, {{QStringLiteral("Normal"), PlotStyle}});
    put(PlotStyle, begin(kPlaceholder, {PlotStyle, PlotStyles}));
    if (m_drawing.hasVariables) {
        add(Variables, Named, {{QStringLiteral("LAYEREVAL"), LayerEval}});
        m_records[LayerEval] =
            m_new.variable({LayerEval, Variables}, kVariableType, QStringLiteral("1"));
    } else {
        add(Variables, Named, {});
    }
    add(LayerExtras, LayerControl,
        {{QStringLiteral("ACAD_LAYERSTATES"), States},
         {QStringLiteral("ACLYDICTIONARY"), Filters}});
    add(Filters, LayerExtras, {{QStringLiteral("*A1"), Group}, {QStringLiteral("*A2"), Rule}});
    add(States, LayerExtras, {{m_drawing.stateName, State}});
    add(OverrideExtras, layerHandle(m_drawing.override.layer),
        {{QStringLiteral("ADSK_XREC_LAYER_COLOR_OVR"), ColorOverrides},
         {QStringLiteral("ADSK_XREC_LAYER_LINEWT_OVR"), LineWeightOverrides}});
}

void MadeRecords::addFilters()
{
    GroupList group = {{1, "AcLyLayerGroup"}, {90, "1"}};
    group.append(300, m_drawing.groupName.toUtf8());
    for (const std::size_t layer : m_drawing.groupLayers)
        group.append(330, QByteArray::number(layerHandle(layer), 16));
    addXrecord(MadeHandle::Group, MadeHandle::Filters, group);
    GroupList rule = {{1, "AcLyLayerFilter"}, {90, "1"}};
    rule.append(300, m_drawing.ruleName.toUtf8());
    rule.append(301, m_drawing.ruleExpression.toUtf8());
    addXrecord(MadeHandle::Rule, MadeHandle::Filters, rule);
}

void MadeRecords::addState()
{
    constexpr qint64 kAll = 2047;
    enum Flag { kOff = 1, kFrozen = 2, kLocked = 4, kPlottable = 8, kFrozenAnew = 16 };
    GroupList groups;
    groups.append(91, kAll);
    groups.append(301, m_drawing.stateDescription.toUtf8());
    groups.append(290, qint64(0));
    groups.append(302, m_drawing.layers.front().state.name.toUtf8());
    for (std::size_t i = 0; i < m_drawing.layers.size(); ++i) {
        const LayerState& state = m_drawing.layers[i].state;
        const bool dashed = m_drawing.layers[i].linetype == QLatin1String("DASHED");
        groups.append(330, QByteArray::number(layerHandle(i), 16));
        groups.append(90,
                      (state.off ? kOff : 0) | (state.frozen ? kFrozen : 0)
                          | (state.locked ? kLocked : 0) | (state.plottable ? kPlottable : 0)
                          | (state.frozenInNewViewports ? kFrozenAnew : 0));
        groups.append(62, state.color.colorIndex());
        groups.append(370, state.lineWeight);
        groups.append(331,
                      QByteArray::number(dashed ? MadeHandle::Dashed : MadeHandle::Continuous, 16));
        groups.append(1, "Normal");
        groups.append(440, state.transparency);
        if (state.color.colorMethod() == OdCmColor::kByColor)
            groups.append(92, static_cast<qint32>(state.color.color()));
        if (!state.color.bookName().isEmpty())
            groups.append(300, state.color.bookName().toUtf8());
    }
    addXrecord(MadeHandle::State, MadeHandle::States, groups);
}

void MadeRecords::addOverrides()
{
    const QByteArray viewport = QByteArray::number(MadeHandle::Viewport, 16);
    GroupList color = {{102, "{ADSK_LYR_COLOR_OVERRIDE"}, {335, viewport}};
    color.append(420, static_cast<qint32>(m_drawing.override.color.color()));
    color.append(102, "}");
    addXrecord(MadeHandle::ColorOverrides, MadeHandle::OverrideExtras, color);
    GroupList lineWeight = {{102, "{ADSK_LYR_LINEWT_OVERRIDE"}, {335, viewport}};
    lineWeight.append(91, m_drawing.override.lineWeight);
    lineWeight.append(102, "}");
    addXrecord(MadeHandle::LineWeightOverrides, MadeHandle::OverrideExtras, lineWeight);
}
