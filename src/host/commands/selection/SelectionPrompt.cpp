#include "host/commands/selection/SelectionPrompt.h"

#include "database/drawing/OdDbDatabase.h"
#include "host/application/HostCore.h"
#include "host/commands/CommandLine.h"
#include "host/commands/KeywordList.h"
#include "host/commands/drawing/PointText.h"
#include "host/text/HostText.h"

namespace {

constexpr const char* kWords[] = {
    QT_TRANSLATE_NOOP("Host", "Window"), QT_TRANSLATE_NOOP("Host", "Crossing"),
    QT_TRANSLATE_NOOP("Host", "ALL"),    QT_TRANSLATE_NOOP("Host", "Last"),
    QT_TRANSLATE_NOOP("Host", "LAyer"),  QT_TRANSLATE_NOOP("Host", "Previous"),
    QT_TRANSLATE_NOOP("Host", "Remove"), QT_TRANSLATE_NOOP("Host", "Add"),
    QT_TRANSLATE_NOOP("Host", "Undo"),
};
enum Word { kWindow, kCrossing, kAll, kLast, kLayer, kPrevious, kRemove, kAdd, kUndo };

QPointF toQt(Vec2 point)
{
    return {point.x, point.y};
}

} // namespace

SelectionPrompt::SelectionPrompt(HostCore& core, HostDocument& document, const Rules& rules)
    : m_core(core)
    , m_document(document)
    , m_rules(rules)
    , m_finder(document, core.frontEnd().view())
{
    if (m_rules.prompt.isEmpty())
        m_rules.prompt = HostText::tr("Select objects:");
    if (m_rules.removePrompt.isEmpty())
        m_rules.removePrompt = HostText::tr("Remove objects:");
}

SelectionPrompt::End SelectionPrompt::run()
{
    if (takePickSet())
        return finish(End::Done);
    m_document.selection().clear();
    for (;;) {
        switch (readOne()) {
        case Step::Again:
            break;
        case Step::Cancelled:
            return finish(m_anyAnswer || m_core.frontEnd().isInteractive() ? End::Cancelled
                                                                           : End::Unasked);
        case Step::Finished:
            return finish(m_document.selection().isEmpty() ? End::None : End::Done);
        }
    }
}

SelectionPrompt::End SelectionPrompt::finish(End end)
{
    if (isGone())
        return End::Cancelled;
    if (end == End::Done) {
        m_entities = m_document.selection().entities();
        if (m_rules.isRemembered)
            m_document.selection().setPrevious(m_entities);
    } else {
        m_document.selection().clear();
    }
    return end;
}

/// What was selected before the command, if the command wants it, its line names nothing else, and
/// something of it fits.
bool SelectionPrompt::takePickSet()
{
    DrawingSelection& selection = m_document.selection();
    if (!m_rules.takesPickSet || selection.isEmpty() || m_core.commands().hasAnswer())
        return false;
    const std::size_t found = selection.size();
    const auto kept =
        SelectionFinder::keep(selection.entities(), m_rules.types, m_rules.takesLocked);
    if (!m_rules.takesMany && kept.entities.size() > 1)
        return false;
    tellCounts(found, kept.entities.size(), kept);
    if (kept.entities.empty())
        return false;
    selection.set(kept.entities);
    return true;
}

std::optional<QString> SelectionPrompt::next(const HostQuestion& question)
{
    if (!m_words.empty()) {
        const QString word = m_words.front();
        m_words.pop_front();
        return word;
    }
    const std::optional<QString> answer = m_core.commands().nextAnswer(question);
    return isGone() ? std::nullopt : answer;
}

/// Outside of any command the drawing may be closed while it is asked about.
bool SelectionPrompt::isGone() const
{
    return !m_core.documents().contains(&m_document);
}

/// Nobody can answer, and the line holds no more: that is its end.
bool SelectionPrompt::isScriptOver() const
{
    return m_words.empty() && !m_core.commands().hasAnswer() && !m_core.frontEnd().isInteractive();
}

