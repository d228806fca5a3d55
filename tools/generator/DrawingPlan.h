#pragma once

#include "generator/DrawingOptions.h"

#include <array>
#include <cstdint>
#include <string>

/// Objects that every generated drawing has once.
enum class Fixture {
    BlockRecordTable,
    LayerTable,
    StyleTable,
    DimStyleTable,
    LtypeTable,
    ViewTable,
    UcsTable,
    VportTable,
    AppIdTable,
    RootDictionary,
    GroupDictionary,
    LayoutDictionary,
    MlineStyleDictionary,
    PlotSettingsDictionary,
    PlotStyleDictionary,
    PlotStyleNormal,
    MaterialDictionary,
    MaterialByBlock,
    MaterialByLayer,
    MaterialGlobal,
    ColorDictionary,
    VariableDictionary,
    MlineStyle,
    VportActive,
    TextStyle,
    DimStyle,
    Count,
};

/// Handles of everything in a drawing, given out before a byte is written: the header names the
/// first free handle, and records point forward.
class DrawingPlan
{
public:
    static constexpr int kBlockEntities = 6; ///< of each block
    static constexpr int kSheetViewports = 3; ///< the overall one, then two floating ones
    static constexpr int kSheetEntities = kSheetViewports + 3; ///< and frame, title, title text
    static constexpr int kLinetypes = 10;
    static constexpr int kAppIds = 3;
    static constexpr int kVariables = 3;

    explicit DrawingPlan(const DrawingOptions& options);

    const DrawingOptions& options() const { return m_options; }
    /// Model space, the sheets' spaces, then the blocks.
    int blockRecords() const { return spaces() + m_options.blocks; }
    int spaces() const { return 1 + m_options.layouts; }
    std::string blockName(int record) const;
    std::string layoutName(int space) const;

    static std::uint64_t fixture(Fixture which)
    {
        return kFirstFixture + static_cast<std::uint64_t>(which);
    }
    std::uint64_t linetype(int index) const { return at(Linetypes, index); }
    std::uint64_t appId(int index) const { return at(AppIds, index); }
    std::uint64_t variable(int index) const { return at(Variables, index); }
    std::uint64_t layer(int index) const { return at(Layers, index); }
    std::uint64_t blockRecord(int record) const { return at(BlockRecords, record); }
    std::uint64_t blockBegin(int record) const { return at(BlockBegins, record); }
    std::uint64_t blockEnd(int record) const { return at(BlockEnds, record); }
    std::uint64_t layout(int space) const { return at(Layouts, space); }
    std::uint64_t sheetEntity(int space, int index) const
    {
        return at(SheetEntities, std::int64_t{space - 1} * kSheetEntities + index);
    }
    std::uint64_t blockEntity(int record, int index) const
    {
        return at(BlockEntities, std::int64_t{record - spaces()} * kBlockEntities + index);
    }
    std::uint64_t entity(std::int64_t index) const { return at(Entities, index); }
    /// The first free handle.
    std::uint64_t handleSeed() const { return m_seed; }

private:
    enum Range {
        Linetypes,
        AppIds,
        Variables,
        Layers,
        BlockRecords,
        BlockBegins,
        BlockEnds,
        Layouts,
        SheetEntities,
        BlockEntities,
        Entities,
        RangeCount,
    };
    static constexpr std::uint64_t kFirstFixture = 0x10;

    std::uint64_t at(Range range, std::int64_t index) const
    {
        return m_first[range] + static_cast<std::uint64_t>(index);
    }

    DrawingOptions m_options;
    std::array<std::uint64_t, RangeCount> m_first;
    std::uint64_t m_seed;
};
