#include "generator/EntityWriter.h"

#include "generator/DrawingPlan.h"
#include "generator/GeneratedLayer.h"
#include "generator/SectionWriters.h"
#include "generator/TagWriter.h"

#include <array>
#include <cmath>
#include <cstdio>

namespace {

constexpr double kCellSize = 8000; // a room, in millimetres
constexpr std::int64_t kEntitiesPerCell = 32;

std::int64_t cellsPerRow(std::int64_t entities)
{
    const std::int64_t cells = entities / kEntitiesPerCell + 1;
    return static_cast<std::int64_t>(std::ceil(std::sqrt(static_cast<double>(cells))));
}

} // namespace

double modelExtent(const DrawingPlan& plan)
{
    return static_cast<double>(cellsPerRow(plan.options().entities)) * kCellSize;
}

EntityWriter::EntityWriter(TagWriter& out, const DrawingPlan& plan)
    : m_out(out)
    , m_plan(plan)
    , m_cellsPerRow(cellsPerRow(plan.options().entities))
    , m_random(plan.options().seed)
{
    const DrawingOptions& options = plan.options();
    m_layers.reserve(static_cast<std::size_t>(options.layers));
    for (int index = 0; index < options.layers; ++index)
        m_layers.push_back(generatedLayerName(options, index));
    for (int record = plan.spaces(); record < plan.blockRecords(); ++record)
        m_blocks.push_back(plan.blockName(record));
}

void EntityWriter::begin(std::string_view type, const EntityPlace& place, std::string_view layer)
{
    m_out.record(type);
    m_out.handle(5, place.handle);
    m_out.handle(330, place.owner);
    m_out.subclass("AcDbEntity");
    if (place.onSheet)
        m_out.integer(67, 1);
    m_out.text(8, layer);
}

void EntityWriter::beginRandom(std::string_view type)
{
    std::size_t layer = m_random.below(m_layers.size());
    if (!isLayerUsed(static_cast<int>(layer)))
        --layer;
    begin(type, m_place, m_layers[layer]);
    const std::uint64_t chance = m_random.below(100);
    if (chance < 3)
        m_out.text(6, generatedLinetype(static_cast<int>(3 + chance)).name);
    else if (chance < 8)
        m_out.integer(62, static_cast<std::int64_t>(1 + m_random.below(255)));
    else if (chance < 10)
        m_out.integer(370, 50);
}

EntityWriter::Spot EntityWriter::spot(double margin)
{
    return {m_cell.x + m_random.between(margin, kCellSize - margin),
            m_cell.y + m_random.between(margin, kCellSize - margin)};
}

void EntityWriter::line(Spot from, Spot to)
{
    m_out.subclass("AcDbLine");
    m_out.point(10, from.x, from.y, 0);
    m_out.point(11, to.x, to.y, 0);
}

void EntityWriter::rectangle(Spot corner, double width, double height)
{
    m_out.subclass("AcDbPolyline");
    m_out.integer(90, 4);
    m_out.integer(70, 1);
    m_out.real(43, 0);
    m_out.point(10, corner.x, corner.y);
    m_out.point(10, corner.x + width, corner.y);
    m_out.point(10, corner.x + width, corner.y + height);
    m_out.point(10, corner.x, corner.y + height);
}

void EntityWriter::writeModelEntity(std::int64_t index)
{
    struct Kind
    {
        unsigned share; // per cent
        void (EntityWriter::*write)();
    };
    static constexpr std::array<Kind, 6> kKinds{{
        {70, &EntityWriter::randomLine},
        {10, &EntityWriter::randomPolyline},
        {5, &EntityWriter::randomCircle},
        {5, &EntityWriter::randomArc},
        {5, &EntityWriter::randomText},
        {5, &EntityWriter::randomInsert},
    }};
    m_random = RandomStream::forItem(m_plan.options().seed,
                                     0x100000000ull + static_cast<std::uint64_t>(index));
    m_place = {m_plan.entity(index), m_plan.blockRecord(0)};
    // Neighbours in the file are not neighbours on the plane.
    const std::int64_t cells = m_cellsPerRow * m_cellsPerRow;
    const auto cell = static_cast<std::int64_t>(m_random.below(static_cast<std::uint64_t>(cells)));
    m_cell = {static_cast<double>(cell % m_cellsPerRow) * kCellSize,
              static_cast<double>(cell / m_cellsPerRow) * kCellSize};

    auto choice = static_cast<unsigned>(m_random.below(100));
    const Kind* kind = kKinds.data();
    while (choice >= kind->share)
        choice -= (kind++)->share;
    (this->*kind->write)();
}