SelectionPrompt::Step SelectionPrompt::readOne()
{
    if (isScriptOver())
        return m_anyAnswer ? Step::Finished : Step::Cancelled;
    HostQuestion question(m_isRemoving ? m_rules.removePrompt : m_rules.prompt);
    question.wants = HostQuestion::Wants::Objects;
    if (m_rules.takesKeywords)
        question.keywords = KeywordList(kWords).words();
    const std::optional<QString> answer = next(question);
    if (!answer)
        return Step::Cancelled;
    m_anyAnswer = true;
    const QString text = answer->trimmed();
    if (text.isEmpty())
        return Step::Finished;
    // A person may write several words at once; what a line held comes word by word.
    QStringList words = CommandLine::parse(text).words;
    if (words.size() < 2)
        return take(text);
    const QString first = words.takeFirst();
    m_words.insert(m_words.begin(), words.begin(), words.end());
    return take(first);
}

SelectionPrompt::Step SelectionPrompt::take(const QString& answer)
{
    const int word = m_rules.takesKeywords ? KeywordList(kWords).find(answer).index : -1;
    const Step step = word < 0 ? takePoint(answer) : takeKeyword(word);
    const bool isEnough = step == Step::Again && !m_rules.takesMany && !m_isRemoving
        && !m_document.selection().isEmpty();
    if (!isEnough)
        return step;
    m_isEndedByKeyword = word >= 0;
    return Step::Finished;
}

SelectionPrompt::Step SelectionPrompt::takePoint(const QString& answer)
{
    const auto point = point_text::parse(answer, m_document.lastPoint());
    if (!point) {
        return refuse(HostText::tr("A point or one of %1 is needed; \"%2\" is neither.")
                          .arg(KeywordList(kWords).words().join(QStringLiteral(", ")), answer));
    }
    m_document.setLastPoint(*point);
    const Entities found = m_finder.at(point->plan());
    const bool isFromUser =
        m_words.empty() && !m_core.commands().hasAnswer() && m_core.frontEnd().isInteractive();
    if (!found.empty() || !isFromUser || !m_rules.takesRectangles)
        return use(found);
    const auto corner = askPoint(HostText::tr("Opposite corner:"), point->plan());
    if (!corner)
        return Step::Cancelled;
    const Box2 box = Box2::of(point->plan(), *corner);
    return use(corner->x < point->x ? m_finder.touched(box) : m_finder.inside(box));
}

/// Null when it is cancelled, or missing.
std::optional<Vec2> SelectionPrompt::askPoint(const QString& prompt, std::optional<Vec2> from)
{
    HostQuestion question(prompt);
    question.wants = HostQuestion::Wants::Point;
    if (from)
        question.from = toQt(*from);
    question.isCorner = from.has_value();
    for (;;) {
        const std::optional<QString> answer = next(question);
        if (!answer) {
            if (m_core.frontEnd().isInteractive())
                return std::nullopt;
            throw OdError(
                OdResult::InvalidInput,
                HostText::tr("\"%1\" is asked, and the line holds no answer.").arg(prompt));
        }
        if (const auto point = point_text::parse(*answer, m_document.lastPoint())) {
            m_document.setLastPoint(*point);
            return point->plan();
        }
        refuse(HostText::tr("A point is needed; \"%1\" is none.").arg(*answer));
    }
}

SelectionPrompt::Step SelectionPrompt::takeKeyword(int word)
{
    switch (word) {
    case kWindow:
    case kCrossing:
        return takeBox(word == kCrossing);
    case kAll:
        return use(m_finder.all());
    case kLast:
        return use(m_finder.last());
    case kLayer:
        return takeLayer();
    case kPrevious:
        return use(m_document.selection().previous());
    case kUndo:
        undoStep();
        break;
    default:
        m_isRemoving = word == kRemove;
    }
    return Step::Again;
}

