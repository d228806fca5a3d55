#include "io/dwg/records/DwgTypes.h"
#include "io/dwg/support/MadeHandles.h"
#include "io/dwg/support/MadeRecords.h"

#include <initializer_list>

namespace {

constexpr quint16 kVport = 65;
constexpr quint16 kLayout = 82;

void reals(BitWriter& data, std::initializer_list<double> values)
{
    for (const double value : values)
        data.bitDouble(value);
}

void rawReals(BitWriter& data, std::initializer_list<double> values)
{
    for (const double value : values)
        data.rawDouble(value);
}

void noReferences(RecordParts& parts, int count)
{
    for (int i = 0; i < count; ++i)
        parts.handles.handle(DwgReference::HardPointer, 0);
}

/// How a view is lit where nothing was said of it.
void appendLights(BitWriter& data, const DwgFormat& format)
{
    data.bit(true);
    data.rawChar(1);
    reals(data, {0, 0});
    data.append(Spelling::color(format, OdCmColor::fromIndex(250)).data);
}

} // namespace

void MadeRecords::addVport()
{
    RecordParts parts = begin(kVport, {MadeHandle::Vport, MadeHandle::VportControl});
    BitWriter& data = parts.data;
    m_new.appendName(parts, QStringLiteral("*Active"));
    reals(data, {10, 15}); // height, and width by it
    rawReals(data, {5, 5}); // middle
    reals(data, {0, 0, 0, 0, 0, 1, 0, 50, 0, 0}); // target, direction, twist, lens, clips
    data.bits(0, 4); // perspective, clips
    data.rawChar(0); // how it is drawn
    if (since(DrawingVersion::V2007))
        appendLights(data, m_format);
    rawReals(data, {0, 0, 1, 1}); // place in the window
    data.bit(false);
    data.bitShort(1000); // smoothness of circles
    data.bit(true);
    data.bits(1, 2); // mark of the axes
    data.bit(false); // grid
    rawReals(data, {10, 10});
    data.bit(false); // snap
    data.bit(false);
    data.bitShort(0);
    data.bitDouble(0);
    rawReals(data, {0, 0, 10, 10});
    data.bit(false);
    data.bit(true);
    reals(data, {0, 0, 0, 1, 0, 0, 0, 1, 0, 0}); // origin, axes, elevation
    data.bitShort(0);
    if (since(DrawingVersion::V2007)) {
        data.bitShort(0); // grid
        data.bitShort(5);
    }
    noReferences(parts, since(DrawingVersion::V2007) ? 6 : 3);
    put(MadeHandle::Vport, parts);
}

void MadeRecords::addViewport(quint64 handle, const EntityHead& entity, double width,
                              const std::vector<quint64>& frozen)
{
    RecordParts parts = m_new.begin(DwgType::Viewport, {handle});
    m_new.beginEntity(parts, {handle}, entity);
    BitWriter& data = parts.data;
    reals(data, {width / 2, width / 4, 0, width, width / 2}); // middle, size
    reals(data, {0, 0, 0, 0, 0, 1}); // target, direction
    reals(data, {0, 20, 50, 0, 0, 0}); // twist, height, lens, clips, snap
    rawReals(data, {5, 5, 0, 0, 10, 10, 10, 10}); // middle, snap, grid
    data.bitShort(1000); // smoothness of circles
    if (since(DrawingVersion::V2007))
        data.bitShort(5);
    data.bitLong(static_cast<qint32>(frozen.size()));
    data.bitLong(0x8060);
    m_new.appendText(parts, {});
    data.rawChar(0);
    data.bit(false);
    data.bit(true);
    reals(data, {0, 0, 0, 1, 0, 0, 0, 1, 0, 0}); // origin, axes, elevation
    data.bitShort(0);
    if (since(DrawingVersion::V2004))
        data.bitShort(0);
    if (since(DrawingVersion::V2007))
        appendLights(data, m_format);
    for (const quint64 layer : frozen) {
        parts.handles.handle(since(DrawingVersion::V2004) ? DwgReference::SoftPointer
                                                          : DwgReference::HardPointer,
                             layer);
    }
    noReferences(parts, since(DrawingVersion::V2007) ? 7 : since(DrawingVersion::V2004) ? 3 : 4);
    put(handle, parts);
}

