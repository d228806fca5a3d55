#include "database/OdError.h"
#include "host/application/HostCore.h"
#include "host/application/HostView.h"
#include "host/commands/HostCommand.h"
#include "host/commands/Keywords.h"
#include "host/commands/PointText.h"
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

void refuseFactor(const HostCommandRun& run, const QString& given)
{
    run.refuse(isOfSheet(given)
                   ? HostText::tr("\"%1\" would change the scale of a viewport, which kest cannot "
                                  "do. Use 2 or 2x.")
                         .arg(given)
                   : HostText::tr("A factor above 0 is needed, such as 2 or 0.5x; \"%1\" is none.")
                         .arg(given));
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
    for (;;) {
        const QString given = run.answer(HostText::tr("Factor, or a factor and x:"));
        if (const auto factor = factorOf(given)) {
            scale(run, *factor);
            return;
        }
        refuseFactor(run, given);
    }
}

void centre(const HostCommandRun& run)
{
    const Vec3 middle = run.point(HostText::tr("Center:"));
    HostView* view = run.core().frontEnd().view();
    const double now = view ? view->height() : 1;
    for (;;) {
        const QString prompt = HostText::tr("Height, or a factor and x <%1>:").arg(now);
        const QString given = run.answerOr(prompt, QStringLiteral("1x"));
        if (const auto factor = factorOf(given)) {
            if (view) {
                view->centreOn(middle.plan(),
                               factor->isRelative ? now / factor->value : factor->value);
            }
            return;
        }
        refuseFactor(run, given);
    }
}

void window(const HostCommandRun& run, Vec2 first)
{
    HostQuestion question(HostText::tr("Opposite corner:"));
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

const QStringList& zoomWords()
{
    static const QStringList words = {
        QStringLiteral("All"),      QStringLiteral("Center"), QStringLiteral("Extents"),
        QStringLiteral("Previous"), QStringLiteral("Scale"),  QStringLiteral("Window"),
    };
    return words;
}

void zoomBy(const HostCommandRun& run, const QString& word)
{
    switch (zoomWords().indexOf(word)) {
    case 1:
        centre(run);
        break;
    case 3:
        previous(run);
        break;
    case 4:
        askScale(run);
        break;
    case 5:
        window(run, run.point(HostText::tr("First corner:")).plan());
        break;
    default: // All: model space has no other limits than its extents
        run.core().frontEnd().zoomExtents();
    }
}

void zoom(const HostCommandRun& run)
{
    HostQuestion question(HostText::tr(
        "Corner of a window, a factor, or [All/Center/Extents/Previous/Scale/Window] <Extents>:"));
    question.keywords = zoomWords();
    question.wants = HostQuestion::Wants::Point;
    HostDocument& document = run.document();
    for (;;) {
        const QString given = run.answerOr(question, QStringLiteral("Extents"));
        if (const QString word = keyword(zoomWords(), given); !word.isEmpty())
            return zoomBy(run, word);
        if (const auto factor = factorOf(given))
            return scale(run, *factor);
        if (const auto corner = point_text::parse(given, document.lastPoint()))
            return window(run, corner->plan());
        if (isOfSheet(given)) {
            refuseFactor(run, given);
            continue;
        }
        run.refuse(HostText::tr("ZOOM knows %1, factors and points; \"%2\" is not known.")
                       .arg(zoomWords().join(QStringLiteral(", ")), given));
    }
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
    HostQuestion question(HostText::tr("Base point or displacement, or [Drag] <Drag>:"));
    question.keywords = QStringList{QStringLiteral("Drag")};
    const HostCommandRun::PointAnswer first = run.pointOrWord(question);
    if (!first.point)
        return drag(run);
    Vec2 by = first.point->plan();
    if (run.hasAnswer() || run.isInteractive()) {
        HostQuestion second(HostText::tr("Second point <the first is the displacement>:"));
        second.from = QPointF(by.x, by.y);
        if (const auto to = run.pointOrWord(second).point)
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
