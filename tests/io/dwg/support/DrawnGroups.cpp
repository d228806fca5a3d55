#include "io/dwg/support/DrawnGroups.h"

#include "database/drawing/OdDbDatabase.h"
#include "database/store/ObjectStore.h"
#include "database/tables/OdDbSymbolTable.h"
#include "database/values/GroupCursor.h"

#include <algorithm>
#include <cmath>

namespace {

/// A group and the value that it has where it is left out.
struct Code
{
    int code;
    double usual = 0;
};

struct Type
{
    const char* name;
    std::vector<Code> codes;
    /// Groups that repeat belong together: their order counts, and none has a usual value.
    std::vector<int> sequence = {};
};

const std::vector<Code> kOfEveryEntity = {{8},   {6},   {48, 1}, {60},  {62, 256}, {370, -1},
                                          {420}, {440}, {210},   {220}, {230, 1},  {39}};

const std::vector<Code> kLine = {{10}, {20}, {30}, {11}, {21}, {31}};
const std::vector<Code> kCorners = {{10}, {20}, {30}, {11}, {21}, {31},
                                    {12}, {22}, {32}, {13}, {23}, {33}};
const std::vector<Code> kText = {{1},  {7},  {10}, {20}, {30},    {11}, {21},
                                 {31}, {40}, {50}, {51}, {41, 1}, {71}, {72}};

std::vector<Code> with(std::vector<Code> codes, std::initializer_list<Code> more)
{
    codes.insert(codes.end(), more);
    return codes;
}

const std::vector<Type> kTypes = {
    {"LINE", kLine},
    {"RAY", kLine},
    {"XLINE", kLine},
    {"POINT", {{10}, {20}, {30}, {50}}},
    {"CIRCLE", {{10}, {20}, {30}, {40}}},
    {"ARC", {{10}, {20}, {30}, {40}, {50}, {51}}},
    {"ELLIPSE", with(kLine, {{40}, {41}, {42}})},
    {"SPLINE", {{71, 3}}, {40, 41, 10, 20, 30}},
    {"LWPOLYLINE", {{38}, {43}, {70}}, {10, 20, 40, 41, 42}},
    {"POLYLINE", {{10}, {20}, {30}, {40}, {41}, {70}, {71}, {72}, {73}, {74}}},
    {"VERTEX", {{10}, {20}, {30}, {40}, {41}, {42}, {70}, {71}, {72}, {73}, {74}}},
    {"SEQEND", {}},
    {"MLINE", {{71}}, {11, 21, 13, 23, 74, 41}},
    {"SOLID", kCorners},
    {"TRACE", kCorners},
    {"3DFACE", with(kCorners, {{70}})},
    {"HATCH", {{30}, {70}, {450}, {421}, {63}}, {91, 92, 93, 72, 73, 74, 94, 95, 96, 97,
                                                 10, 20, 11, 21, 12, 22, 13, 23, 40, 42,
                                                 43, 44, 45, 46, 49, 50, 51, 53}},
    {"IMAGE", with(kCorners, {{280, 1}}), {14, 24}},
    {"WIPEOUT", with(kCorners, {{280, 1}}), {14, 24}},
    {"TEXT", with(kText, {{73}})},
    {"ATTRIB", with(kText, {{2}, {70}, {74}})},
    {"ATTDEF", with(kText, {{2}, {70}, {74}})},
    {"MTEXT",
     {{1}, {7}, {10}, {20}, {30}, {11, 1}, {21}, {31}, {40}, {41}, {44, 1}, {50}, {71, 1}}},
    {"INSERT",
     {{2}, {10}, {20}, {30}, {41, 1}, {42, 1}, {43, 1}, {44}, {45}, {50}, {70, 1}, {71, 1}}},
    {"ACAD_TABLE", {{2}, {10}, {20}, {30}, {11, 1}, {21}, {31}}},
    {"DIMENSION", {{2}, {10}, {20}, {30}, {11}, {21}, {31}, {13}, {23}, {33}, {70}}},
    {"ARC_DIMENSION", {{2}, {10}, {20}, {30}, {11}, {21}, {31}, {13}, {23}, {33}}},
    {"LARGE_RADIAL_DIMENSION", {{2}, {10}, {20}, {30}, {11}, {21}, {31}}},
    {"LEADER", {{72}}, {10, 20, 30}},
    {"MULTILEADER", {}, {300, 301, 302, 303, 304, 305, 10, 20, 11, 21,  12,  22, 13,
                         23,  15,  25,  16,  26,  40,  41, 43, 46, 140, 171, 341}},
    {"TOLERANCE", {{1}, {10}, {20}, {30}, {11, 1}, {21}, {31}}},
    {"VIEWPORT",
     {{10},
      {20},
      {30},
      {40},
      {41},
      {12},
      {22},
      {16},
      {26},
      {36},
      {17},
      {27},
      {37},
      {45},
      {51},
      {68},
      {90},
      {340}}},
};

const Type* typeOf(const QByteArray& name)
{
    const auto found = std::find_if(kTypes.begin(), kTypes.end(),
                                    [&](const Type& type) { return name == type.name; });
    return found == kTypes.end() ? nullptr : &*found;
}

bool isText(int code)
{
    return code < 10 || (code >= 300 && code < 310);
}

bool isHandle(int code)
{
    return code >= 330 && code < 370;
}

bool namesBlock(const QByteArray& type, int code)
{
    return code == 2 && (type == "INSERT" || type == "ACAD_TABLE" || type.endsWith("DIMENSION"));
}

} // namespace

