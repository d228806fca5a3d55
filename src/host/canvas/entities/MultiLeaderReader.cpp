#include "database/values/GroupCursor.h"
#include "host/canvas/entities/EntityReaders.h"
#include "host/canvas/entities/scope/BlockSource.h"
#include "host/canvas/text/PlainText.h"
#include "host/canvas/text/TextExtent.h"

namespace {

// The contents of a multileader are nested: 300 opens them, 302 a leader with its end, 304 a line
// of that leader; 301, 303 and 305 close. The same group codes mean other things in each.
enum class Part { Outside, Contents, Leader, Line };

struct Leader
{
    Vec2 end;
    Vec2 landing;
    double landingLength = 0;
    std::vector<std::vector<Vec2>> lines;
};

struct Contents
{
    QString text;
    double textHeight = 0;
    Vec2 textPlace;
    Vec2 textDirection{1, 0};
    double textWidth = 0;
    int textAlignment = 1;
    double arrowSize = 0;
    quint64 block = 0;
    Vec2 blockPlace;
    Vec2 blockScale{1, 1};
    double blockRotation = 0;
    std::vector<Leader> leaders;
};

void readLeader(GroupCursor& groups, Leader& leader)
{
    switch (groups.code()) {
    case 10:
        leader.end.x = groups.real();
        break;
    case 20:
        leader.end.y = groups.real();
        break;
    case 11:
        leader.landing.x = groups.real();
        break;
    case 21:
        leader.landing.y = groups.real();
        break;
    case 40:
        leader.landingLength = groups.real();
        break;
    default:
        break;
    }
}

void readLine(GroupCursor& groups, std::vector<Vec2>& line)
{
    if (groups.code() == 10)
        line.push_back({groups.real(), 0});
    else if (groups.code() == 20 && !line.empty())
        line.back().y = groups.real();
}

struct RealField
{
    int code;
    double& target;
};

void readContents(GroupCursor& groups, Contents& contents)
{
    const int code = groups.code();
    if (code == 304) {
        contents.text = groups.text();
    } else if (code == 341) {
        contents.block = groups.handle();
    } else if (code == 171) {
        contents.textAlignment = static_cast<int>(groups.integer());
    } else {
        const RealField fields[] = {
            {41, contents.textHeight},      {12, contents.textPlace.x},
            {22, contents.textPlace.y},     {13, contents.textDirection.x},
            {23, contents.textDirection.y}, {43, contents.textWidth},
            {140, contents.arrowSize},      {15, contents.blockPlace.x},
            {25, contents.blockPlace.y},    {16, contents.blockScale.x},
            {26, contents.blockScale.y},    {46, contents.blockRotation},
        };
        for (const RealField& field : fields) {
            if (field.code == code)
                field.target = groups.real();
        }
    }
}

/// Follows the braces; true when the group was one.
bool changePart(int code, QByteArrayView value, Part& part, Contents& contents)
{
    const bool opens = value.trimmed().endsWith('{');
    if (part == Part::Outside && code == 300 && opens) {
        part = Part::Contents;
    } else if (part == Part::Contents && code == 302 && opens) {
        part = Part::Leader;
        contents.leaders.emplace_back();
    } else if (part == Part::Leader && code == 304 && opens) {
        part = Part::Line;
        contents.leaders.back().lines.emplace_back();
    } else if (part == Part::Line && code == 305) {
        part = Part::Leader;
    } else if (part == Part::Leader && code == 303) {
        part = Part::Contents;
    } else if (part == Part::Contents && code == 301) {
        part = Part::Outside;
    } else {
        return false;
    }
    return true;
}

Contents contentsOf(GroupCursor& groups, quint32 slot)
{
    Contents contents;
    Part part = Part::Outside;
    groups.open(slot);
    while (groups.next() && groups.code() < 1000) {
        if (changePart(groups.code(), groups.bytes(), part, contents))
            continue;
        if (part == Part::Contents)
            readContents(groups, contents);
        else if (part == Part::Leader)
            readLeader(groups, contents.leaders.back());
        else if (part == Part::Line)
            readLine(groups, contents.leaders.back().lines.back());
    }
    return contents;
}

void drawArrow(GeometrySink& sink, Vec2 tip, Vec2 towards, double size)
{
    const double length = (towards - tip).length();
    if (!(size > 0) || !(length > 0))
        return;
    const Vec2 back = (towards - tip) * (size / length);
    const Vec2 half = back.left() * (1.0 / 6);
    const std::array<Vec2, 3> corners{tip, tip + back + half, tip + back - half};
    sink.fill(corners);
    sink.setPen(PenTable::kEdge);
    sink.polyline(corners, true);
    sink.setPen(PenTable::kAsStated);
}

void drawLeader(GeometrySink& sink, const Leader& leader, double arrowSize)
{
    for (std::vector<Vec2> line : leader.lines) {
        if (line.empty())
            continue;
        line.push_back(leader.end);
        sink.path(line, false);
        drawArrow(sink, line[0], line[1], arrowSize);
    }
    if (leader.landingLength > 0)
        sink.line(leader.end, leader.end + leader.landing * leader.landingLength);
}

void drawText(EntityScope& scope, const Contents& contents)
{
    constexpr TextSpec::Horizontal kAlignments[] = {
        TextSpec::Horizontal::Left, TextSpec::Horizontal::Centre, TextSpec::Horizontal::Right};
    const QString text = plainMultiLine(contents.text);
    const double length = contents.textDirection.length();
    if (text.trimmed().isEmpty() || !(contents.textHeight > 0) || !(length > 0))
        return;
    TextSpec spec;
    spec.text = text;
    spec.horizontal = kAlignments[std::clamp(contents.textAlignment, 1, 3) - 1];
    spec.vertical = TextSpec::Vertical::Top;
    spec.width = contents.textWidth / contents.textHeight;
    const Box2 extent = estimatedExtent(spec);
    TextItem item;
    item.position = contents.textPlace;
    item.along = contents.textDirection * (contents.textHeight / length);
    item.up = item.along.left();
    item.shape = scope.texts.intern(spec, extent);
    scope.sink.text(item, extent);
}

void drawBlock(EntityScope& scope, const Contents& contents)
{
    BlockInstance instance;
    instance.block = scope.source.blockByHandle(contents.block);
    if (instance.block == kNoIndex)
        return;
    const Vec2 along{std::cos(contents.blockRotation), std::sin(contents.blockRotation)};
    instance.placement.ax = along * contents.blockScale.x;
    instance.placement.ay = along.left() * contents.blockScale.y;
    instance.placement.t = contents.blockPlace;
    scope.sink.instance(instance);
}

} // namespace

bool readMultiLeader(EntityScope& scope)
{
    const Contents contents = contentsOf(scope.cursor, scope.slot);
    for (const Leader& leader : contents.leaders)
        drawLeader(scope.sink, leader, contents.arrowSize);
    drawText(scope, contents);
    if (contents.block != 0)
        drawBlock(scope, contents);
    return scope.sink.hasDrawn();
}
