#include "layerman/editing/PropertyTable.h"

#include "host/text/ColorText.h"
#include "host/text/LineweightText.h"
#include "layerman/AbridgedText.h"
#include "layerman/CompanionText.h"
#include "layerman/arguments/NearestName.h"
#include "layerman/arguments/UsageError.h"
#include "layermanager/layers/operations/LayerEdits.h"

#include <algorithm>

namespace {
constexpr PropertyInfo kProperties[] = {
    {"name", "NAME", PropertyKind::Name, LayerColumn::Name,
     QT_TRANSLATE_NOOP("layerman", "Renames the layer; one layer must be chosen.")},
    {"on", "YES", PropertyKind::Flag, LayerColumn::On, QT_TRANSLATE_NOOP("layerman", "On or off.")},
    {"freeze", "YES", PropertyKind::Flag, LayerColumn::Freeze,
     QT_TRANSLATE_NOOP("layerman", "Frozen or thawed.")},
    {"locked", "YES", PropertyKind::Flag, LayerColumn::Locked,
     QT_TRANSLATE_NOOP("layerman", "Locked or unlocked.")},
    {"color", "COLOR", PropertyKind::Color, LayerColumn::Color,
     QT_TRANSLATE_NOOP("layerman", "An index from 1 to 255, a name from red to white, or r,g,b.")},
    {"linetype", "NAME", PropertyKind::Linetype, LayerColumn::Linetype,
     QT_TRANSLATE_NOOP("layerman", "A linetype that the drawing has.")},
    {"lineweight", "WIDTH", PropertyKind::Lineweight, LayerColumn::Lineweight,
     QT_TRANSLATE_NOOP("layerman",
                       "Default or a width in millimetres, or with \" behind it in inches; the "
                       "nearest valid one is taken.")},
    {"plotstyle", "NAME", PropertyKind::PlotStyle, LayerColumn::PlotStyle,
     QT_TRANSLATE_NOOP("layerman", "A plot style of a drawing with named plot styles.")},
    {"plot", "YES", PropertyKind::Flag, LayerColumn::Plot,
     QT_TRANSLATE_NOOP("layerman", "Plotted or not.")},
    {"newvpfreeze", "YES", PropertyKind::Flag, LayerColumn::NewVpFreeze,
     QT_TRANSLATE_NOOP("layerman", "Frozen in new viewports or not.")},
    {"description", "TEXT", PropertyKind::Description, LayerColumn::Description,
     QT_TRANSLATE_NOOP("layerman", "Any text, also none.")},
    {"vpfreeze", "YES", PropertyKind::Flag, LayerColumn::VpFreeze,
     QT_TRANSLATE_NOOP("layerman",
                       "Frozen in the active viewport or not. This and the next four need a "
                       "drawing in which a layout with a viewport is current.")},
    {"vpcolor", "COLOR", PropertyKind::Color, LayerColumn::VpColor,
     QT_TRANSLATE_NOOP("layerman", "The color in the active viewport.")},
    {"vplinetype", "NAME", PropertyKind::Linetype, LayerColumn::VpLinetype,
     QT_TRANSLATE_NOOP("layerman", "The linetype there.")},
    {"vplineweight", "WIDTH", PropertyKind::Lineweight, LayerColumn::VpLineweight,
     QT_TRANSLATE_NOOP("layerman", "The lineweight there.")},
    {"vpplotstyle", "NAME", PropertyKind::PlotStyle, LayerColumn::VpPlotStyle,
     QT_TRANSLATE_NOOP("layerman", "The plot style there.")},
    {"reconciled",
     "YES",
     PropertyKind::Reconciled,
     {},
     QT_TRANSLATE_NOOP("layerman", "Reviewed, or a new layer that wants to be.")},
    {"current",
     "yes",
     PropertyKind::Current,
     {},
     QT_TRANSLATE_NOOP("layerman", "Makes the layer current; one layer must be chosen.")},
};

const PropertyInfo& propertyOf(const QString& operand, const QString& name)
{
    QStringList names;
    for (const PropertyInfo& info : kProperties) {
        if (name.compare(QLatin1String(info.name), Qt::CaseInsensitive) == 0)
            return info;
        names << QLatin1String(info.name);
    }
    throw UsageError(
        CompanionText::tr("There is no property \"%1\"; the nearest is %2. A file of that name "
                          "is written ./%3.")
            .arg(abridged(name), nearest_name::of(name, names).value(0), abridged(operand)));
}

bool yesOrNo(const PropertyInfo& info, const QString& text)
{
    const auto isOneOf = [&](std::initializer_list<const char*> words) {
        return std::any_of(words.begin(), words.end(), [&](const char* word) {
            return text.compare(QLatin1String(word), Qt::CaseInsensitive) == 0;
        });
    };
    if (isOneOf({"yes", "on", "true", "1"}))
        return true;
    if (isOneOf({"no", "off", "false", "0"}))
        return false;
    throw UsageError(
        CompanionText::tr("%1 is yes or no (on, off, true, false, 1, 0); \"%2\" is neither.")
            .arg(QLatin1String(info.name), abridged(text)));
}

LayerValue colorOf(const QString& text)
{
    const auto color = colorFromText(text);
    if (!color)
        throw UsageError(colorRefusal(abridged(text)));
    return *color;
}

LayerValue lineweightOf(const QString& text)
{
    const auto weight = lineweightFromText(text, true);
    if (!weight)
        throw UsageError(lineweightRefusal(abridged(text), true));
    return static_cast<qint16>(*weight);
}

LayerValue nameOf(const QString& text)
{
    if (const QString why = layerNameRefusal(text); !why.isEmpty())
        throw UsageError(why.simplified());
    return text;
}

LayerValue nonEmpty(const PropertyInfo& info, const QString& text)
{
    if (text.isEmpty())
        throw UsageError(CompanionText::tr("%1 needs a value.").arg(QLatin1String(info.name)));
    return text;
}

LayerValue valueOf(const PropertyInfo& info, const QString& text)
{
    switch (info.kind) {
    case PropertyKind::Name:
        return nameOf(text);
    case PropertyKind::Flag:
        // The grid's flag says that the layer is off.
        return yesOrNo(info, text) != (info.column == LayerColumn::On);
    case PropertyKind::Reconciled:
        return yesOrNo(info, text);
    case PropertyKind::Current:
        if (!yesOrNo(info, text))
            throw UsageError(
                CompanionText::tr("current can be yes only: another layer that becomes current "
                                  "takes its place."));
        return true;
    case PropertyKind::Color:
        return colorOf(text);
    case PropertyKind::Lineweight:
        return lineweightOf(text);
    case PropertyKind::Linetype:
    case PropertyKind::PlotStyle:
        return nonEmpty(info, text);
    case PropertyKind::Description:
        break;
    }
    return text;
}
} // namespace

std::span<const PropertyInfo> properties()
{
    return kProperties;
}

bool looksLikeProperty(const QString& operand)
{
    const qsizetype equals = operand.indexOf(QLatin1Char('='));
    return equals > 0 && std::all_of(operand.begin(), operand.begin() + equals, [](QChar c) {
               return c.isLetter();
           });
}

std::vector<PropertyEdit> propertiesFrom(const QStringList& operands)
{
    std::vector<PropertyEdit> edits;
    for (const QString& operand : operands) {
        const qsizetype equals = operand.indexOf(QLatin1Char('='));
        const PropertyInfo& info = propertyOf(operand, operand.left(equals));
        for (const PropertyEdit& other : edits) {
            if (other.info == &info)
                throw UsageError(
                    CompanionText::tr("%1 is given twice.").arg(QLatin1String(info.name)));
        }
        const QString text = operand.mid(equals + 1);
        edits.push_back({&info, text, valueOf(info, text)});
    }
    return edits;
}
