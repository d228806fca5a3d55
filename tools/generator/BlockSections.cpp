#include "generator/DrawingPlan.h"
#include "generator/EntityWriter.h"
#include "generator/SectionWriters.h"
#include "generator/TagWriter.h"

namespace {

void writeBlockBegin(TagWriter& out, const DrawingPlan& plan, int record)
{
    out.record("BLOCK");
    out.handle(5, plan.blockBegin(record));
    out.handle(330, plan.blockRecord(record));
    out.subclass("AcDbEntity");
    if (record > 0 && record < plan.spaces())
        out.integer(67, 1);
    out.text(8, "0");
    out.subclass("AcDbBlockBegin");
    out.text(2, plan.blockName(record));
    out.integer(70, 0);
    out.point(10, 0, 0, 0);
    out.text(3, plan.blockName(record));
    out.text(1, "");
}

void writeBlockEnd(TagWriter& out, const DrawingPlan& plan, int record)
{
    out.record("ENDBLK");
    out.handle(5, plan.blockEnd(record));
    out.handle(330, plan.blockRecord(record));
    out.subclass("AcDbEntity");
    if (record > 0 && record < plan.spaces())
        out.integer(67, 1);
    out.text(8, "0");
    out.subclass("AcDbBlockEnd");
}

} // namespace

void writeBlocksSection(TagWriter& out, const DrawingPlan& plan)
{
    EntityWriter entities(out, plan);
    out.record("SECTION");
    out.text(2, "BLOCKS");
    for (int record = 0; record < plan.blockRecords(); ++record) {
        writeBlockBegin(out, plan, record);
        // Model space and the sheet that was current last keep their entities in ENTITIES.
        if (record >= plan.spaces())
            entities.writeBlockEntities(record);
        else if (record > 1)
            entities.writeSheetEntities(record);
        writeBlockEnd(out, plan, record);
    }
    out.record("ENDSEC");
}

void writeEntitiesSection(TagWriter& out, const DrawingPlan& plan)
{
    EntityWriter entities(out, plan);
    out.record("SECTION");
    out.text(2, "ENTITIES");
    for (std::int64_t index = 0; index < plan.options().entities; ++index)
        entities.writeModelEntity(index);
    entities.writeSheetEntities(1);
    out.record("ENDSEC");
}
