#include "generator/DrawingPlan.h"
#include "generator/GeneratedLayer.h"
#include "generator/SectionWriters.h"
#include "generator/TagWriter.h"

#include <numeric>
#include <string_view>

namespace {

struct TableHead
{
    const char* name;
    Fixture table;
    int records;
};

/// Opens a table; the records are written between this and endTable().
void beginTable(TagWriter& out, const TableHead& head)
{
    out.record("TABLE");
    out.text(2, head.name);
    out.handle(5, DrawingPlan::fixture(head.table));
    out.handle(330, 0);
    out.subclass("AcDbSymbolTable");
    out.integer(70, head.records);
}

void endTable(TagWriter& out)
{
    out.record("ENDTAB");
}

void beginRecord(TagWriter& out, std::string_view type, std::uint64_t handle, Fixture table)
{
    out.record(type);
    out.handle(type == "DIMSTYLE" ? 105 : 5, handle);
    out.handle(330, DrawingPlan::fixture(table));
    out.subclass("AcDbSymbolTableRecord");
}

void writeViewports(TagWriter& out, const DrawingPlan& plan)
{
    const double centre = modelExtent(plan) / 2;
    beginTable(out, {"VPORT", Fixture::VportTable, 1});
    beginRecord(out, "VPORT", DrawingPlan::fixture(Fixture::VportActive), Fixture::VportTable);
    out.subclass("AcDbViewportTableRecord");
    out.text(2, "*Active");
    out.integer(70, 0);
    out.point(10, 0, 0);
    out.point(11, 1, 1);
    out.point(12, centre, centre);
    out.point(13, 0, 0);
    out.point(14, 10, 10);
    out.point(15, 10, 10);
    out.point(16, 0, 0, 1);
    out.point(17, 0, 0, 0);
    out.real(40, modelExtent(plan) * 1.05);
    out.real(41, 1.6);
    out.real(42, 50);
    out.real(43, 0);
    out.real(44, 0);
    out.real(50, 0);
    out.real(51, 0);
    out.integer(71, 0);
    out.integer(72, 100);
    out.integer(73, 1);
    out.integer(74, 3);
    for (const int code : {75, 76, 77, 78})
        out.integer(code, 0);
    endTable(out);
}

void writeLinetypes(TagWriter& out, const DrawingPlan& plan)
{
    beginTable(out, {"LTYPE", Fixture::LtypeTable, DrawingPlan::kLinetypes});
    for (int index = 0; index < DrawingPlan::kLinetypes; ++index) {
        const GeneratedLinetype& linetype = generatedLinetype(index);
        beginRecord(out, "LTYPE", plan.linetype(index), Fixture::LtypeTable);
        out.subclass("AcDbLinetypeTableRecord");
        out.text(2, linetype.name);
        out.integer(70, 0);
        out.text(3, linetype.description);
        out.integer(72, 65);
        out.integer(73, linetype.dashes);
        const double* const end = linetype.lengths + linetype.dashes;
        out.real(40, std::accumulate(linetype.lengths, end, 0.0, [](double sum, double dash) {
                     return sum + (dash < 0 ? -dash : dash);
                 }));
        for (const double* dash = linetype.lengths; dash != end; ++dash) {
            out.real(49, *dash);
            out.integer(74, 0);
        }
    }
    endTable(out);
}

void writeLayer(TagWriter& out, const DrawingPlan& plan, int index)
{
    const DrawingOptions& options = plan.options();
    const GeneratedLayer layer = generatedLayer(options, index);
    beginRecord(out, "LAYER", plan.layer(index), Fixture::LayerTable);
    out.subclass("AcDbLayerTableRecord");
    out.text(2, layer.name);
    out.integer(70, layer.flags);
    out.integer(62, layer.colourIndex);
    if (layer.trueColour != GeneratedLayer::kNoTrueColour)
        out.integer(420, layer.trueColour);
    out.text(6, generatedLinetype(layer.linetype).name);
    // Written by other programs for the layers that do not plot only.
    if (!layer.plots)
        out.integer(290, 0);
    out.integer(370, layer.lineweight);
    out.handle(390, DrawingPlan::fixture(Fixture::PlotStyleNormal));
    if (options.isAtLeast(DrawingVersion::V2013)) {
        out.handle(347, DrawingPlan::fixture(Fixture::MaterialGlobal));
        out.handle(348, 0);
    }
    if (!layer.description.empty()) {
        out.text(1001, "AcAecLayerStandard");
        out.text(1000, "");
        out.text(1000, layer.description);
    }
    if (layer.transparency != GeneratedLayer::kNoTransparency) {
        out.text(1001, "AcCmTransparency");
        out.integer(1071, layer.transparency);
    }
}

void writeLayers(TagWriter& out, const DrawingPlan& plan)
{
    const int count = plan.options().layers;
    beginTable(out, {"LAYER", Fixture::LayerTable, count});
    for (int index = 0; index < count; ++index)
        writeLayer(out, plan, index);
    endTable(out);
}

void writeStyles(TagWriter& out)
{
    beginTable(out, {"STYLE", Fixture::StyleTable, 1});
    beginRecord(out, "STYLE", DrawingPlan::fixture(Fixture::TextStyle), Fixture::StyleTable);
    out.subclass("AcDbTextStyleTableRecord");
    out.text(2, "Standard");
    out.integer(70, 0);
    out.real(40, 0);
    out.real(41, 1);
    out.real(50, 0);
    out.integer(71, 0);
    out.real(42, 250);
    out.text(3, "txt");
    out.text(4, "");
    endTable(out);
    beginTable(out, {"VIEW", Fixture::ViewTable, 0});
    endTable(out);
    beginTable(out, {"UCS", Fixture::UcsTable, 0});
    endTable(out);
}

void writeAppIds(TagWriter& out, const DrawingPlan& plan)
{
    static constexpr const char* kNames[DrawingPlan::kAppIds] = {"ACAD", "AcAecLayerStandard",
                                                                 "AcCmTransparency"};
    beginTable(out, {"APPID", Fixture::AppIdTable, DrawingPlan::kAppIds});
    for (int index = 0; index < DrawingPlan::kAppIds; ++index) {
        beginRecord(out, "APPID", plan.appId(index), Fixture::AppIdTable);
        out.subclass("AcDbRegAppTableRecord");
        out.text(2, kNames[index]);
        out.integer(70, 0);
    }
    endTable(out);
}

void writeDimStyles(TagWriter& out)
{
    beginTable(out, {"DIMSTYLE", Fixture::DimStyleTable, 1});
    out.subclass("AcDbDimStyleTable");
    out.integer(71, 1);
    beginRecord(out, "DIMSTYLE", DrawingPlan::fixture(Fixture::DimStyle), Fixture::DimStyleTable);
    out.subclass("AcDbDimStyleTableRecord");
    out.text(2, "Standard");
    out.integer(70, 0);
    out.real(40, 1);
    out.real(41, 250);
    out.handle(340, DrawingPlan::fixture(Fixture::TextStyle));
    endTable(out);
}

void writeBlockRecords(TagWriter& out, const DrawingPlan& plan)
{
    beginTable(out, {"BLOCK_RECORD", Fixture::BlockRecordTable, plan.blockRecords()});
    for (int record = 0; record < plan.blockRecords(); ++record) {
        beginRecord(out, "BLOCK_RECORD", plan.blockRecord(record), Fixture::BlockRecordTable);
        out.subclass("AcDbBlockTableRecord");
        out.text(2, plan.blockName(record));
        out.handle(340, record < plan.spaces() ? plan.layout(record) : 0);
        if (plan.options().isAtLeast(DrawingVersion::V2013)) {
            out.integer(70, record < plan.spaces() ? 0 : 4);
            out.integer(280, 1);
            out.integer(281, 0);
        }
    }
    endTable(out);
}

} // namespace

void writeTablesSection(TagWriter& out, const DrawingPlan& plan)
{
    out.record("SECTION");
    out.text(2, "TABLES");
    writeViewports(out, plan);
    writeLinetypes(out, plan);
    writeLayers(out, plan);
    writeStyles(out);
    writeAppIds(out, plan);
    writeDimStyles(out);
    writeBlockRecords(out, plan);
    out.record("ENDSEC");
}
