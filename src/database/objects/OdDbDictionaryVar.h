#pragma once

#include "database/objects/OdDbObject.h"

struct DictionaryVarState
{
    QString value;
    bool operator==(const DictionaryVarState&) const = default;
};

/// A variable of the drawing that lives in its variable dictionary; the value is text.
class OdDbDictionaryVar : public OdDbStateful<OdDbObject, DictionaryVarState>
{
public:
    static constexpr const char* kClassName = "OdDbDictionaryVar";
    static bool isKind(OdDbObjectKind kind) { return kind == OdDbObjectKind::DictionaryVar; }

    OdDbObjectKind kind() const override { return OdDbObjectKind::DictionaryVar; }
    const QString& value() const { return m_state.value; }
    void setValue(const QString& value) { assign(&DictionaryVarState::value, value); }
};
