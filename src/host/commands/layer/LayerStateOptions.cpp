#include "database/drawing/OdDbDatabase.h"
#include "database/states/LayerStateMask.h"
#include "database/states/LayerStates.h"
#include "host/commands/layer/LayerEdit.h"
#include "host/commands/layer/LayerOptions.h"
#include "host/text/HostText.h"

namespace {
void save(LayerStates& states, LayerEdit& edit)
{
    const QString name = edit.name(HostText::tr("Name of the state"));
    if (!states.has(name)) {
        states.add(name, {});
    } else {
        const QString question = HostText::tr("There is a state \"%1\". Replace it?").arg(name);
        if (edit.run().isInteractive() && !edit.run().yes(question, false))
            return;
        states.save(name, LayerStateMask::kAll);
    }
    edit.run().tell(HostText::tr("The state \"%1\" is saved.").arg(name));
}

void restore(LayerStates& states, LayerEdit& edit)
{
    const QString name = edit.name(HostText::tr("State to restore"));
    states.restore(name, {.mask = LayerStateMask::kAll});
    edit.run().tell(HostText::tr("The state \"%1\" is restored.").arg(name));
}

void erase(LayerStates& states, LayerEdit& edit)
{
    const QString name = edit.name(HostText::tr("State to delete"));
    states.remove(name);
    edit.run().tell(HostText::tr("The state \"%1\" is deleted.").arg(name));
}

void list(LayerStates& states, LayerEdit& edit)
{
    const std::vector<LayerStateSummary> all = states.list();
    if (all.empty())
        edit.run().print(HostText::tr("The drawing has no layer states."));
    for (const LayerStateSummary& state : all) {
        edit.run().print(state.description.isEmpty()
                             ? state.name
                             : QStringLiteral("%1  %2").arg(state.name, state.description));
    }
}

void layerState(LayerEdit& edit)
{
    static constexpr const char* kWords[] = {"?", QT_TRANSLATE_NOOP("Host", "Save"),
                                             QT_TRANSLATE_NOOP("Host", "Restore"),
                                             QT_TRANSLATE_NOOP("Host", "Delete")};
    static constexpr void (*kActions[])(LayerStates&, LayerEdit&) = {list, save, restore, erase};
    const auto word = edit.run().askKeyword({HostText::tr("Layer states"), kWords});
    if (!word)
        return;
    LayerStates states(edit.drawing());
    kActions[*word](states, edit);
}

constexpr LayerOption kOptions[] = {
    {QT_TRANSLATE_NOOP("Host", "stAte"), layerState},
};
} // namespace

std::span<const LayerOption> layerStateOptions()
{
    return kOptions;
}
