#pragma once

#include "base/WildcardPattern.h"
#include "layerman/choice/ExpressionChoice.h"
#include "layermanager/filters/LayersOfFilter.h"

#include <QString>

#include <optional>

class OdDbDatabase;
class OdLyLayerFilter;
class ParsedCommand;

/// The layers that --filter, --expr, --search and --invert choose.
class LayerPicker
{
public:
    /// Raises UsageError.
    explicit LayerPicker(const ParsedCommand& command);

    /// Whether anything was said about which layers.
    bool isChoosy() const { return m_filter || m_expression || m_search; }
    /// The layers of a drawing by name, as the grid orders them. Without filter and expression
    /// those whose names hold an asterisk are left out, as in the grid. Raises OdError for a filter
    /// or linetype that the drawing has not, or a filter that cannot be evaluated.
    LayerIds pick(OdDbDatabase& drawing, const QString& file) const;

    /// Whether a filter's layers can be told. Not those of an expression of another program that
    /// says more than rows of criteria can: part of it would choose other layers.
    static bool canEvaluate(const OdLyLayerFilter& filter);

private:
    LayerIds chosenByFilter(OdDbDatabase& drawing, const QString& file) const;
    LayerIds chosenByName(const OdDbDatabase& drawing) const;

    std::optional<QString> m_filter;
    std::optional<ExpressionChoice> m_expression;
    std::optional<WildcardPattern> m_search;
    bool m_isInverted;
};
