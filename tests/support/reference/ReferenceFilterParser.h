#pragma once

#include "layermanager/filters/LayerFilterRow.h"

#include <functional>
#include <optional>

/// Reads filter expressions slowly and plainly, rule by rule, sharing no code with the parser that
/// is compared with it.
class ReferenceFilterParser
{
public:
    using FindLinetype = std::function<OdDbObjectId(const QString& name)>;

    /// `lineweightUnits` is LWUNITS, nothing where it cannot be read.
    ReferenceFilterParser(FindLinetype findLinetype, std::optional<int> lineweightUnits)
        : m_findLinetype(std::move(findLinetype))
        , m_lineweightUnits(lineweightUnits)
    { }

    LayerFilterRows expression(const QString& text) const;
    /// False for an empty text.
    bool row(const QString& text, LayerFilterRows& rows) const;
    qint32 lineweight(const QString& text) const;

private:
    FindLinetype m_findLinetype;
    std::optional<int> m_lineweightUnits;
};
