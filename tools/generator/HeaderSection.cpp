#include "generator/DrawingPlan.h"
#include "generator/SectionWriters.h"
#include "generator/TagWriter.h"

#include <string_view>

namespace {

struct TextVariable
{
    const char* name;
    int code;
    const char* value;
};

struct NumberVariable
{
    const char* name;
    int code;
    int value;
};

struct RealVariable
{
    const char* name;
    double value;
};

constexpr TextVariable kTexts[] = {
    {"$TEXTSTYLE", 7, "Standard"}, {"$CLAYER", 8, "0"},          {"$CELTYPE", 6, "ByLayer"},
    {"$DIMSTYLE", 2, "Standard"},  {"$CMLSTYLE", 2, "STANDARD"}, {"$MENU", 1, "."},
};

constexpr NumberVariable kNumbers[] = {
    {"$ORTHOMODE", 70, 0},    {"$REGENMODE", 70, 1},  {"$FILLMODE", 70, 1},
    {"$QTEXTMODE", 70, 0},    {"$MIRRTEXT", 70, 0},   {"$ATTMODE", 70, 1},
    {"$CECOLOR", 62, 256},    {"$LUNITS", 70, 2},     {"$LUPREC", 70, 4},
    {"$AUNITS", 70, 0},       {"$AUPREC", 70, 0},     {"$LIMCHECK", 70, 0},
    {"$PDMODE", 70, 0},       {"$ANGDIR", 70, 0},     {"$TILEMODE", 70, 1},
    {"$MAXACTVP", 70, 64},    {"$PSLTSCALE", 70, 1},  {"$VISRETAIN", 70, 1},
    {"$PLINEGEN", 70, 0},     {"$CMLJUST", 70, 0},    {"$CELWEIGHT", 370, -1},
    {"$ENDCAPS", 280, 0},     {"$JOINSTYLE", 280, 0}, {"$LWDISPLAY", 290, 0},
    {"$INSUNITS", 70, 4},     {"$XEDIT", 290, 1},     {"$CEPSNTYPE", 380, 0},
    {"$PSTYLEMODE", 290, 1},  {"$EXTNAMES", 290, 1},  {"$MEASUREMENT", 70, 1},
    {"$TREEDEPTH", 70, 3020},
};

constexpr RealVariable kReals[] = {
    {"$LTSCALE", 1.0}, {"$TEXTSIZE", 250.0}, {"$TRACEWID", 1.0},
    {"$PDSIZE", 0.0},  {"$CELTSCALE", 1.0},  {"$CMLSCALE", 1.0},
};

void writeIdentity(TagWriter& out, const DrawingPlan& plan)
{
    const bool newest = plan.options().isAtLeast(DrawingVersion::V2018);
    out.text(9, "$ACADVER");
    out.text(1, versionName(plan.options().version));
    out.text(9, "$ACADMAINTVER");
    out.integer(newest ? 90 : 70, 6);
    out.text(9, "$DWGCODEPAGE");
    out.text(3, "ANSI_1252");
}

void writePoint(TagWriter& out, std::string_view name, double xy)
{
    out.text(9, name);
    out.point(10, xy, xy, 0);
}

void writeLimit(TagWriter& out, std::string_view name, double xy)
{
    out.text(9, name);
    out.point(10, xy, xy);
}

} // namespace

void writeHeaderSection(TagWriter& out, const DrawingPlan& plan)
{
    const double extent = modelExtent(plan);
    out.record("SECTION");
    out.text(2, "HEADER");
    writeIdentity(out, plan);
    writePoint(out, "$INSBASE", 0);
    writePoint(out, "$EXTMIN", 0);
    writePoint(out, "$EXTMAX", extent);
    writeLimit(out, "$LIMMIN", 0);
    writeLimit(out, "$LIMMAX", extent);
    for (const NumberVariable& variable : kNumbers) {
        out.text(9, variable.name);
        out.integer(variable.code, variable.value);
    }
    for (const RealVariable& variable : kReals) {
        out.text(9, variable.name);
        out.real(40, variable.value);
    }
    for (const TextVariable& variable : kTexts) {
        out.text(9, variable.name);
        out.text(variable.code, variable.value);
    }
    out.text(9, "$HANDSEED");
    out.handle(5, plan.handleSeed());
    out.record("ENDSEC");
}
