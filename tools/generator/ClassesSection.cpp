#include "generator/DrawingPlan.h"
#include "generator/SectionWriters.h"
#include "generator/TagWriter.h"

namespace {

struct DrawingClass
{
    const char* record;
    const char* type;
    int flags;
    int instances;
};

} // namespace

void writeClassesSection(TagWriter& out, const DrawingPlan& plan)
{
    const bool newer = plan.options().isAtLeast(DrawingVersion::V2013);
    const DrawingClass classes[] = {
        {"ACDBDICTIONARYWDFLT", "AcDbDictionaryWithDefault", 0, 1},
        {"ACDBPLACEHOLDER", "AcDbPlaceHolder", 0, 1},
        {"DICTIONARYVAR", "AcDbDictionaryVar", 0, DrawingPlan::kVariables},
        {"LAYOUT", "AcDbLayout", 0, plan.spaces()},
        {"MATERIAL", "AcDbMaterial", 1153, newer ? 3 : 0},
    };
    out.record("SECTION");
    out.text(2, "CLASSES");
    for (const DrawingClass& row : classes) {
        out.record("CLASS");
        out.text(1, row.record);
        out.text(2, row.type);
        out.text(3, "ObjectDBX Classes");
        out.integer(90, row.flags);
        if (plan.options().isAtLeast(DrawingVersion::V2004))
            out.integer(91, row.instances);
        out.integer(280, 0);
        out.integer(281, 0);
    }
    out.record("ENDSEC");
}