void MadeRecords::addLayout(quint64 handle, const QString& name, int order, quint64 block,
                            const std::vector<quint64>& viewports)
{
    RecordParts parts = begin(kLayout, {handle, MadeHandle::Layouts, {MadeHandle::Layouts}});
    BitWriter& data = parts.data;
    const auto text = [&](const char* plain) {
        m_new.appendText(parts, QString::fromLatin1(plain));
    };
    text(""); // page setup
    text("none"); // printer
    data.bitShort(0x2B0);
    reals(data, {7.5, 20, 7.5, 20, 210, 297}); // margins, paper
    text("A4");
    reals(data, {0, 0}); // origin
    for (const int number : {1, 0, 5}) // units, rotation, what is plotted
        data.bitShort(static_cast<qint16>(number));
    reals(data, {0, 0, 0, 0}); // window
    if (!since(DrawingVersion::V2004))
        text("");
    reals(data, {1, 1}); // scale
    text("made.stb");
    data.bitShort(16);
    reals(data, {1, 0, 0});
    if (since(DrawingVersion::V2004)) {
        for (const int number : {0, 2, 300}) // how shaded views are plotted
            data.bitShort(static_cast<qint16>(number));
    }
    m_new.appendText(parts, name);
    data.bitLong(order);
    data.bitShort(1);
    reals(data, {0, 0, 0}); // origin
    rawReals(data, {0, 0, 210, 297}); // limits
    reals(data, {0, 0, 0, 1, 0, 0, 0, 1, 0, 0}); // base, axes, elevation
    data.bitShort(0);
    reals(data, {0, 0, 0, 10, 10, 0}); // extents
    if (since(DrawingVersion::V2004))
        data.bitLong(static_cast<qint32>(viewports.size()));
    noReferences(parts, since(DrawingVersion::V2007) ? 2 : since(DrawingVersion::V2004) ? 1 : 0);
    parts.handles.handle(DwgReference::SoftPointer, block);
    parts.handles.handle(DwgReference::SoftPointer, viewports.empty() ? 0 : viewports.front());
    noReferences(parts, 2); // coordinate systems
    if (since(DrawingVersion::V2004)) {
        for (const quint64 viewport : viewports)
            parts.handles.handle(DwgReference::SoftPointer, viewport);
    }
    put(handle, parts);
}

void MadeRecords::addBlock(quint64 handle, const QString& name, quint64 begin,
                           const std::vector<quint64>& entities, quint64 layout)
{
    // The entities that begin and end it have the handles behind one another.
    const Head head{handle, MadeHandle::BlockControl};
    RecordParts parts = this->begin(DwgType::BlockHeader, head);
    BitWriter& data = parts.data;
    m_new.appendName(parts, name);
    data.bits(0, 5); // no anonymous one, no attributes, not external
    if (since(DrawingVersion::V2004))
        data.bitLong(static_cast<qint32>(entities.size()));
    reals(data, {0, 0, 0});
    m_new.appendText(parts, {}); // path
    data.rawChar(0); // no references
    m_new.appendText(parts, {}); // description
    data.bitLong(0); // no preview
    if (since(DrawingVersion::V2007)) {
        data.bitShort(0);
        data.bit(true);
        data.rawChar(0);
    }
    noReferences(parts, 1);
    parts.handles.handle(DwgReference::HardOwner, begin);
    if (since(DrawingVersion::V2004)) {
        for (const quint64 entity : entities)
            parts.handles.handle(DwgReference::HardOwner, entity);
    } else {
        parts.handles.handle(DwgReference::SoftPointer, entities.front());
        parts.handles.handle(DwgReference::SoftPointer, entities.back());
    }
    parts.handles.handle(DwgReference::HardOwner, begin + 1);
    parts.handles.handle(DwgReference::HardPointer, layout);
    put(handle, parts);

    EntityHead frame;
    frame.space = handle == MadeHandle::ModelSpace ? DwgEntityHead::Space::Model
                                                   : DwgEntityHead::Space::Paper;
    frame.layer = layerHandle(0);
    RecordParts opening = m_new.begin(DwgType::Block, {begin});
    m_new.beginEntity(opening, {begin}, frame);
    m_new.appendText(opening, name);
    put(begin, opening);
    RecordParts closing = m_new.begin(DwgType::EndBlock, {begin + 1});
    m_new.beginEntity(closing, {begin + 1}, frame);
    put(begin + 1, closing);
}

void MadeRecords::addEntities()
{
    using namespace MadeHandle;
    std::vector<quint64> inModel;
    std::vector<quint64> onSheet = {SheetViewport, Viewport};
    quint64 handle = layerHandle(m_drawing.layers.size());
    for (const MadeDrawing::Entity& entity : m_drawing.entities)
        (entity.onSheet ? onSheet : inModel).push_back(handle++);

    const auto place = [](const std::vector<quint64>& all, quint64 entity, EntityHead& head) {
        const auto at = std::lower_bound(all.begin(), all.end(), entity); // they ascend
        head.previous = at == all.begin() ? 0 : at[-1];
        head.next = at + 1 == all.end() ? 0 : at[1];
    };
    handle = layerHandle(m_drawing.layers.size());
    for (const MadeDrawing::Entity& entity : m_drawing.entities) {
        EntityHead head;
        head.space = entity.onSheet ? DwgEntityHead::Space::Paper : DwgEntityHead::Space::Model;
        head.layer = layerHandle(entity.layer);
        head.textStyle = Style;
        place(entity.onSheet ? onSheet : inModel, handle, head);
        m_records[handle] = m_new.entity({handle}, head, entity.type, entity.groups).value();
        ++handle;
    }
    std::vector<quint64> frozen;
    for (const std::size_t layer : m_drawing.frozen)
        frozen.push_back(layerHandle(layer));
    EntityHead head;
    head.space = DwgEntityHead::Space::Paper;
    head.layer = layerHandle(0);
    place(onSheet, SheetViewport, head);
    addViewport(SheetViewport, head, 297, {});
    place(onSheet, Viewport, head);
    addViewport(Viewport, head, 100, frozen);

    addBlock(ModelSpace, QStringLiteral("*Model_Space"), ModelBegin, inModel, ModelLayout);
    addBlock(PaperSpace, QStringLiteral("*Paper_Space"), PaperBegin, onSheet, Sheet);
    addLayout(ModelLayout, QStringLiteral("Model"), 0, ModelSpace, {});
    addLayout(Sheet, QStringLiteral("Sheet"), 1, PaperSpace, {SheetViewport, Viewport});
}
