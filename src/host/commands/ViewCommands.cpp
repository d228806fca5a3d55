#include "database/drawing/OdDbDatabase.h"
#include "database/objects/OdDbLayout.h"
#include "host/application/HostCore.h"
#include "host/commands/HostCommand.h"
#include "host/text/HostText.h"
#include "host/text/LayerTableText.h"

namespace {
void layers(const HostCommandRun& run)
{
    int millimetres = 1;
    run.core().sysvars().getInt(QStringLiteral("LWUNITS"), millimetres);
    QString text = layerTableText(*run.document().database(), millimetres != 0);
    text.chop(1); // print() ends the line
    run.print(text);
}

void regen(const HostCommandRun& run)
{
    run.document();
    run.core().frontEnd().regen(false);
}

void regenAll(const HostCommandRun& run)
{
    run.document();
    run.core().frontEnd().regen(true);
}

void model(const HostCommandRun& run)
{
    run.document().database()->setTILEMODE(true);
}

void listLayouts(const HostCommandRun& run)
{
    const OdDbDatabase& drawing = *run.document().database();
    for (const OdDbObjectId id : drawing.layouts()) {
        const auto layout = id.openObject<OdDbLayout>();
        const bool current = id == drawing.currentLayoutId();
        run.print((current ? QStringLiteral("* ") : QStringLiteral("  "))
                  + layout->getLayoutName());
    }
}

void layout(const HostCommandRun& run)
{
    static constexpr const char* kWords[] = {QT_TRANSLATE_NOOP("Host", "Set"), "?"};
    OdDbDatabase& drawing = *run.document().database();
    if (run.askKeyword({HostText::tr("Layout"), kWords, 0}) == 1) {
        listLayouts(run);
        return;
    }
    run.asked(HostText::tr("Layout to make current:"), [&](const QString& name) {
        drawing.setCTAB(name.isEmpty() ? drawing.getCTAB() : name);
        return true;
    });
}

constexpr HostCommandDefinition kCommands[] = {
    {"LAYERS", OdEd::kTransparent | OdEd::kSession, layers},
    {"LAYOUT", 0, layout},
    {"MODEL", 0, model},
    {"REGEN", OdEd::kTransparent | OdEd::kSession, regen},
    {"REGENALL", OdEd::kTransparent | OdEd::kSession, regenAll},
};
} // namespace

std::span<const HostCommandDefinition> viewCommands()
{
    return kCommands;
}
