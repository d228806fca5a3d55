#include "database/drawing/OdDbDatabase.h"
#include "host/application/HostCore.h"
#include "host/commands/HostCommand.h"
#include "host/commands/drawing/EntityMaker.h"
#include "host/text/HostText.h"

namespace {

/// A question for a point, with a line from `from` to the cursor.
HostQuestion pointFrom(const QString& prompt, Vec3 from)
{
    HostQuestion question(prompt);
    question.from = QPointF(from.x, from.y);
    return question;
}

bool mayAsk(const HostCommandRun& run)
{
    return run.hasAnswer() || run.isInteractive();
}

/// The corners of a row of lines so far, and the lines between them.
class LineRow
{
public:
    LineRow(OdDbDatabase& drawing, Vec3 start)
        : m_drawing(drawing)
        , m_corners{start}
    { }

    Vec3 last() const { return m_corners.back(); }
    bool mayClose() const { return m_lines.size() >= 2; }
    bool mayUndo() const { return !m_lines.empty(); }
    void lineTo(Vec3 point)
    {
        m_lines.push_back(EntityMaker(m_drawing).line(last(), point));
        m_corners.push_back(point);
    }
    void close() { lineTo(m_corners.front()); }
    void undo()
    {
        m_drawing.eraseTree(m_lines.back());
        m_lines.pop_back();
        m_corners.pop_back();
    }

private:
    OdDbDatabase& m_drawing;
    std::vector<Vec3> m_corners;
    std::vector<OdDbObjectId> m_lines;
};

/// What is drawn so far stays when the command is cancelled.
void line(const HostCommandRun& run)
{
    static constexpr const char* kWords[] = {QT_TRANSLATE_NOOP("Host", "Undo"),
                                             QT_TRANSLATE_NOOP("Host", "Close")};
    LineRow row(*run.document().database(), run.point(HostText::tr("First point")));
    do {
        const std::size_t words = row.mayClose() ? 2 : row.mayUndo() ? 1 : 0;
        const HostCommandRun::PointAnswer next = run.pointOrWord(
            pointFrom(HostText::tr("Next point"), row.last()), std::span(kWords).first(words));
        if (next.point) {
            row.lineTo(*next.point);
        } else if (next.word == 0) {
            row.undo();
            run.document().setLastPoint(row.last());
        } else {
            if (next.word == 1)
                row.close();
            return;
        }
    } while (mayAsk(run));
}

/// The circle through three points; null where they are in one line.
std::optional<std::pair<Vec2, double>> circleThrough(Vec2 a, Vec2 b, Vec2 c)
{
    const Vec2 ab = b - a;
    const Vec2 ac = c - a;
    const double area = 2 * (ab.x * ac.y - ab.y * ac.x);
    const double abSquare = ab.x * ab.x + ab.y * ab.y;
    const double acSquare = ac.x * ac.x + ac.y * ac.y;
    const Vec2 toCentre{(ac.y * abSquare - ab.y * acSquare) / area,
                        (ab.x * acSquare - ac.x * abSquare) / area};
    if (!isSane(a + toCentre) || !(toCentre.length() > 0))
        return std::nullopt;
    return std::pair{a + toCentre, toCentre.length()};
}

void circleByThreePoints(const HostCommandRun& run)
{
    const Vec3 a = run.point(HostText::tr("First point of the circle"));
    const Vec3 b = run.point(pointFrom(HostText::tr("Second point of the circle"), a));
    const Vec3 c = run.point(pointFrom(HostText::tr("Third point of the circle"), b));
    const auto found = circleThrough(a.plan(), b.plan(), c.plan());
    if (!found) {
        throw OdError(OdResult::InvalidInput,
                      HostText::tr("No circle runs through three points in one line."));
    }
    const auto& [centre, radius] = *found;
    EntityMaker(*run.document().database()).circle({centre.x, centre.y, a.z}, radius);
}

void circleByTwoPoints(const HostCommandRun& run)
{
    const Vec3 a = run.point(HostText::tr("First end of the diameter"));
    const Vec3 b = run.point(pointFrom(HostText::tr("Second end of the diameter"), a));
    const double radius = (b - a).plan().length() / 2;
    if (!(radius > 0)) {
        throw OdError(OdResult::InvalidInput,
                      HostText::tr("The ends of a diameter are two different points."));
    }
    const Vec3 centre = a + (b - a) * 0.5;
    EntityMaker(*run.document().database()).circle(centre, radius);
}

void circleAbout(const HostCommandRun& run, Vec3 centre)
{
    static constexpr const char* kWords[] = {QT_TRANSLATE_NOOP("Host", "Diameter")};
    const auto given = run.distanceOrWord(pointFrom(HostText::tr("Radius"), centre), kWords);
    const double radius = std::holds_alternative<double>(given)
        ? std::get<double>(given)
        : run.distance(pointFrom(HostText::tr("Diameter"), centre)) / 2;
    EntityMaker(*run.document().database()).circle(centre, radius);
}

void circle(const HostCommandRun& run)
{
    static constexpr const char* kWords[] = {QT_TRANSLATE_NOOP("Host", "2P"),
                                             QT_TRANSLATE_NOOP("Host", "3P")};
    run.document();
    const HostCommandRun::PointAnswer answer = run.pointOrWord(HostText::tr("Center"), kWords);
    if (answer.point)
        circleAbout(run, *answer.point);
    else if (answer.word == 0)
        circleByTwoPoints(run);
    else if (answer.word == 1)
        circleByThreePoints(run);
}

void text(const HostCommandRun& run)
{
    OdDbDatabase& drawing = *run.document().database();
    const Vec3 position = run.point(HostText::tr("Start point"));
    double usual = 1;
    run.core().sysvars().getReal(QStringLiteral("TEXTSIZE"), usual);
    const double height = run.distance(pointFrom(HostText::tr("Height"), position), usual);
    const double angle = run.angle(pointFrom(HostText::tr("Rotation in degrees"), position), 0);
    const QString words = run.answer(HostText::tr("Text:"));
    if (!words.trimmed().isEmpty())
        EntityMaker(drawing).text(position, height, angle, words);
}

constexpr HostCommandDefinition kCommands[] = {
    {"CIRCLE", 0, circle},
    {"LINE", 0, line},
    {"TEXT", 0, text},
};

} // namespace

std::span<const HostCommandDefinition> drawCommands()
{
    return kCommands;
}
