#include "layermanager/filter_editor/CLayPropFilterEdBtn.h"

#include "database/drawing/OdDbDatabase.h"
#include "layermanager/layers/grid/LayerValuePick.h"

namespace {

constexpr int kWhite = 7;
constexpr qint16 kDefaultWeight = -3;

LayerValue startOf(FilterCellEditor editor, const OdDbDatabase& database, qint32 weight)
{
    if (editor == FilterCellEditor::Color)
        return OdCmColor::fromIndex(kWhite);
    if (editor == FilterCellEditor::Linetype)
        return database.getLinetypeContinuousId();
    return weight == LayerFilterRow::kNoLineweight ? kDefaultWeight : static_cast<qint16>(weight);
}

} // namespace

CLayPropFilterEdBtn::CLayPropFilterEdBtn(QWidget* parent)
    : QToolButton(parent)
{
    setObjectName(QStringLiteral("pickButton"));
    setText(QStringLiteral("\u2026"));
    setAccessibleName(tr("Pick a value"));
    setFocusPolicy(Qt::NoFocus);
}

std::optional<CLayPropFilterEdBtn::Picked>
CLayPropFilterEdBtn::pick(FilterCellEditor editor, const OdDbDatabase& database, qint32 weight)
{
    const std::optional<LayerValue> value =
        pickLayerValue(window(), startOf(editor, database, weight));
    if (!value)
        return std::nullopt;
    if (const auto* color = std::get_if<OdCmColor>(&*value))
        return Picked{color->colorIndex(), {}};
    if (const auto* linetype = std::get_if<OdDbObjectId>(&*value))
        return Picked{0, *linetype};
    return Picked{std::get<qint16>(*value), {}};
}
