#include "host/commands/layer/LayerEdit.h"

#include "database/drawing/OdDbDatabase.h"
#include "host/application/HostCore.h"
#include "host/text/HostText.h"

namespace {
constexpr int kMostTold = 10;

QString tally(int matched, int changed)
{
    const QString layers =
        matched == 1 ? HostText::tr("%1 layer matched") : HostText::tr("%1 layers matched");
    return layers.arg(matched) + HostText::tr(", %1 changed.").arg(changed);
}
} // namespace

LayerEdit::LayerEdit(const HostCommandRun& run)
    : m_run(run)
    , m_drawing(*run.document().database())
{ }

OdDbObjectId LayerEdit::current() const
{
    return m_drawing.getCLAYER();
}

LayerChoice LayerEdit::layers(const QString& prompt, bool orCurrent)
{
    const auto layer = current().openObject<OdDbLayerTableRecord>();
    const QString fallback = orCurrent && layer ? layer->getName() : QString();
    const QString asks = KeywordList(QStringList()).prompt(prompt, fallback);
    // A script that names no layers means the current one, or has forgotten them.
    const QString list = orCurrent ? m_run.answerOr(asks, {}) : m_run.answer(asks);
    if (list.trimmed().isEmpty())
        return orCurrent ? LayerChoice(current()) : LayerChoice();
    LayerChoice choice(m_drawing, list);
    for (const QString& name : choice.missing())
        refuse(HostText::tr("There is no layer \"%1\".").arg(name), true);
    for (const QString& pattern : choice.unmatched())
        refuse(HostText::tr("No layer matches \"%1\".").arg(pattern), false);
    return choice;
}

QString LayerEdit::name(const QString& prompt) const
{
    return m_run.asked(KeywordList(QStringList()).prompt(prompt), [](const QString& answer) {
        if (answer.trimmed().isEmpty())
            throw OdError(OdResult::InvalidInput, HostText::tr("A name is needed."));
        return answer.trimmed();
    });
}

void LayerEdit::refuse(const QString& sentence, bool isNamed)
{
    if (isNamed && !m_run.isInteractive())
        m_failures << sentence;
    else
        m_run.print(sentence);
}

void LayerEdit::finish() const
{
    if (!m_failures.isEmpty())
        throw OdError(OdResult::NotApplicable, m_failures.join(QLatin1Char(' ')));
}

void LayerEdit::tellRefusals(const QStringList& sentences, int count)
{
    for (const QString& sentence : sentences)
        refuse(sentence, false);
    if (const int untold = count - static_cast<int>(sentences.size()); untold > 0)
        refuse((untold == 1 ? HostText::tr("%1 more layer was left as it is.")
                            : HostText::tr("%1 more layers were left as they are."))
                   .arg(untold),
               false);
}

void LayerEdit::apply(const LayerChoice& choice, const std::function<bool(OdDbObjectId)>& change,
                      const Rule& rule)
{
    if (choice.isEmpty())
        return;
    int changed = 0;
    int refused = 0;
    QStringList sentences;
    const auto refuseOne = [&](const QString& sentence, bool isNamed) {
        if (isNamed) {
            refuse(sentence, true);
        } else if (++refused <= kMostTold && !sentences.contains(sentence)) {
            sentences << sentence;
        }
    };
    for (const LayerChoice::Layer& layer : choice.layers()) {
        try {
            const QString why =
                rule ? rule(*layer.id.safeOpenObject<OdDbLayerTableRecord>()) : QString();
            if (!why.isEmpty())
                refuseOne(why, layer.isNamed);
            else if (change(layer.id))
                ++changed;
        } catch (const OdError& error) {
            refuseOne(error.description(), layer.isNamed);
        }
    }
    tellRefusals(sentences, refused);
    m_run.tell(tally(static_cast<int>(choice.layers().size()), changed));
}

void LayerEdit::change(const LayerChoice& choice, const Change& change, const Rule& rule)
{
    const auto changeOne = [&](OdDbObjectId id) {
        const auto layer = id.safeOpenObject<OdDbLayerTableRecord>(OdDb::kForWrite);
        const LayerState before = layer->state();
        change(*layer);
        return layer->state() != before;
    };
    apply(choice, changeOne, rule);
}
