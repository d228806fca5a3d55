#include "database/drawing/OdDbDatabase.h"
#include "host/application/HostCore.h"
#include "host/commands/layer/LayerEdit.h"
#include "host/commands/layer/LayerOptions.h"
#include "host/text/ColorText.h"
#include "host/text/HostText.h"
#include "host/text/LineweightText.h"

namespace {
using Record = OdDbLayerTableRecord;

constexpr int kMostTransparent = 90;

[[noreturn]] void refuseValue(const QString& sentence)
{
    throw OdError(OdResult::InvalidInput, sentence);
}

// Asks for a value and then for the layers that get it; with an empty answer the current one does.
template <class Read, class Write>
void setValue(LayerEdit& edit, const QString& prompt, Read read, Write write)
{
    const auto value = edit.run().asked(KeywordList(QStringList()).prompt(prompt), read);
    edit.change(edit.layers(HostText::tr("Layers"), true),
                [&](Record& layer) { write(layer, value); });
}

void color(LayerEdit& edit)
{
    const auto read = [](const QString& text) {
        const auto color = colorFromText(text);
        if (!color)
            refuseValue(colorRefusal(text));
        return *color;
    };
    setValue(edit, HostText::tr("Color, as an index, a name or r,g,b"), read,
             [](Record& layer, const OdCmColor& value) { layer.setColor(value); });
}

void linetype(LayerEdit& edit)
{
    const auto read = [&edit](const QString& text) {
        const OdDbObjectId id = edit.drawing().table(OdDbTableKind::Linetype).getAt(text.trimmed());
        const bool isNamedValue = text.compare(QLatin1String("ByLayer"), Qt::CaseInsensitive) == 0
            || text.compare(QLatin1String("ByBlock"), Qt::CaseInsensitive) == 0;
        if (id.isNull() || isNamedValue)
            refuseValue(HostText::tr("The drawing has no linetype \"%1\" for layers.").arg(text));
        return id;
    };
    setValue(edit, HostText::tr("Linetype"), read,
             [](Record& layer, OdDbObjectId value) { layer.setLinetypeObjectId(value); });
}

void lineweight(LayerEdit& edit)
{
    int millimetres = 1;
    edit.run().core().sysvars().getInt(QStringLiteral("LWUNITS"), millimetres);
    const auto read = [millimetres](const QString& text) {
        const auto weight = lineweightFromText(text, millimetres != 0);
        if (!weight)
            refuseValue(lineweightRefusal(text, millimetres != 0));
        return static_cast<qint16>(*weight);
    };
    setValue(edit, HostText::tr("Lineweight, or Default"), read,
             [](Record& layer, qint16 value) { layer.setLineWeight(value); });
}

void transparency(LayerEdit& edit)
{
    const auto read = [](const QString& text) {
        bool isNumber = false;
        const int percent = text.trimmed().toInt(&isNumber);
        if (!isNumber || percent < 0 || percent > kMostTransparent)
            refuseValue(HostText::tr("A transparency is an integer from 0 to %1; \"%2\" is none.")
                            .arg(kMostTransparent)
                            .arg(text));
        return Record::transparencyFromPercent(percent);
    };
    setValue(edit, HostText::tr("Transparency in per cent"), read,
             [](Record& layer, quint32 value) { layer.setTransparency(value); });
}

void plotStyle(LayerEdit& edit)
{
    const QString style = edit.name(HostText::tr("Plot style"));
    edit.change(edit.layers(HostText::tr("Layers"), true),
                [&](Record& layer) { layer.setPlotStyleName(style); });
}

void description(LayerEdit& edit)
{
    const QString text = edit.run().answer(HostText::tr("Description:"));
    edit.change(edit.layers(HostText::tr("Layers"), true),
                [&](Record& layer) { layer.setDescription(text); });
}

constexpr LayerOption kOptions[] = {
    {QT_TRANSLATE_NOOP("Host", "Color"), color},
    {QT_TRANSLATE_NOOP("Host", "Ltype"), linetype},
    {QT_TRANSLATE_NOOP("Host", "LWeight"), lineweight},
    {QT_TRANSLATE_NOOP("Host", "TRansparency"), transparency},
    {QT_TRANSLATE_NOOP("Host", "PStyle"), plotStyle},
    {QT_TRANSLATE_NOOP("Host", "Description"), description},
};
} // namespace

std::span<const LayerOption> layerValueOptions()
{
    return kOptions;
}
