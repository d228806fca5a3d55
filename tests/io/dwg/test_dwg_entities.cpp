#include "database/drawing/OdDbDatabase.h"
#include "database/store/ObjectStore.h"
#include "database/values/GroupCursor.h"
#include "database/values/OdError.h"
#include "io/DrawingFile.h"
#include "io/dwg/groups/RecordGroups.h"
#include "io/dwg/read/DwgCursor.h"
#include "io/dwg/read/DwgObjectSource.h"
#include "io/dwg/support/DrawnGroups.h"
#include "io/dwg/support/NoNames.h"
#include "support/drawings/SharedDrawings.h"

#include <QFileInfo>

#include <gtest/gtest.h>
#include <map>

namespace {

/// One drawing that a program saved in both formats.
struct Twins
{
    const char* dwg;
    const char* dxf;
    int compared; ///< entities at least
};
constexpr Twins kTwins[] = {
    {"LibreDWG+libredwg__example_r14.dwg", "LibreDWG+libredwg__example_r14.dxf", 200},
    {"LibreDWG+libredwg__example_2000.dwg", "LibreDWG+libredwg__example_2000.dxf", 220},
    {"LibreDWG+libredwg__example_2007.dwg", "LibreDWG+libredwg__example_2007.dxf", 220},
    {"DomCR+ACadSharp__sample_AC1018.dwg", "DomCR+ACadSharp__sample_AC1018_ascii.dxf", 330},
    {"DomCR+ACadSharp__sample_AC1032.dwg", "DomCR+ACadSharp__sample_AC1032_ascii.dxf", 330},
    {"AFMD+laoyouts__Screen_print_layout.dwg", "AFMD+laoyouts__Screen_print_layout.dxf", 364},
};

/// What one format tells otherwise than the other.
struct Exception
{
    const char* drawing; ///< part of the name
    quint64 handle;
    int code;
};
constexpr Exception kExceptions[] = {
    // A curve near its points within a tolerance of 1: only the one who made it knows how.
    {"example_r14", 0x894, 40},
    {"example_2000", 0x894, 40},
    {"example_2007", 0x894, 40},
    // The DXF has the sheet itself without a number.
    {"example_2000", 0x84, 68},
    {"example_2007", 0x84, 68},
    // The DXF bends the leader once more, as far before its end as an arrow is long.
    {"sample_AC1018", 0x512, 10},
    {"sample_AC1032", 0x512, 10},
    // There the group tells that the attribute has several lines.
    {"sample_AC1032", 0x796, 71},
    {"sample_AC1032", 0x79D, 71},
    // Newer types that the DXF of R14 has as references to blocks and as an unknown entity.
    {"example_r14", 0x399, 0},
    {"example_r14", 0x4F2, 0},
    {"example_r14", 0x640, 0},
};

bool isException(const QString& drawing, quint64 handle, int code)
{
    for (const Exception& exception : kExceptions) {
        if (drawing.contains(QLatin1String(exception.drawing)) && exception.handle == handle
            && exception.code == code)
            return true;
    }
    return false;
}

class DwgEntityTwins : public ::testing::TestWithParam<Twins>
{ };

TEST_P(DwgEntityTwins, EveryEntityHasTheDrawnGroupsOfItsTwin)
{
    KEST_GTEST_NEEDS_DRAWINGS();
    const QString name = QLatin1String(GetParam().dwg);
    const auto dwg = readDrawing(SharedDrawings::file(name));
    const auto dxf = readDrawing(SharedDrawings::file(QLatin1String(GetParam().dxf)));
    const auto ours = dwg->source()->makeCursor();
    const auto theirs = dxf->source()->makeCursor();
    const ObjectStore& store = dwg->store();
    int compared = 0;
    for (quint32 slot = 0; slot < store.fileRecords(); ++slot) {
        const QByteArray type = store.typeName(slot);
        const quint64 handle = store.handle(slot);
        const OdDbObjectId twin = dxf->getOdDbObjectId(OdDbHandle(handle));
        if (!store.has(slot, ObjectStore::kEntity) || !DrawnGroups::draws(type) || twin.isNull())
            continue;
        SCOPED_TRACE(type.toStdString() + ' ' + QString::number(handle, 16).toStdString());
        if (dxf->store().typeName(twin.slot()) != type) {
            EXPECT_TRUE(isException(name, handle, 0))
                << dxf->store().typeName(twin.slot()).constData();
            continue;
        }
        ++compared;
        const DrawnGroups drawn(*dwg, *ours, slot);
        const DrawnGroups expected(*dxf, *theirs, twin.slot());
        for (const auto& [code, sentence] : drawn.differences(expected)) {
            EXPECT_TRUE(isException(name, handle, code))
                << "group " << code << ": " << sentence.toStdString();
        }
    }
    EXPECT_GE(compared, GetParam().compared);
}

INSTANTIATE_TEST_SUITE_P(Drawings, DwgEntityTwins, ::testing::ValuesIn(kTwins));

/// What a decoder left of its record.
enum class End { Exact, Early, Beyond };

/// `share`: how much of what is the entity's own may be read.
End endOf(const DwgObjectSource& source, DwgRecord& record, GroupSink& groups, double share = 1)
{
    const NoNames names;
    DwgHead head;
    DwgEntityHead entity;
    record.readHead(head, entity);
    record.data.limit(record.data.position()
                      + static_cast<quint64>(static_cast<double>(record.data.left()) * share));
    groups.clear();
    RecordGroups::entity({record, head, entity, names, groups},
                         source.classes().name(record.type()));
    constexpr quint64 kByte = 8;
    return record.hasFailed()                                          ? End::Beyond
        : record.data.left() == 0 && record.handles.left() < 2 * kByte ? End::Exact
                                                                       : End::Early;
}

/// Types of which more stands behind what is read: a viewport's coordinate systems, the cells of a
/// table.
bool isReadInPart(const QByteArray& type)
{
    return type == "VIEWPORT" || type == "ACAD_TABLE";
}

TEST(DwgEntities, EveryRecordIsReadToItsVeryEnd)
{
    KEST_GTEST_NEEDS_DRAWINGS();
    std::map<QByteArray, int> exact;
    for (const QString& path :
         SharedDrawings::files({QStringLiteral("*.dwg"), QStringLiteral("*.dwt")}))
    {
        SCOPED_TRACE(path.toStdString());
        std::unique_ptr<OdDbDatabase> drawing;
        try {
            drawing = readDrawing(path);
        } catch (const OdError&) {
            continue; // of another version
        }
        const auto& source = dynamic_cast<const DwgObjectSource&>(*drawing->source());
        const ObjectStore& store = drawing->store();
        DwgRecord record = source.reader();
        GroupSink groups;
        for (quint32 slot = 0; slot < store.fileRecords(); ++slot) {
            const QByteArray type = store.typeName(slot);
            if (!store.has(slot, ObjectStore::kEntity) || !DrawnGroups::draws(type)
                || !source.open(record, slot))
                continue;
            SCOPED_TRACE(type.toStdString() + ' '
                         + QString::number(store.handle(slot), 16).toStdString());
            const End end = endOf(source, record, groups);
            EXPECT_NE(end, End::Beyond);
            if (end == End::Exact)
                ++exact[type];
            else
                EXPECT_TRUE(isReadInPart(type)) << record.data.left() << " bits left";
        }
    }
    // All these occur in the drawings.
    for (const char* type :
         {"LINE",   "RAY",    "XLINE",      "POINT",         "CIRCLE",      "ARC",      "ELLIPSE",
          "SPLINE", "HATCH",  "LWPOLYLINE", "POLYLINE",      "VERTEX",      "MLINE",    "SOLID",
          "3DFACE", "IMAGE",  "WIPEOUT",    "TEXT",          "ATTRIB",      "ATTDEF",   "MTEXT",
          "INSERT", "LEADER", "DIMENSION",  "ARC_DIMENSION", "MULTILEADER", "TOLERANCE"})
        EXPECT_GT(exact[type], 0) << type;
}

TEST(DwgEntities, TheCursorTellsOfRecordsThatEndTooEarly)
{
    KEST_GTEST_NEEDS_DRAWINGS();
    const auto drawing = readDrawing(SharedDrawings::file(QLatin1String(kTwins[1].dwg)));
    const auto& source = dynamic_cast<const DwgObjectSource&>(*drawing->source());
    const ObjectStore& store = drawing->store();
    DwgCursor cursor(source);
    DwgRecord record = source.reader();
    GroupSink groups;
    int cut = 0;
    for (quint32 slot = 0; slot < store.fileRecords(); ++slot) {
        const QByteArray type = store.typeName(slot);
        if (!store.has(slot, ObjectStore::kEntity) || !DrawnGroups::draws(type))
            continue;
        cursor.open(slot);
        EXPECT_FALSE(cursor.hasFailed()) << type.constData();
        ASSERT_TRUE(source.open(record, slot));
        // Half of what is its own is too little for each; the end of a sequence has nothing.
        if (type == "SEQEND" || isReadInPart(type))
            continue;
        EXPECT_EQ(endOf(source, record, groups, 0.5), End::Beyond) << type.constData();
        ++cut;
    }
    EXPECT_GT(cut, 150);
}

} // namespace
