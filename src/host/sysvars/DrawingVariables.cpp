#include "host/sysvars/DrawingVariables.h"

#include "database/HeaderVariables.h"
#include "database/OdDbDatabase.h"
#include "database/OdDbEntity.h"
#include "database/OdDbLayerTable.h"
#include "database/OdDbLayerTableRecord.h"
#include "database/OdDbLayout.h"
#include "host/documents/HostDocument.h"
#include "host/sysvars/DictionaryVariables.h"
#include "host/text/HostText.h"

#include <algorithm>

namespace {
constexpr int kInteger16 = 70; // group code of small header integers
constexpr int kBoolean = 290;

int flag(const SysvarContext& context, const char* name, int fallback)
{
    return context.drawing().header().intValue(QLatin1String(name), fallback) != 0 ? 1 : 0;
}

void setFlag(const SysvarContext& context, const char* name, int code, const SysvarValue& value)
{
    context.drawing().setHeaderVariable(QLatin1String(name), code,
                                        QString::number(std::get<int>(value)));
}

[[noreturn]] void refuse(const QString& sentence, OdResult code = OdResult::NotApplicable)
{
    throw OdError(code, sentence);
}

OdDbObjectId layerToMakeCurrent(const OdDbDatabase& drawing, const QString& name)
{
    const OdDbObjectId id = drawing.layerTable().getAt(name);
    const auto layer = id.openObject<OdDbLayerTableRecord>();
    if (!layer) {
        refuse(HostText::tr("There is no layer \"%1\" in this drawing.").arg(name),
               OdResult::KeyNotFound);
    }
    if (layer->isFrozen())
        refuse(HostText::tr("The layer \"%1\" is frozen and cannot be current.")
                   .arg(layer->getName()));
    if (layer->isDependent()) {
        refuse(
            HostText::tr("The layer \"%1\" belongs to an external reference and cannot be current.")
                .arg(layer->getName()));
    }
    return id;
}
} // namespace

OdDbDatabase& SysvarContext::drawing() const
{
    if (!document || !document->database())
        throw OdError(OdResult::NoDatabase, HostText::tr("There is no drawing open."));
    return *document->database();
}

namespace drawing_variables {

SysvarValue clayer(const SysvarContext& context)
{
    const auto layer = context.drawing().getCLAYER().openObject<OdDbLayerTableRecord>();
    return layer ? layer->getName() : QString();
}

void setClayer(const SysvarContext& context, const SysvarValue& value)
{
    OdDbDatabase& drawing = context.drawing();
    drawing.setCLAYER(layerToMakeCurrent(drawing, std::get<QString>(value)));
}

SysvarValue ctab(const SysvarContext& context)
{
    return context.drawing().getCTAB();
}

void setCtab(const SysvarContext& context, const SysvarValue& value)
{
    context.drawing().setCTAB(std::get<QString>(value));
}

SysvarValue cvport(const SysvarContext& context)
{
    return context.drawing().getCVPORT();
}

void setCvport(const SysvarContext& context, const SysvarValue& value)
{
    OdDbDatabase& drawing = context.drawing();
    const int number = std::get<int>(value);
    if (number == drawing.getCVPORT())
        return;
    const auto layout = drawing.currentLayoutId().openObject<OdDbLayout>();
    const auto viewports =
        layout && !drawing.getTILEMODE() ? layout->getViewportArray() : std::vector<OdDbObjectId>();
    const auto found = std::find_if(viewports.begin(), viewports.end(), [&](OdDbObjectId id) {
        const auto viewport = id.openObject<OdDbViewport>();
        return viewport && viewport->number() == number;
    });
    if (found == viewports.end())
        refuse(HostText::tr("%1 has no viewport %2.").arg(drawing.getCTAB()).arg(number));
    drawing.setActiveViewport(*found);
}

SysvarValue tilemode(const SysvarContext& context)
{
    return context.drawing().getTILEMODE() ? 1 : 0;
}

void setTilemode(const SysvarContext& context, const SysvarValue& value)
{
    context.drawing().setTILEMODE(std::get<int>(value) != 0);
}

SysvarValue lwdisplay(const SysvarContext& context)
{
    return flag(context, "$LWDISPLAY", 0);
}

void setLwdisplay(const SysvarContext& context, const SysvarValue& value)
{
    setFlag(context, "$LWDISPLAY", kBoolean, value);
}

SysvarValue visretain(const SysvarContext& context)
{
    return flag(context, "$VISRETAIN", 1);
}

void setVisretain(const SysvarContext& context, const SysvarValue& value)
{
    setFlag(context, "$VISRETAIN", kInteger16, value);
}

SysvarValue pstylemode(const SysvarContext& context)
{
    return flag(context, "$PSTYLEMODE", 1);
}

SysvarValue vplayeroverrides(const SysvarContext& context)
{
    const OdDbDatabase& drawing = context.drawing();
    const OdDbObjectId viewport = drawing.activeViewportId();
    if (viewport.isNull())
        return 0;
    const auto layers = drawing.layerTable().records();
    const bool any = std::any_of(layers.begin(), layers.end(), [&](OdDbObjectId id) {
        const auto layer = id.openObject<OdDbLayerTableRecord>();
        return layer && layer->hasOverrides(viewport);
    });
    return any ? 1 : 0;
}

SysvarValue layereval(const SysvarContext& context)
{
    return dictionaryVariable(context.drawing(), QStringLiteral("LAYEREVAL"), 0);
}

void setLayereval(const SysvarContext& context, const SysvarValue& value)
{
    setDictionaryVariable(context.drawing(), QStringLiteral("LAYEREVAL"), std::get<int>(value));
}

SysvarValue layernotify(const SysvarContext& context)
{
    return dictionaryVariable(context.drawing(), QStringLiteral("LAYERNOTIFY"), 0);
}

void setLayernotify(const SysvarContext& context, const SysvarValue& value)
{
    setDictionaryVariable(context.drawing(), QStringLiteral("LAYERNOTIFY"), std::get<int>(value));
}

} // namespace drawing_variables
