#pragma once

#include "database/tables/OdDbSymbolTable.h"

struct NamedRecordState
{
    QString name;
    bool dependent = false;
};

/// A record of a table that this program keeps by name only.
class OdDbNamedRecord : public OdDbStateful<OdDbSymbolTableRecord, NamedRecordState>
{
public:
    static constexpr const char* kClassName = "OdDbNamedRecord";
    static bool isKind(OdDbObjectKind kind) { return kind == OdDbObjectKind::SymbolTableRecord; }

    OdDbObjectKind kind() const override { return OdDbObjectKind::SymbolTableRecord; }
    QString getName() const override { return m_state.name; }
    bool isDependent() const override { return m_state.dependent; }
};

/// An object of a class that this program does not know; the file image keeps its contents.
class OdDbUnknownObject : public OdDbObject
{ };