bool DrawnGroups::draws(const QByteArray& type)
{
    return typeOf(type) != nullptr;
}

DrawnGroups::DrawnGroups(const OdDbDatabase& drawing, GroupCursor& cursor, quint32 slot)
    : m_type(drawing.store().typeName(slot))
{
    constexpr int kEmbedded = 101;
    constexpr int kFirstExtended = 1000;
    QString begun; // of a long text, which comes in pieces
    cursor.open(slot);
    while (cursor.next() && cursor.code() < kFirstExtended && cursor.code() != kEmbedded) {
        Value value{cursor.code(), 0, {}};
        if (namesBlock(m_type, value.code)) {
            value.text = cursor.text();
            const OdDbObjectId block = drawing.table(OdDbTableKind::Block).getAt(value.text);
            value.number = static_cast<double>(drawing.store().handle(block.slot()));
        } else if (isText(value.code)) {
            value.text = cursor.text();
        } else if (isHandle(value.code)) {
            value.number = static_cast<double>(cursor.handle());
        } else {
            value.number = cursor.real();
        }
        const bool isPiece = m_type == "MTEXT" && value.code == 3;
        if (isPiece)
            begun += value.text;
        else if (value.code == 1)
            value.text.prepend(std::exchange(begun, {}));
        if (!isPiece)
            m_values.push_back(value);
    }
}

std::vector<DrawnGroups::Value> DrawnGroups::of(int code, double usual) const
{
    const auto found = std::find_if(m_values.begin(), m_values.end(),
                                    [code](const Value& value) { return value.code == code; });
    if (found != m_values.end())
        return {*found};
    return {{code, usual, code == 7 ? QStringLiteral("Standard") : QString()}};
}

bool DrawnGroups::agree(const std::vector<Value>& a, const std::vector<Value>& b)
{
    constexpr double kTolerance = 1e-9;
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](const Value& x, const Value& y) {
        // Blocks without a name of their own are numbered or made anew by some programs.
        if (x.code == 2 && y.code == 2 && x.number != 0 && x.number == y.number)
            return true;
        if (x.code == 2 && y.code == 2)
            return x.text == y.text;
        const double size = std::max({1.0, std::abs(x.number), std::abs(y.number)});
        // Names of layers and linetypes are the same in any case of their letters.
        const Qt::CaseSensitivity letters =
            x.code == 6 || x.code == 7 || x.code == 8 ? Qt::CaseInsensitive : Qt::CaseSensitive;
        return x.code == y.code && std::abs(x.number - y.number) <= kTolerance * size
            && x.text.compare(y.text, letters) == 0;
    });
}

QString DrawnGroups::spelled(const std::vector<Value>& values)
{
    QStringList words;
    for (const Value& value : values)
        words << QStringLiteral("%1=%2%3")
                     .arg(value.code)
                     .arg(value.number, 0, 'g', 12)
                     .arg(value.text);
    return words.join(QLatin1Char(' ')).left(400);
}

std::vector<DrawnGroups::Difference> DrawnGroups::differences(const DrawnGroups& other) const
{
    std::vector<Difference> found;
    const auto compare = [&](int code, const std::vector<Value>& a, const std::vector<Value>& b) {
        if (!agree(a, b))
            found.push_back({code, spelled(a) + QStringLiteral(" | ") + spelled(b)});
    };
    const Type* const type = typeOf(m_type);
    if (!type)
        return found;
    for (const std::vector<Code>* codes : {&kOfEveryEntity, &type->codes}) {
        for (const Code& code : *codes)
            compare(code.code, of(code.code, code.usual), other.of(code.code, code.usual));
    }
    if (type->sequence.empty())
        return found;
    const auto sequence = [type](const std::vector<Value>& all) {
        std::vector<Value> kept;
        for (const Value& value : all) {
            if (std::count(type->sequence.begin(), type->sequence.end(), value.code) > 0)
                kept.push_back(value);
        }
        return kept;
    };
    compare(type->sequence.front(), sequence(m_values), sequence(other.m_values));
    return found;
}
