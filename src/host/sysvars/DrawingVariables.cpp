#include "host/sysvars/DrawingVariables.h"

#include "database/drawing/OdDbDatabase.h"
#include "database/objects/OdDbEntity.h"
#include "database/objects/OdDbLayout.h"
#include "database/store/HeaderVariables.h"
#include "database/tables/OdDbLayerTable.h"
#include "database/tables/OdDbLayerTableRecord.h"
#include "database/tables/OdDbLinetypeTableRecord.h"
#include "host/documents/HostDocument.h"
#include "host/sysvars/DictionaryVariables.h"
#include "host/sysvars/HeaderSysvars.h"
#include "host/text/ColorText.h"
#include "host/text/HostText.h"
#include "host/text/LineweightText.h"

#include <algorithm>

namespace {
constexpr QLatin1String kCecolor("$CECOLOR");
constexpr int kByLayerIndex = 256;

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

SysvarValue clayer(const SysvarContext& context, const SysvarDefinition&)
{
    const auto layer = context.drawing().getCLAYER().openObject<OdDbLayerTableRecord>();
    return layer ? layer->getName() : QString();
}

void setClayer(const SysvarContext& context, const SysvarDefinition&, const SysvarValue& value)
{
    OdDbDatabase& drawing = context.drawing();
    drawing.setCLAYER(layerToMakeCurrent(drawing, std::get<QString>(value)));
}

SysvarValue ctab(const SysvarContext& context, const SysvarDefinition&)
{
    return context.drawing().getCTAB();
}

void setCtab(const SysvarContext& context, const SysvarDefinition&, const SysvarValue& value)
{
    context.drawing().setCTAB(std::get<QString>(value));
}

SysvarValue cvport(const SysvarContext& context, const SysvarDefinition&)
{
    return context.drawing().getCVPORT();
}

void setCvport(const SysvarContext& context, const SysvarDefinition&, const SysvarValue& value)
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

SysvarValue tilemode(const SysvarContext& context, const SysvarDefinition&)
{
    return context.drawing().getTILEMODE() ? 1 : 0;
}

void setTilemode(const SysvarContext& context, const SysvarDefinition&, const SysvarValue& value)
{
    context.drawing().setTILEMODE(std::get<int>(value) != 0);
}

SysvarValue vplayeroverrides(const SysvarContext& context, const SysvarDefinition&)
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

SysvarValue dictionaryInteger(const SysvarContext& context, const SysvarDefinition& row)
{
    return dictionaryVariable(context.drawing(), QLatin1String(row.name),
                              static_cast<int>(row.fallback));
}

void setDictionaryInteger(const SysvarContext& context, const SysvarDefinition& row,
                          const SysvarValue& value)
{
    setDictionaryVariable(context.drawing(), QLatin1String(row.name), std::get<int>(value));
}

SysvarValue cecolor(const SysvarContext& context, const SysvarDefinition&)
{
    const int index = context.drawing().header().intValue(kCecolor, kByLayerIndex);
    return OdCmColor::fromIndex(index).colorNameForDisplay();
}

void setCecolor(const SysvarContext& context, const SysvarDefinition& row, const SysvarValue& value)
{
    const QString& text = std::get<QString>(value);
    const auto is = [&](const char* word) {
        return text.compare(QLatin1String(word), Qt::CaseInsensitive) == 0;
    };
    int index = is("ByBlock") ? 0 : kByLayerIndex;
    if (!is("ByLayer") && !is("ByBlock")) {
        const auto color = colorFromText(text);
        // The header has no place for a true colour.
        if (!color || color->colorMethod() != OdCmColor::kByACI)
            refuse(HostText::tr("%1 takes ByLayer, ByBlock, an index from 1 to 255 or a name from "
                                "red to white; \"%2\" is none.")
                       .arg(QLatin1String(row.name), text),
                   OdResult::InvalidInput);
        index = color->colorIndex();
    }
    context.drawing().setHeaderVariable(kCecolor, row.code, QString::number(index));
}

void setCeltype(const SysvarContext& context, const SysvarDefinition& row, const SysvarValue& value)
{
    const auto id =
        context.drawing().table(OdDbTableKind::Linetype).getAt(std::get<QString>(value));
    const auto linetype = id.openObject<OdDbLinetypeTableRecord>();
    if (!linetype)
        refuse(HostText::tr("The drawing has no linetype \"%1\".").arg(std::get<QString>(value)),
               OdResult::KeyNotFound);
    header_variables::set(context, row, linetype->getName());
}

void setCelweight(const SysvarContext& context, const SysvarDefinition& row,
                  const SysvarValue& value)
{
    const int weight = std::get<int>(value);
    const auto valid = validLineweights();
    if (weight >= 0 && std::find(valid.begin(), valid.end(), weight) == valid.end())
        refuse(HostText::tr("%1 is no lineweight; the nearest one is %2.")
                   .arg(weight)
                   .arg(*lineweightFromText(QString::number(weight / 100.0), true)),
               OdResult::InvalidInput);
    header_variables::set(context, row, value);
}

} // namespace drawing_variables
