#include "layermanager/filters/RowCriterion.h"

namespace {

using Row = LayerFilterRow;
using enum RowCriterion::Kind;
using enum RowCriterion::Quirk;

constexpr RowCriterion kCriteria[] = {
    {QLatin1String("NAME==\""), Text, &Row::m_strName, "", kRunsOn},
    {QLatin1String("OFF==\""), Truth, &Row::m_nOn, "", kFirstIsFalse},
    {QLatin1String("FROZEN==\""), Truth, &Row::m_nFrozen, "Pp", kNone},
    {QLatin1String("LOCKED==\""), Truth, &Row::m_nLocked, "", kNone},
    {QLatin1String("COLOR==\""), Color, &Row::m_nColor, "Pp", kNone},
    {QLatin1String("LINETYPE==\""), Linetype, &Row::m_idLinetype, "Pp", kNone},
    {QLatin1String("LINEWEIGHT==\""), Lineweight, &Row::m_nLineweight, "Pp", kCutsUnit},
    {QLatin1String("PLOTTABLE==\""), Truth, &Row::m_nPlottable, "", kNone},
    {QLatin1String("NEWVPFROZEN==\""), Truth, &Row::m_nNewVpFrozen, "", kNone},
    {QLatin1String("VPFROZEN==\""), Truth, &Row::m_nVpFrozen, "W", kNone},
    {QLatin1String("VPCOLOR==\""), Color, &Row::m_nVpColor, "", kNone},
    {QLatin1String("VPLINETYPE==\""), Linetype, &Row::m_idVpLinetype, "", kNone},
    {QLatin1String("VPLINEWEIGHT==\""), Lineweight, &Row::m_nVpLineweight, "", kNone},
    {QLatin1String("DESC==\""), Text, &Row::m_strDesc, "", kWithoutAnd},
};

} // namespace

std::span<const RowCriterion> RowCriterion::inOrder()
{
    return kCriteria;
}