SelectionPrompt::Step SelectionPrompt::takeBox(bool isCrossing)
{
    const auto first = askPoint(HostText::tr("First corner:"), std::nullopt);
    const auto second = first ? askPoint(HostText::tr("Opposite corner:"), *first) : std::nullopt;
    if (!second)
        return Step::Cancelled;
    const Box2 box = Box2::of(*first, *second);
    return use(isCrossing ? m_finder.touched(box) : m_finder.inside(box));
}

SelectionPrompt::Step SelectionPrompt::takeLayer()
{
    const QString prompt = HostText::tr("Name of the layer:");
    if (isScriptOver()) {
        throw OdError(OdResult::InvalidInput,
                      HostText::tr("\"%1\" is asked, and the line holds no answer.").arg(prompt));
    }
    const std::optional<QString> name = next(prompt);
    if (!name)
        return Step::Cancelled;
    if (const auto found = m_finder.onLayer(name->trimmed()))
        return use(*found);
    return refuse(HostText::tr("There is no layer \"%1\".").arg(name->trimmed()));
}

SelectionPrompt::Step SelectionPrompt::use(const Entities& found)
{
    DrawingSelection& selection = m_document.selection();
    m_steps.push_back(selection.entities());
    if (m_isRemoving) {
        const std::size_t removed = selection.remove(found);
        if (m_rules.tellsCounts) {
            tell(HostText::tr("%1 found, %2 removed, %3 total")
                     .arg(found.size())
                     .arg(removed)
                     .arg(selection.size()));
        }
        return Step::Again;
    }
    auto kept = SelectionFinder::keep(found, m_rules.types, m_rules.takesLocked);
    if (!m_rules.takesMany && kept.entities.size() > 1)
        kept.entities.resize(1);
    const std::size_t added = selection.add(kept.entities);
    tellCounts(found.size(), added, kept);
    return Step::Again;
}

void SelectionPrompt::tellCounts(std::size_t found, std::size_t changed,
                                 const SelectionFinder::Kept& kept)
{
    const auto tellOf = [this](std::size_t count, const QString& one, const QString& more) {
        if (count > 0)
            tell(count == 1 ? one : more.arg(count));
    };
    // What a command may not touch is no mere count: it is told in any case.
    if (kept.locked > 0) {
        m_core.frontEnd().print(kept.locked == 1
                                    ? HostText::tr("1 was on a locked layer.")
                                    : HostText::tr("%1 were on locked layers.").arg(kept.locked));
    }
    if (!m_rules.tellsCounts)
        return;
    const std::size_t total = m_document.selection().size();
    const std::size_t twice = kept.entities.size() - std::min(changed, kept.entities.size());
    QString sentence = HostText::tr("%1 found").arg(found);
    if (twice > 0)
        sentence += HostText::tr(" (%1 duplicate)").arg(twice);
    if (total > changed)
        sentence += HostText::tr(", %1 total").arg(total);
    tell(sentence);
    tellOf(kept.otherTypes, HostText::tr("1 was of another type."),
           HostText::tr("%1 were of other types."));
}

void SelectionPrompt::undoStep()
{
    if (m_steps.empty()) {
        tell(HostText::tr("Nothing was selected yet."));
        return;
    }
    m_document.selection().set(m_steps.back());
    m_steps.pop_back();
}

SelectionPrompt::Step SelectionPrompt::refuse(const QString& sentence)
{
    if (!m_core.frontEnd().isInteractive())
        throw OdError(OdResult::InvalidInput, sentence);
    // What was meant to follow has lost its sense.
    m_words.clear();
    m_core.frontEnd().print(sentence);
    return Step::Again;
}

void SelectionPrompt::tell(const QString& sentence)
{
    if (m_core.frontEnd().isInteractive())
        m_core.frontEnd().print(sentence);
}
