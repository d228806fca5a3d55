#pragma once

#include "database/objects/OdDbObject.h"
#include "database/values/GroupList.h"

#include <QHash>

#include <vector>

struct DictionaryEntry
{
    QString key;
    OdDbObjectId value; ///< null where the file names no object of the drawing
    bool operator==(const DictionaryEntry&) const = default;
};

struct DictionaryState
{
    std::vector<DictionaryEntry> entries;
    bool treatElementsAsHard = false;
    GroupList xData; ///< extended data, group 1001 and on
    bool operator==(const DictionaryState&) const = default;
};

/// A dictionary: entries in file order, keys compared without case.
class OdDbDictionary : public OdDbStateful<OdDbObject, DictionaryState>
{
public:
    static constexpr const char* kClassName = "OdDbDictionary";
    static bool isKind(OdDbObjectKind kind) { return kind == OdDbObjectKind::Dictionary; }

    OdDbObjectKind kind() const override { return OdDbObjectKind::Dictionary; }
    /// The object under that key, or a null id; erased objects are not found.
    OdDbObjectId getAt(const QString& key) const;
    bool has(const QString& key) const { return find(key) >= 0; }
    QString nameAt(OdDbObjectId id) const;
    const std::vector<DictionaryEntry>& entries() const { return m_state.entries; }
    const GroupList& xData() const { return m_state.xData; }

    /// Puts the object under the key: in the place of the present entry, or at the end.
    void setAt(const QString& key, OdDbObjectId value);
    /// Takes an entry out; the object stays. False when there is none.
    bool remove(const QString& key);
    /// Gives an entry another key; false when there is none, or another entry has the new key.
    bool rename(const QString& key, const QString& newKey);
    /// All entries at once.
    void setEntries(const std::vector<DictionaryEntry>& entries);
    void setXData(const GroupList& xData) { assign(&DictionaryState::xData, xData); }

protected:
    void imageSwapped() override { m_index.clear(); }

private:
    int find(const QString& key) const;

    mutable QHash<QString, int> m_index; ///< by folded key; made when first asked for
};

using OdDbDictionaryPtr = OdSmartPtr<OdDbDictionary>;
