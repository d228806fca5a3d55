#pragma once

#include "database/OdDbObject.h"

#include <vector>

struct DictionaryEntry
{
    QString key;
    OdDbObjectId value;
};

struct DictionaryState
{
    std::vector<DictionaryEntry> entries;
    bool treatElementsAsHard = false;
};

/// A dictionary: entries in file order, keys compared without case.
class OdDbDictionary : public OdDbStateful<OdDbObject, DictionaryState>
{
public:
    static constexpr const char* kClassName = "OdDbDictionary";
    static bool isKind(OdDbObjectKind kind) { return kind == OdDbObjectKind::Dictionary; }

    OdDbObjectKind kind() const override { return OdDbObjectKind::Dictionary; }
    OdDbObjectId getAt(const QString& key) const;
    QString nameAt(OdDbObjectId id) const;
    const std::vector<DictionaryEntry>& entries() const { return m_state.entries; }
};

using OdDbDictionaryPtr = OdSmartPtr<OdDbDictionary>;