void EntityWriter::randomLine()
{
    beginRandom("LINE");
    const Spot from = spot(0);
    Spot to = spot(0);
    // Buildings are mostly square.
    const std::uint64_t direction = m_random.below(8);
    if (direction < 4)
        to.y = from.y;
    else if (direction < 7)
        to.x = from.x;
    line(from, to);
}

void EntityWriter::randomPolyline()
{
    beginRandom("LWPOLYLINE");
    const auto corners = static_cast<int>(3 + m_random.below(6));
    m_out.subclass("AcDbPolyline");
    m_out.integer(90, corners);
    m_out.integer(70, m_random.percent(50) ? 1 : 0);
    m_out.real(43, 0);
    for (int corner = 0; corner < corners; ++corner) {
        const Spot at = spot(0);
        m_out.point(10, at.x, at.y);
    }
}

void EntityWriter::randomCircle()
{
    beginRandom("CIRCLE");
    const Spot centre = spot(1000);
    m_out.subclass("AcDbCircle");
    m_out.point(10, centre.x, centre.y, 0);
    m_out.real(40, m_random.between(50, 1000));
}

void EntityWriter::randomArc()
{
    beginRandom("ARC");
    const Spot centre = spot(1000);
    const double start = m_random.between(0, 270);
    m_out.subclass("AcDbCircle");
    m_out.point(10, centre.x, centre.y, 0);
    m_out.real(40, m_random.between(400, 1000));
    m_out.subclass("AcDbArc");
    m_out.real(50, start);
    m_out.real(51, start + m_random.between(30, 90));
}

void EntityWriter::randomText()
{
    static constexpr std::array kRooms{"OFFICE", "STORE",      "CORRIDOR",
                                       "STAIR",  "PLANT ROOM", "KITCHEN"};
    beginRandom("TEXT");
    char label[32];
    std::snprintf(label, sizeof label, "%s %u", kRooms[m_random.below(kRooms.size())],
                  static_cast<unsigned>(100 + m_random.below(900)));
    const Spot at = spot(1000);
    m_out.subclass("AcDbText");
    m_out.point(10, at.x, at.y, 0);
    m_out.real(40, 250);
    m_out.text(1, label);
    m_out.subclass("AcDbText");
}

void EntityWriter::randomInsert()
{
    beginRandom("INSERT");
    const Spot at = spot(1000);
    m_out.subclass("AcDbBlockReference");
    m_out.text(2, m_blocks[m_random.below(m_blocks.size())]);
    m_out.point(10, at.x, at.y, 0);
    m_out.real(50, static_cast<double>(m_random.below(4)) * 90);
}

void EntityWriter::writeBlockEntities(int record)
{
    const double size = 300 + record % 7 * 100;
    const std::uint64_t owner = m_plan.blockRecord(record);
    auto next = [&, index = 0](std::string_view type, std::string_view layer) mutable {
        begin(type, {m_plan.blockEntity(record, index++), owner}, layer);
    };
    next("LWPOLYLINE", "0");
    rectangle({0, 0}, size, size);
    next("LINE", "0");
    line({0, 0}, {size, size});
    next("LINE", "0");
    line({0, size}, {size, 0});
    next("LINE", m_layers[static_cast<std::size_t>(record) % m_layers.size()]);
    line({0, size / 2}, {size, size / 2});
    next("CIRCLE", "0");
    m_out.subclass("AcDbCircle");
    m_out.point(10, size / 2, size / 2, 0);
    m_out.real(40, size / 4);
    next("ARC", "0");
    m_out.subclass("AcDbCircle");
    m_out.point(10, 0, 0, 0);
    m_out.real(40, size);
    m_out.subclass("AcDbArc");
    m_out.real(50, 0);
    m_out.real(51, 90);
}
