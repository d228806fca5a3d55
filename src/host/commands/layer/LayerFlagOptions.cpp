#include "database/drawing/OdDbDatabase.h"
#include "host/commands/layer/LayerEdit.h"
#include "host/commands/layer/LayerOptions.h"
#include "host/text/HostText.h"

namespace {
using Record = OdDbLayerTableRecord;

template <void (Record::*set)(bool), bool value>
void change(LayerEdit& edit, const QString& prompt, const LayerEdit::Rule& rule = {})
{
    edit.change(
        edit.layers(prompt), [](Record& layer) { (layer.*set)(value); }, rule);
}

void turnOn(LayerEdit& edit)
{
    change<&Record::setIsOff, false>(edit, HostText::tr("Layers to turn on"));
}

// A person is asked before the current layer goes dark. In a typed line or a script the word Yes or
// No behind the layers is the answer, and without one it is turned off.
bool turnsOffCurrent(const LayerEdit& edit, const LayerChoice& choice)
{
    const HostCommandRun& run = edit.run();
    if (run.takeWord(HostText::tr("Yes")) || run.takeWord(QStringLiteral("_Yes")))
        return true;
    if (run.takeWord(HostText::tr("No")) || run.takeWord(QStringLiteral("_No")))
        return false;
    const auto layer = edit.current().openObject<Record>();
    if (!layer || layer->isOff() || !choice.contains(edit.current()) || run.hasAnswer()
        || !run.isInteractive())
        return true;
    return run.yes(HostText::tr("The layer \"%1\" is current. Turn it off?").arg(layer->getName()),
                   true);
}

void turnOff(LayerEdit& edit)
{
    const LayerChoice choice = edit.layers(HostText::tr("Layers to turn off"));
    const OdDbObjectId kept = turnsOffCurrent(edit, choice) ? OdDbObjectId() : edit.current();
    edit.change(choice, [kept](Record& layer) {
        if (layer.objectId() != kept)
            layer.setIsOff(true);
    });
}

void freeze(LayerEdit& edit)
{
    change<&Record::setIsFrozen, true>(
        edit, HostText::tr("Layers to freeze"), [&edit](const Record& layer) {
            return layer.objectId() == edit.current() && !layer.isFrozen()
                ? HostText::tr("The layer \"%1\" is current and cannot be frozen.")
                      .arg(layer.getName())
                : QString();
        });
}

void thaw(LayerEdit& edit)
{
    change<&Record::setIsFrozen, false>(edit, HostText::tr("Layers to thaw"));
}

void lock(LayerEdit& edit)
{
    change<&Record::setIsLocked, true>(edit, HostText::tr("Layers to lock"));
}

void unlock(LayerEdit& edit)
{
    change<&Record::setIsLocked, false>(edit, HostText::tr("Layers to unlock"));
}

void plot(LayerEdit& edit)
{
    static constexpr const char* kWords[] = {QT_TRANSLATE_NOOP("Host", "Plot"),
                                             QT_TRANSLATE_NOOP("Host", "No")};
    const bool plots =
        edit.run().askKeyword({HostText::tr("Layers are plotted, or not"), kWords, 0}) == 0;
    edit.change(edit.layers(HostText::tr("Layers"), true),
                [plots](Record& layer) { layer.setIsPlottable(plots); });
}

constexpr LayerOption kOptions[] = {
    {QT_TRANSLATE_NOOP("Host", "ON"), turnOn},     {QT_TRANSLATE_NOOP("Host", "OFF"), turnOff},
    {QT_TRANSLATE_NOOP("Host", "Freeze"), freeze}, {QT_TRANSLATE_NOOP("Host", "Thaw"), thaw},
    {QT_TRANSLATE_NOOP("Host", "LOck"), lock},     {QT_TRANSLATE_NOOP("Host", "Unlock"), unlock},
    {QT_TRANSLATE_NOOP("Host", "Plot"), plot},
};
} // namespace

std::span<const LayerOption> layerFlagOptions()
{
    return kOptions;
}
