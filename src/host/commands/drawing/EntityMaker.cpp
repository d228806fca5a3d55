#include "host/commands/drawing/EntityMaker.h"

#include "base/NumberText.h"
#include "database/drawing/OdDbDatabase.h"
#include "database/store/HeaderVariables.h"
#include "database/tables/OdDbSymbolTable.h"
#include "database/values/GroupList.h"
#include "host/text/LineweightText.h"

#include <QLocale>

#include <algorithm>

namespace {

void appendReal(GroupList& groups, int code, double value)
{
    groups.append(code, QByteArray::number(value, 'g', QLocale::FloatingPointShortest));
}

void appendPoint(GroupList& groups, int code, Vec3 point)
{
    appendReal(groups, code, point.x);
    appendReal(groups, code + 10, point.y);
    appendReal(groups, code + 20, point.z);
}

OdDbObjectId currentSpace(const OdDbDatabase& drawing)
{
    if (drawing.getTILEMODE())
        return drawing.getModelSpaceId();
    const OdDbObjectId sheet = drawing.getPaperSpaceId();
    const std::vector<OdDbObjectId> viewports = drawing.viewportsOf(sheet);
    const bool isInViewport = !viewports.empty() && drawing.activeViewportId() != viewports.front();
    return isInViewport ? drawing.getModelSpaceId() : sheet;
}

bool isLineweight(int weight)
{
    constexpr int kByBlock = -2;
    constexpr int kDefault = -3;
    const auto valid = validLineweights();
    return weight == kByBlock || weight == kDefault
        || std::find(valid.begin(), valid.end(), weight) != valid.end();
}

// What the drawing's settings give to new entities. What is by layer is not written, nor what is
// no such value: a file's header may say anything.
GroupList currentProperties(const OdDbDatabase& drawing)
{
    const HeaderVariables& header = drawing.header();
    constexpr int kByLayerColor = 256;
    constexpr int kByLayerWeight = -1;
    GroupList groups;
    const QString linetype = header.value(QStringLiteral("$CELTYPE"));
    const bool isByLayer = linetype.compare(QLatin1String("ByLayer"), Qt::CaseInsensitive) == 0;
    if (!isByLayer && !drawing.table(OdDbTableKind::Linetype).getAt(linetype).isNull())
        groups.append(6, linetype.toUtf8());
    const int color = header.intValue(QStringLiteral("$CECOLOR"), kByLayerColor);
    if (color >= 0 && color < kByLayerColor)
        groups.append(62, qint64(color));
    const int weight = header.intValue(QStringLiteral("$CELWEIGHT"), kByLayerWeight);
    if (isLineweight(weight))
        groups.append(370, qint64(weight));
    const double scale =
        NumberText::real(header.value(QStringLiteral("$CELTSCALE")).toLatin1()).value_or(1);
    if (scale > 0 && scale <= kLargestCoordinate && scale != 1)
        appendReal(groups, 48, scale);
    return groups;
}

} // namespace

OdDbObjectId EntityMaker::add(const QByteArray& type, const GroupList& groups) const
{
    GroupList all = currentProperties(m_drawing);
    for (const GroupList::Group group : groups)
        all.append(group);
    return m_drawing.addEntity(type, all, currentSpace(m_drawing), m_drawing.getCLAYER());
}

OdDbObjectId EntityMaker::line(Vec3 from, Vec3 to) const
{
    GroupList groups{{100, "AcDbLine"}};
    appendPoint(groups, 10, from);
    appendPoint(groups, 11, to);
    return add("LINE", groups);
}

OdDbObjectId EntityMaker::circle(Vec3 centre, double radius) const
{
    GroupList groups{{100, "AcDbCircle"}};
    appendPoint(groups, 10, centre);
    appendReal(groups, 40, radius);
    return add("CIRCLE", groups);
}

OdDbObjectId EntityMaker::text(Vec3 position, double height, double angle,
                               const QString& text) const
{
    GroupList groups{{100, "AcDbText"}};
    appendPoint(groups, 10, position);
    appendReal(groups, 40, height);
    groups.append(1, text.toUtf8());
    if (angle != 0)
        appendReal(groups, 50, angle);
    groups.append(100, QByteArrayView("AcDbText"));
    return add("TEXT", groups);
}
