#pragma once

#include "generator/RandomStream.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

class DrawingPlan;
class TagWriter;

/// Where an entity goes: its handle, the block record that owns it, and whether that is a sheet.
struct EntityPlace
{
    std::uint64_t handle;
    std::uint64_t owner;
    bool onSheet = false;
};

/// Writes entities: the random ones of model space, and the fixed ones of blocks and sheets.
class EntityWriter
{
public:
    EntityWriter(TagWriter& out, const DrawingPlan& plan);

    /// Entity `index` of model space: about 70 % lines, the rest polylines, circles, arcs, texts
    /// and inserts, on layers in no order.
    void writeModelEntity(std::int64_t index);
    /// The contents of a block, about a metre in size.
    void writeBlockEntities(int record);
    /// Viewports, frame and title of a sheet.
    void writeSheetEntities(int space);

private:
    struct Spot
    {
        double x;
        double y;
    };

    void begin(std::string_view type, const EntityPlace& place, std::string_view layer);
    void beginRandom(std::string_view type);
    Spot spot(double margin);
    void line(Spot from, Spot to);
    void rectangle(Spot corner, double width, double height);

    void randomLine();
    void randomPolyline();
    void randomCircle();
    void randomArc();
    void randomText();
    void randomInsert();
    void viewport(int space, int number);
    void viewportView(int number);

    TagWriter& m_out;
    const DrawingPlan& m_plan;
    std::vector<std::string> m_layers; ///< names by index
    std::vector<std::string> m_blocks;
    std::int64_t m_cellsPerRow;
    RandomStream m_random;
    EntityPlace m_place{};
    Spot m_cell{};
};
