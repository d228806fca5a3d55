#include "database/values/OdError.h"
#include "host/application/HostCore.h"
#include "host/commands/HostCommand.h"
#include "host/commands/drawing/PointText.h"
#include "host/text/HostText.h"

#include <numbers>

// How host commands ask for points, lengths and angles.

namespace {

[[noreturn]] void refuse(const QString& sentence)
{
    throw OdError(OdResult::InvalidInput, sentence);
}

Vec3 baseOf(const HostQuestion& question, const HostDocument& document)
{
    return question.from ? Vec3{question.from->x(), question.from->y(), 0} : document.lastPoint();
}

Vec2 fromBase(const HostQuestion& question, Vec3 point)
{
    return point.plan() - Vec2{question.from->x(), question.from->y()};
}

/// The question with its words shown.
HostQuestion withWords(const HostQuestion& question, const KeywordList& words)
{
    HostQuestion result = question;
    result.prompt = words.prompt(question.prompt);
    result.keywords = words.words();
    return result;
}

/// A length above 0 as a number, or to a point; null for anything else.
std::optional<double> lengthOf(const QString& given, const HostQuestion& question,
                               const HostDocument& document)
{
    std::optional<double> length = point_text::parseNumber(given);
    const auto to = point_text::parse(given, baseOf(question, document));
    if (!length && to && question.from)
        length = fromBase(question, *to).length();
    return length && *length > 0 ? length : std::nullopt;
}

QString lengthNeeded(const QString& given)
{
    return HostText::tr("A length above 0 is needed; \"%1\" is none.").arg(given);
}

} // namespace

HostCommandRun::PointAnswer HostCommandRun::pointOrWord(const HostQuestion& question,
                                                        Words words) const
{
    const KeywordList keywords(words);
    HostQuestion asks = withWords(question, keywords);
    asks.wants = HostQuestion::Wants::Point;
    return asked(asks, [&](const QString& answer) -> PointAnswer {
        const QString given = answer.trimmed();
        if (given.isEmpty())
            return {};
        if (const auto point = point_text::parse(given, baseOf(question, document()))) {
            document().setLastPoint(*point);
            return {point, -1};
        }
        const int word = keywords.find(given).index;
        if (word < 0)
            refuse(point_text::complaint(given));
        return {std::nullopt, word};
    });
}

Vec3 HostCommandRun::point(const HostQuestion& question) const
{
    HostQuestion asks = withWords(question, KeywordList(Words()));
    asks.wants = HostQuestion::Wants::Point;
    return asked(asks, [&](const QString& given) {
        const auto point = point_text::parse(given, baseOf(question, document()));
        if (!point)
            refuse(point_text::complaint(given));
        document().setLastPoint(*point);
        return *point;
    });
}

std::variant<double, int> HostCommandRun::distanceOrWord(const HostQuestion& question,
                                                         Words words) const
{
    const KeywordList keywords(words);
    HostQuestion asks = withWords(question, keywords);
    asks.wants = question.from ? HostQuestion::Wants::Point : HostQuestion::Wants::Text;
    return asked(asks, [&](const QString& answer) -> std::variant<double, int> {
        const QString given = answer.trimmed();
        if (const auto length = lengthOf(given, question, document()))
            return *length;
        if (const int word = keywords.find(given).index; word >= 0)
            return word;
        refuse(lengthNeeded(given));
    });
}

double HostCommandRun::distance(const HostQuestion& question, std::optional<double> fallback) const
{
    const QString shown = fallback ? QString::number(*fallback) : QString();
    HostQuestion asks = question;
    asks.prompt = KeywordList(Words()).prompt(question.prompt, shown);
    asks.wants = question.from ? HostQuestion::Wants::Point : HostQuestion::Wants::Text;
    return asked(asks, [&](const QString& answer) {
        const QString given = answer.trimmed();
        if (given.isEmpty() && fallback)
            return *fallback;
        const auto length = lengthOf(given, question, document());
        if (!length)
            refuse(lengthNeeded(given));
        return *length;
    });
}

double HostCommandRun::angle(const HostQuestion& question, double fallback) const
{
    HostQuestion asks = question;
    asks.prompt = KeywordList(Words()).prompt(question.prompt, QString::number(fallback));
    asks.wants = question.from ? HostQuestion::Wants::Point : HostQuestion::Wants::Text;
    return asked(asks, [&](const QString& answer) {
        const QString given = answer.trimmed();
        if (given.isEmpty())
            return fallback;
        if (const auto degrees = point_text::parseNumber(given))
            return std::fmod(*degrees, 360);
        const auto to = point_text::parse(given, baseOf(question, document()));
        if (!to || !question.from)
            refuse(HostText::tr("An angle in degrees is needed; \"%1\" is none.").arg(given));
        const Vec2 along = fromBase(question, *to);
        return std::atan2(along.y, along.x) * 180 / std::numbers::pi;
    });
}
