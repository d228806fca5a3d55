#include "database/OdError.h"
#include "host/application/HostCore.h"
#include "host/commands/HostCommand.h"
#include "host/commands/Keywords.h"
#include "host/commands/PointText.h"
#include "host/text/HostText.h"

#include <numbers>

// How host commands ask for points, lengths and angles.

namespace {

Vec3 baseOf(const HostQuestion& question, const HostDocument& document)
{
    return question.from ? Vec3{question.from->x(), question.from->y(), 0} : document.lastPoint();
}

QString pointNeeded(const QString& given)
{
    return HostText::tr("A point is needed, such as 10,20 or @5,0 or @5<90; \"%1\" is none.")
        .arg(given);
}

} // namespace

void HostCommandRun::refuse(const QString& sentence) const
{
    if (!isInteractive())
        throw OdError(OdResult::InvalidInput, sentence);
    print(sentence);
}

HostCommandRun::PointAnswer HostCommandRun::pointOrWord(HostQuestion question) const
{
    question.wants = HostQuestion::Wants::Point;
    for (;;) {
        const QString given = answer(question).trimmed();
        if (given.isEmpty())
            return {};
        if (const QString word = keyword(question.keywords, given); !word.isEmpty())
            return {std::nullopt, word};
        if (const auto point = point_text::parse(given, baseOf(question, document()))) {
            document().setLastPoint(*point);
            return {point, {}};
        }
        refuse(pointNeeded(given));
    }
}

Vec3 HostCommandRun::point(const HostQuestion& question) const
{
    for (;;) {
        if (const PointAnswer given = pointOrWord(question); given.point)
            return *given.point;
        refuse(pointNeeded({}));
    }
}

double HostCommandRun::distance(HostQuestion question, std::optional<double> fallback) const
{
    question.wants = question.from ? HostQuestion::Wants::Point : HostQuestion::Wants::Text;
    for (;;) {
        const QString given = answer(question).trimmed();
        if (given.isEmpty() && fallback)
            return *fallback;
        std::optional<double> length = point_text::parseNumber(given);
        if (const auto to = point_text::parse(given, baseOf(question, document()));
            !length && to && question.from)
        {
            length = (to->plan() - Vec2{question.from->x(), question.from->y()}).length();
        }
        if (length && *length > 0)
            return *length;
        refuse(HostText::tr("A length above 0 is needed; \"%1\" is none.").arg(given));
    }
}

double HostCommandRun::angle(HostQuestion question, double fallback) const
{
    question.wants = question.from ? HostQuestion::Wants::Point : HostQuestion::Wants::Text;
    for (;;) {
        const QString given = answer(question).trimmed();
        if (given.isEmpty())
            return fallback;
        if (const auto degrees = point_text::parseNumber(given))
            return std::fmod(*degrees, 360);
        const auto to = point_text::parse(given, baseOf(question, document()));
        if (to && question.from) {
            const Vec2 along = to->plan() - Vec2{question.from->x(), question.from->y()};
            return std::atan2(along.y, along.x) * 180 / std::numbers::pi;
        }
        refuse(HostText::tr("An angle in degrees is needed; \"%1\" is none.").arg(given));
    }
}
