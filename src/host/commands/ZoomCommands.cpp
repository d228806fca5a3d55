#include "database/values/OdError.h"
#include "host/application/HostCore.h"
#include "host/application/HostView.h"
#include "host/commands/HostCommand.h"
#include "host/commands/drawing/PointText.h"
#include "host/text/HostText.h"

#include <QScopeGuard>

namespace {

/// "2x" is relative to what is seen, "2" to everything.
struct Factor
{
    double value = 1;
    bool isRelative = false;
};

std::optional<Factor> factorOf(const QString& text)
{
    Factor factor;
    QString number = text.trimmed();
    factor.isRelative = number.endsWith(QLatin1Char('x'), Qt::CaseInsensitive);
    if (factor.isRelative)
        number.chop(1);
    const auto value = point_text::parseNumber(number);
    if (!value || !(*value > 0))
        return std::nullopt;
    factor.value = *value;
    return factor;
}

bool isOfSheet(const QString& text)
{
    return text.trimmed().endsWith(QLatin1String("xp"), Qt::CaseInsensitive);
}

QString factorNeeded(const QString& given)
{
    return isOfSheet(given)
        ? HostText::tr(
              "\"%1\" would change the scale of a viewport, which kest cannot do. Use 2 or "
              "2x.")
              .arg(given)
        : HostText::tr("A factor above 0 is needed, such as 2 or 0.5x; \"%1\" is none.").arg(given);
}

Factor readFactor(const QString& given)
{
    const auto factor = factorOf(given);
    if (!factor)
        throw OdError(OdResult::InvalidInput, factorNeeded(given));
    return *factor;
}

// Where no window shows the drawing, as in a script, answers are read and nothing is to be seen.
void scale(const HostCommandRun& run, Factor factor)
{
    HostView* view = run.core().frontEnd().view();
    if (!view)
        return;
    if (factor.isRelative)
        view->centreOn(view->centre(), view->height() / factor.value);
    else
        view->showAll(factor.value);
}

void askScale(const HostCommandRun& run)
{
    scale(run, run.asked(HostText::tr("Factor, or a factor and x:"), readFactor));
}

void centre(const HostCommandRun& run)
{
    const Vec3 middle = run.point(HostText::tr("Center"));
    HostView* view = run.core().frontEnd().view();
    const double now = view ? view->height() : 1;
    Factor factor{1, true};
    if (run.hasAnswer() || run.isInteractive()) {
        const QString prompt = HostText::tr("Height, or a factor and x <%1>:").arg(now);
        factor = run.asked(prompt, [](const QString& given) {
            return given.trimmed().isEmpty() ? Factor{1, true} : readFactor(given);
        });
    }
    if (view)
        view->centreOn(middle.plan(), factor.isRelative ? now / factor.value : factor.value);
}

void window(const HostCommandRun& run, Vec2 first)
{
    HostQuestion question(HostText::tr("Opposite corner"));
    question.from = QPointF(first.x, first.y);
    question.isCorner = true;
    const Vec2 second = run.point(question).plan();
    if (HostView* view = run.core().frontEnd().view())
        view->showBox(Box2::of(first, second));
}

void previous(const HostCommandRun& run)
{
    HostView* view = run.core().frontEnd().view();
    if (view && !view->showPrevious())
        throw OdError(OdResult::NotApplicable, HostText::tr("There is no view before this one."));
}

constexpr const char* kZoomWords[] = {
    QT_TRANSLATE_NOOP("Host", "All"),     QT_TRANSLATE_NOOP("Host", "Center"),
    QT_TRANSLATE_NOOP("Host", "Extents"), QT_TRANSLATE_NOOP("Host", "Previous"),
    QT_TRANSLATE_NOOP("Host", "Scale"),   QT_TRANSLATE_NOOP("Host", "Window"),
};
enum ZoomWord { kAll, kCentre, kExtents, kPrevious, kScale, kWindow };

void zoomBy(const HostCommandRun& run, int word)
{
    switch (word) {
    case kCentre:
        return centre(run);
    case kPrevious:
        return previous(run);
    case kScale:
        return askScale(run);
    case kWindow:
        return window(run, run.point(HostText::tr("First corner")).plan());
    default: // All: model space has no other limits than its extents
        run.core().frontEnd().zoomExtents();
    }
}

/// A word, a factor, or the first corner of a window.
using ZoomAnswer = std::variant<int, Factor, Vec2>;

ZoomAnswer readZoom(const QString& given, const KeywordList& words, Vec3 base)
{
    if (given.isEmpty())
        return int(kExtents);
    if (const int word = words.find(given).index; word >= 0)
        return word;
    if (const auto factor = factorOf(given))
        return *factor;
    if (const auto corner = point_text::parse(given, base))
        return corner->plan();
    if (isOfSheet(given))
        throw OdError(OdResult::InvalidInput, factorNeeded(given));
    throw OdError(OdResult::InvalidInput,
                  HostText::tr("ZOOM knows %1, factors and points; \"%2\" is not known.")
                      .arg(words.words().join(QStringLiteral(", ")), given));
}

void zoom(const HostCommandRun& run)
{
    HostDocument& document = run.document();
    const KeywordList words(kZoomWords);
    HostQuestion question(
        words.prompt(HostText::tr("Corner of a window, a factor, or"), words.words().at(kExtents)));
    question.keywords = words.words();
    question.wants = HostQuestion::Wants::Point;
    ZoomAnswer answer = int(kExtents);
    if (run.hasAnswer() || run.isInteractive()) {
        answer = run.asked(question, [&](const QString& given) {
            return readZoom(given.trimmed(), words, document.lastPoint());
        });
    }
    if (const int* word = std::get_if<int>(&answer))
        zoomBy(run, *word);
    else if (const Factor* factor = std::get_if<Factor>(&answer))
        scale(run, *factor);
    else
        window(run, std::get<Vec2>(answer));
}

void drag(const HostCommandRun& run)
{
    HostView* view = run.core().frontEnd().view();
    if (!view)
        return;
    view->setDragging(true);
    // The window may show another drawing by then, or none.
    const auto leave = qScopeGuard([&run] {
        if (HostView* now = run.core().frontEnd().view())
            now->setDragging(false);
    });
    run.answer(HostText::tr("Drag with the left button; Enter ends:"));
}

void pan(const HostCommandRun& run)
{
    static constexpr const char* kWords[] = {QT_TRANSLATE_NOOP("Host", "Drag")};
    const HostCommandRun::PointAnswer first =
        run.pointOrWord(HostText::tr("Base point or displacement, or Enter to drag"), kWords);
    if (!first.point)
        return drag(run);
    Vec2 by = first.point->plan();
    if (run.hasAnswer() || run.isInteractive()) {
        HostQuestion second(
            HostText::tr("Second point, or Enter where the first is the displacement"));
        second.from = QPointF(by.x, by.y);
        if (const auto to = run.pointOrWord(second, {}).point)
            by = to->plan() - by;
    }
    if (HostView* view = run.core().frontEnd().view())
        view->centreOn(view->centre() - by, view->height());
}

constexpr HostCommandDefinition kCommands[] = {
    {"PAN", OdEd::kTransparent | OdEd::kSession, pan},
    {"ZOOM", OdEd::kTransparent | OdEd::kSession, zoom},
};

} // namespace

std::span<const HostCommandDefinition> zoomCommands()
{
    return kCommands;
}
