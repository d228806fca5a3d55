#include "base/WildcardPattern.h"
#include "database/drawing/OdDbDatabase.h"
#include "database/tables/OdDbLayerTable.h"
#include "host/application/HostCore.h"
#include "host/commands/layer/LayerEdit.h"
#include "host/commands/layer/LayerNames.h"
#include "host/commands/layer/LayerOptions.h"
#include "host/text/HostText.h"
#include "host/text/LayerTableText.h"

namespace {
using Record = OdDbLayerTableRecord;

bool isNamed(const Record& layer, const char* name)
{
    return layer.getName().compare(QLatin1String(name), Qt::CaseInsensitive) == 0;
}

void list(LayerEdit& edit)
{
    const QString answer =
        edit.run().answerOr(HostText::tr("Layers to list <*>:"), QStringLiteral("*"));
    const WildcardPattern pattern(answer);
    int millimetres = 1;
    edit.run().core().sysvars().getInt(QStringLiteral("LWUNITS"), millimetres);
    QString text = layerTableText(edit.drawing(), millimetres != 0, &pattern);
    text.chop(1); // print() ends the line
    edit.run().print(text);
}

// While new layers are evaluated, they wait to be reviewed.
bool isEvaluating(LayerEdit& edit)
{
    int evaluation = 0;
    int isSwitchedOn = 0;
    const HostSysvarManager& sysvars = edit.run().core().sysvars();
    sysvars.getInt(QStringLiteral("LAYEREVAL"), evaluation);
    sysvars.getInt(QStringLiteral("LAYEREVALCTL"), isSwitchedOn);
    return evaluation != 0 && isSwitchedOn != 0;
}

void makeLayer(LayerEdit& edit, const QString& name)
{
    OdDbLayerTable& table = edit.drawing().layerTable();
    const OdDbObjectId id = table.add(name);
    if (!isEvaluating(edit))
        return;
    table.startReconciledBaseline();
    id.safeOpenObject<Record>(OdDb::kForWrite)->setIsReconciled(false);
}

void makeNew(LayerEdit& edit)
{
    const QString prompt = HostText::tr("Names of the new layers:");
    const QStringList names = edit.run().asked(prompt, [](const QString& answer) {
        QStringList result = answer.split(QLatin1Char(','), Qt::SkipEmptyParts);
        for (QString& name : result) {
            name = name.trimmed();
            requireLayerName(name);
        }
        return result;
    });
    int made = 0;
    for (const QString& name : names) {
        if (edit.drawing().layerTable().has(name)) {
            edit.refuse(HostText::tr("There is a layer \"%1\" already.").arg(name), true);
        } else {
            makeLayer(edit, name);
            ++made;
        }
    }
    edit.run().tell(
        (made == 1 ? HostText::tr("%1 layer made.") : HostText::tr("%1 layers made.")).arg(made));
}

void setCurrent(const LayerEdit& edit, const QString& name)
{
    edit.run().core().sysvars().setValue(QStringLiteral("CLAYER"), name);
    edit.run().tell(HostText::tr("The layer \"%1\" is current.").arg(name));
}

void set(LayerEdit& edit)
{
    const HostCommandRun& run = edit.run();
    const QString name = edit.name(HostText::tr("Layer to make current"));
    try {
        setCurrent(edit, name);
    } catch (const OdError& error) {
        if (!run.isInteractive())
            throw;
        run.print(error.description());
    }
}

void make(LayerEdit& edit)
{
    const QString name =
        edit.run().asked(HostText::tr("Layer to make and to make current:"), [](const QString& n) {
            requireLayerName(n.trimmed());
            return n.trimmed();
        });
    if (!edit.drawing().layerTable().has(name))
        makeLayer(edit, name);
    setCurrent(edit, name);
}

OdDbObjectId renamedLayer(LayerEdit& edit)
{
    return edit.run().asked(HostText::tr("Layer to rename:"), [&edit](const QString& answer) {
        const OdDbObjectId id = edit.drawing().layerTable().getAt(answer.trimmed());
        const auto layer = id.openObject<Record>();
        const auto refuse = [](const QString& sentence) {
            throw OdError(OdResult::InvalidInput, sentence);
        };
        if (!layer)
            refuse(HostText::tr("There is no layer \"%1\".").arg(answer));
        if (id == edit.drawing().getLayerZeroId())
            refuse(HostText::tr("Layer 0 cannot be renamed."));
        if (layer->isDependent())
            refuse(HostText::tr("The layer \"%1\" belongs to an external reference and cannot be "
                                "renamed.")
                       .arg(layer->getName()));
        return id;
    });
}

void rename(LayerEdit& edit)
{
    const OdDbObjectId id = renamedLayer(edit);
    const QString name = edit.run().asked(HostText::tr("New name:"), [&](const QString& answer) {
        const QString result = answer.trimmed();
        requireLayerName(result);
        const OdDbObjectId other = edit.drawing().layerTable().getAt(result);
        if (!other.isNull() && other != id)
            throw OdError(OdResult::InvalidInput,
                          HostText::tr("There is a layer \"%1\" already.").arg(result));
        return result;
    });
    const auto layer = id.safeOpenObject<Record>(OdDb::kForWrite);
    const QString before = layer->getName();
    layer->setName(name);
    edit.run().tell(HostText::tr("The layer \"%1\" is named \"%2\".").arg(before, name));
}

QString whyNotErased(const LayerEdit& edit, const Record& layer)
{
    const auto because = [&](const QString& reason) {
        return HostText::tr("The layer \"%1\" cannot be deleted: %2.").arg(layer.getName(), reason);
    };
    if (layer.objectId() == edit.drawing().getLayerZeroId() || isNamed(layer, "Defpoints"))
        return because(HostText::tr("every drawing has it"));
    if (layer.objectId() == edit.current())
        return because(HostText::tr("it is current"));
    if (layer.isDependent())
        return because(HostText::tr("it belongs to an external reference"));
    if (layer.isInUse())
        return because(HostText::tr("objects lie on it"));
    return {};
}

void erase(LayerEdit& edit)
{
    const LayerChoice choice = edit.layers(HostText::tr("Layers to delete"));
    edit.drawing().layerTable().generateUsageData();
    edit.apply(
        choice,
        [](OdDbObjectId id) {
            id.safeOpenObject<Record>(OdDb::kForWrite)->erase(true);
            return true;
        },
        [&edit](const Record& layer) { return whyNotErased(edit, layer); });
}

void reconcile(LayerEdit& edit)
{
    edit.apply(edit.layers(HostText::tr("Layers to reconcile")),
               [](OdDbObjectId id) {
                   if (id.safeOpenObject<Record>()->isReconciled())
                       return false;
                   id.safeOpenObject<Record>(OdDb::kForWrite)->setIsReconciled(true);
                   return true;
               },
               {});
}

constexpr LayerOption kOptions[] = {
    {"?", list},
    {QT_TRANSLATE_NOOP("Host", "New"), makeNew},
    {QT_TRANSLATE_NOOP("Host", "Make"), make},
    {QT_TRANSLATE_NOOP("Host", "Set"), set},
    {QT_TRANSLATE_NOOP("Host", "Rename"), rename},
    {QT_TRANSLATE_NOOP("Host", "DELete"), erase},
    {QT_TRANSLATE_NOOP("Host", "REConcile"), reconcile},
};
} // namespace

std::span<const LayerOption> layerTableOptions()
{
    return kOptions;
}
