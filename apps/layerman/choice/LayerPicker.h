#pragma once

#include "base/WildcardPattern.h"
#include "layerman/choice/ExpressionChoice.h"
#include "layermanager/filters/LayersOfFilter.h"

#include <QString>

#include <optional>

class OdDbDatabase;
class ParsedCommand;

/// The layers that were chosen in a drawing.
struct PickedLayers
{
    LayerIds layers; ///< by name, as the grid orders them
    QString note; ///< what is to be told about the choice; mostly empty
};

/// The layers that --filter, --expr, --search and --invert choose.
class LayerPicker
{
public:
    /// Raises UsageError.
    explicit LayerPicker(const ParsedCommand& command);

    /// Whether anything was said about which layers.
    bool isChoosy() const { return m_filter || m_expression || m_search; }
    /// Without filter and expression, layers whose names hold an asterisk are left out, as in the
    /// grid. Raises OdError for a filter or linetype that the drawing has not. A filter of another
    /// program that says more than rows of criteria can shows the layers that the palette shows,
    /// with a note; layers to be changed are not chosen by half an expression, but refused.
    PickedLayers pick(OdDbDatabase& drawing, const QString& file) const;

private:
    LayerIds chosenByFilter(OdDbDatabase& drawing, const QString& file, QString& note) const;
    LayerIds chosenByName(const OdDbDatabase& drawing) const;

    std::optional<QString> m_filter;
    std::optional<ExpressionChoice> m_expression;
    std::optional<WildcardPattern> m_search;
    bool m_isInverted;
    bool m_isForChanges;
};
