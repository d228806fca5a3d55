#include "generator/DrawingPlan.h"
#include "generator/SectionWriters.h"
#include "generator/TagWriter.h"

#include <cstdint>
#include <initializer_list>
#include <string_view>

namespace {

struct Entry
{
    std::string_view key;
    std::uint64_t handle;
};

/// Opens an object of the OBJECTS section that lives in a dictionary; 0 for the root, which nobody
/// owns.
void beginObject(TagWriter& out, std::string_view type, std::uint64_t handle, std::uint64_t owner)
{
    out.record(type);
    out.handle(5, handle);
    if (owner != 0) {
        out.text(102, "{ACAD_REACTORS");
        out.handle(330, owner);
        out.text(102, "}");
    }
    out.handle(330, owner);
}

void writeEntries(TagWriter& out, std::initializer_list<Entry> entries)
{
    for (const Entry& entry : entries) {
        out.text(3, entry.key);
        out.handle(350, entry.handle);
    }
}

void writeDictionary(TagWriter& out, Fixture which, std::initializer_list<Entry> entries)
{
    const std::uint64_t root = DrawingPlan::fixture(Fixture::RootDictionary);
    const std::uint64_t handle = DrawingPlan::fixture(which);
    beginObject(out, "DICTIONARY", handle, handle == root ? 0 : root);
    out.subclass("AcDbDictionary");
    out.integer(281, 1);
    writeEntries(out, entries);
}

void writeRoot(TagWriter& out, const DrawingPlan& plan)
{
    const auto entry = [](std::string_view key, Fixture which) {
        return Entry{key, DrawingPlan::fixture(which)};
    };
    writeDictionary(out, Fixture::RootDictionary,
                    {entry("ACAD_COLOR", Fixture::ColorDictionary),
                     entry("ACAD_GROUP", Fixture::GroupDictionary),
                     entry("ACAD_LAYOUT", Fixture::LayoutDictionary),
                     entry("ACAD_MLINESTYLE", Fixture::MlineStyleDictionary),
                     entry("ACAD_PLOTSETTINGS", Fixture::PlotSettingsDictionary),
                     entry("ACAD_PLOTSTYLENAME", Fixture::PlotStyleDictionary),
                     entry("AcDbVariableDictionary", Fixture::VariableDictionary)});
    if (plan.options().isAtLeast(DrawingVersion::V2013))
        writeEntries(out, {entry("ACAD_MATERIAL", Fixture::MaterialDictionary)});
}

void writePlotStyles(TagWriter& out)
{
    const std::uint64_t dictionary = DrawingPlan::fixture(Fixture::PlotStyleDictionary);
    const std::uint64_t normal = DrawingPlan::fixture(Fixture::PlotStyleNormal);
    beginObject(out, "ACDBDICTIONARYWDFLT", dictionary,
                DrawingPlan::fixture(Fixture::RootDictionary));
    out.subclass("AcDbDictionary");
    out.integer(281, 1);
    writeEntries(out, {{"Normal", normal}});
    out.subclass("AcDbDictionaryWithDefault");
    out.handle(340, normal);
    beginObject(out, "ACDBPLACEHOLDER", normal, dictionary);
}

void writeMaterials(TagWriter& out)
{
    static constexpr struct
    {
        const char* name;
        Fixture fixture;
    } kMaterials[] = {{"ByBlock", Fixture::MaterialByBlock},
                      {"ByLayer", Fixture::MaterialByLayer},
                      {"Global", Fixture::MaterialGlobal}};
    writeDictionary(out, Fixture::MaterialDictionary, {});
    for (const auto& material : kMaterials)
        writeEntries(out, {{material.name, DrawingPlan::fixture(material.fixture)}});
    for (const auto& material : kMaterials) {
        beginObject(out, "MATERIAL", DrawingPlan::fixture(material.fixture),
                    DrawingPlan::fixture(Fixture::MaterialDictionary));
        out.subclass("AcDbMaterial");
        out.text(1, material.name);
    }
}

void writeMlineStyle(TagWriter& out)
{
    const std::uint64_t style = DrawingPlan::fixture(Fixture::MlineStyle);
    writeDictionary(out, Fixture::MlineStyleDictionary, {{"Standard", style}});
    beginObject(out, "MLINESTYLE", style, DrawingPlan::fixture(Fixture::MlineStyleDictionary));
    out.subclass("AcDbMlineStyle");
    out.text(2, "STANDARD");
    out.integer(70, 0);
    out.text(3, "");
    out.integer(62, 256);
    out.real(51, 90);
    out.real(52, 90);
    out.integer(71, 2);
    for (const double offset : {0.5, -0.5}) {
        out.real(49, offset);
        out.integer(62, 256);
        out.text(6, "BYLAYER");
    }
}

void writePlotSettings(TagWriter& out, bool modelTab)
{
    out.subclass("AcDbPlotSettings");
    out.text(1, "");
    out.text(2, "none_device");
    out.text(4, "ISO_A1_(841.00_x_594.00_MM)");
    out.text(6, "");
    for (const int margin : {40, 41, 42, 43})
        out.real(margin, 0);
    out.real(44, 841);
    out.real(45, 594);
    for (const int offset : {46, 47, 48, 49, 140, 141})
        out.real(offset, 0);
    out.real(142, 1);
    out.real(143, 1);
    out.integer(70, modelTab ? 1024 | 688 : 688);
    out.integer(72, 1);
    out.integer(73, 0);
    out.integer(74, 5);
    out.text(7, "");
    out.integer(75, 16);
    out.real(147, 1);
    out.real(148, 0);
    out.real(149, 0);
}

void writeLayout(TagWriter& out, const DrawingPlan& plan, int space)
{
    beginObject(out, "LAYOUT", plan.layout(space), DrawingPlan::fixture(Fixture::LayoutDictionary));
    writePlotSettings(out, space == 0);
    out.subclass("AcDbLayout");
    out.text(1, plan.layoutName(space));
    out.integer(70, 1);
    out.integer(71, space);
    const bool model = space == 0;
    const double width = model ? modelExtent(plan) : 841;
    const double height = model ? modelExtent(plan) : 594;
    out.point(10, 0, 0);
    out.point(11, width, height);
    out.point(12, 0, 0, 0);
    out.point(14, 0, 0, 0);
    out.point(15, width, height, 0);
    out.real(146, 0);
    out.point(13, 0, 0, 0);
    out.point(16, 1, 0, 0);
    out.point(17, 0, 1, 0);
    out.integer(76, 0);
    out.handle(330, plan.blockRecord(space));
    out.handle(331,
               model ? DrawingPlan::fixture(Fixture::VportActive) : plan.sheetEntity(space, 0));
}

void writeLayouts(TagWriter& out, const DrawingPlan& plan)
{
    writeDictionary(out, Fixture::LayoutDictionary, {});
    for (int space = 0; space < plan.spaces(); ++space)
        writeEntries(out, {{plan.layoutName(space), plan.layout(space)}});
    for (int space = 0; space < plan.spaces(); ++space)
        writeLayout(out, plan, space);
}

void writeVariables(TagWriter& out, const DrawingPlan& plan)
{
    static constexpr struct
    {
        const char* name;
        const char* value;
    } kVariables[DrawingPlan::kVariables] = {
        {"LAYEREVAL", "0"}, {"LAYERNOTIFY", "0"}, {"MSLTSCALE", "1"}};
    writeDictionary(out, Fixture::VariableDictionary, {});
    for (int index = 0; index < DrawingPlan::kVariables; ++index)
        writeEntries(out, {{kVariables[index].name, plan.variable(index)}});
    for (int index = 0; index < DrawingPlan::kVariables; ++index) {
        beginObject(out, "DICTIONARYVAR", plan.variable(index),
                    DrawingPlan::fixture(Fixture::VariableDictionary));
        out.subclass("DictionaryVariables");
        out.integer(280, 0);
        out.text(1, kVariables[index].value);
    }
}

} // namespace

void writeObjectsSection(TagWriter& out, const DrawingPlan& plan)
{
    out.record("SECTION");
    out.text(2, "OBJECTS");
    writeRoot(out, plan);
    writeDictionary(out, Fixture::ColorDictionary, {});
    writeDictionary(out, Fixture::GroupDictionary, {});
    writeDictionary(out, Fixture::PlotSettingsDictionary, {});
    writePlotStyles(out);
    writeMlineStyle(out);
    writeLayouts(out, plan);
    writeVariables(out, plan);
    if (plan.options().isAtLeast(DrawingVersion::V2013))
        writeMaterials(out);
    out.record("ENDSEC");
}
