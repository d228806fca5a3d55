#pragma once

#include "database/tables/OdDbSymbolTable.h"

#include <vector>

struct LinetypeState
{
    QString name;
    QString description;
    std::vector<double> dashes; ///< drawing units; negative = gap, 0 = dot
    bool dependent = false;
    bool operator==(const LinetypeState&) const = default;
};

/// A linetype: name, description and dash pattern.
class OdDbLinetypeTableRecord : public OdDbStateful<OdDbSymbolTableRecord, LinetypeState>
{
public:
    static constexpr const char* kClassName = "OdDbLinetypeTableRecord";
    static bool isKind(OdDbObjectKind kind) { return kind == OdDbObjectKind::Linetype; }

    OdDbObjectKind kind() const override { return OdDbObjectKind::Linetype; }
    QString getName() const override { return m_state.name; }
    bool isDependent() const override { return m_state.dependent; }
    const QString& comments() const { return m_state.description; }
    const std::vector<double>& dashes() const { return m_state.dashes; }
};
