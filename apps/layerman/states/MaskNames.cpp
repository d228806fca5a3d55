#include "layerman/states/MaskNames.h"

#include "database/states/LayerStateMask.h"
#include "layerman/AbridgedText.h"
#include "layerman/CompanionText.h"
#include "layerman/arguments/NearestName.h"
#include "layerman/arguments/UsageError.h"

#include <QStringList>

#include <algorithm>

namespace {
constexpr MaskName kNames[] = {
    {LayerStateMask::kOn, "on", QT_TRANSLATE_NOOP("layerman", "On or off.")},
    {LayerStateMask::kFrozen, "freeze", QT_TRANSLATE_NOOP("layerman", "Frozen or thawed.")},
    {LayerStateMask::kLocked, "locked", QT_TRANSLATE_NOOP("layerman", "Locked or unlocked.")},
    {LayerStateMask::kPlot, "plot", QT_TRANSLATE_NOOP("layerman", "Plotted or not.")},
    {LayerStateMask::kNewViewportFrozen, "newvpfreeze",
     QT_TRANSLATE_NOOP("layerman", "Frozen in new viewports or not.")},
    {LayerStateMask::kColor, "color", QT_TRANSLATE_NOOP("layerman", "The color.")},
    {LayerStateMask::kLinetype, "linetype", QT_TRANSLATE_NOOP("layerman", "The linetype.")},
    {LayerStateMask::kLineWeight, "lineweight", QT_TRANSLATE_NOOP("layerman", "The lineweight.")},
    {LayerStateMask::kPlotStyle, "plotstyle", QT_TRANSLATE_NOOP("layerman", "The plot style.")},
    {LayerStateMask::kViewportFrozen, "vpfreeze",
     QT_TRANSLATE_NOOP("layerman", "Frozen in the active viewport or not.")},
    {LayerStateMask::kTransparency, "transparency",
     QT_TRANSLATE_NOOP("layerman", "The transparency.")},
};
const QLatin1String kAll("all");
const QLatin1String kNone("none");

bool isSame(const QString& text, QLatin1String name)
{
    return text.compare(name, Qt::CaseInsensitive) == 0;
}

int bitOf(const QString& name)
{
    QStringList names;
    for (const MaskName& known : kNames) {
        if (isSame(name, QLatin1String(known.name)))
            return known.bit;
        names << QLatin1String(known.name);
    }
    names << kAll << kNone;
    throw UsageError(CompanionText::tr("A state has no property \"%1\"; the nearest is %2.")
                         .arg(abridged(name), nearest_name::of(name, names).value(0)));
}
} // namespace

std::span<const MaskName> maskNames()
{
    return kNames;
}

int maskFrom(const QString& text)
{
    if (isSame(text.trimmed(), kAll))
        return LayerStateMask::kAll;
    if (isSame(text.trimmed(), kNone))
        return 0;
    int mask = 0;
    for (const QString& name : text.split(QLatin1Char(',')))
        mask |= bitOf(name.trimmed());
    return mask;
}

QString maskText(int mask)
{
    if ((mask & LayerStateMask::kAll) == LayerStateMask::kAll)
        return kAll;
    QStringList names;
    for (const MaskName& known : kNames) {
        if ((mask & known.bit) != 0)
            names << QLatin1String(known.name);
    }
    return names.isEmpty() ? QString(kNone) : names.join(QLatin1Char(','));
}
