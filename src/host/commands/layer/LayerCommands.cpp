#include "host/commands/HostCommand.h"
#include "host/commands/layer/LayerEdit.h"
#include "host/commands/layer/LayerOptions.h"
#include "host/text/HostText.h"

#include <vector>

namespace {
std::vector<LayerOption> allOptions()
{
    std::vector<LayerOption> all;
    for (const auto table :
         {layerTableOptions(), layerFlagOptions(), layerValueOptions(), layerStateOptions()})
        all.insert(all.end(), table.begin(), table.end());
    return all;
}

// What the drawing refuses ends an option, not the command, where a person can go on.
void runOption(const LayerOption& option, LayerEdit& edit)
{
    try {
        option.run(edit);
    } catch (const OdError& error) {
        if (error.code() == OdResult::Cancelled || !edit.run().isInteractive())
            throw;
        edit.run().print(error.description());
    }
}

void layer(const HostCommandRun& run)
{
    static const std::vector<LayerOption> options = allOptions();
    static const std::vector<const char*> words = [] {
        std::vector<const char*> result;
        for (const LayerOption& option : options)
            result.push_back(option.keyword);
        return result;
    }();
    LayerEdit edit(run);
    while (const auto word = run.askKeyword({HostText::tr("Layers"), words}))
        runOption(options[static_cast<std::size_t>(*word)], edit);
    edit.finish();
}

constexpr HostCommandDefinition kCommands[] = {
    {"-LAYER", 0, layer},
};
} // namespace

std::span<const HostCommandDefinition> layerCommands()
{
    return kCommands;
}
