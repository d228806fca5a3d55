#pragma once

#include "base/WildcardPattern.h"
#include "database/values/OdDbObjectId.h"

#include <functional>
#include <optional>

/// A layer whose name has it belongs to a program and is not listed.
inline constexpr char kHiddenLayerMark = '*';

/// What becomes of a layer in the list.
enum class RowDecision {
    Listed,
    Hidden, ///< it belongs to a program, or is none
    FailsFilter,
    FailsSearch,
};

/// What the list holds: the layers that a filter shows, or those that it does not, whose names
/// match a pattern. A filter that is not set shows all.
class LayerListing
{
public:
    using Filter = std::function<bool(OdDbObjectId)>;

    LayerListing() = default;
    /// An empty pattern and "~" match everything.
    LayerListing(Filter shows, bool inverted, const QString& pattern);

    RowDecision decide(OdDbObjectId layer) const;

private:
    Filter m_shows;
    bool m_inverted = false;
    std::optional<WildcardPattern> m_pattern;
};
