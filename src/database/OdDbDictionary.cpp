#include "database/OdDbDictionary.h"

#include "database/OdDbDatabase.h"

#include <algorithm>

OdDbObjectId OdDbDictionary::getAt(const QString& key) const
{
    const auto& all = m_state.entries;
    const auto it = std::find_if(all.begin(), all.end(), [&](const DictionaryEntry& entry) {
        return entry.key.compare(key, Qt::CaseInsensitive) == 0;
    });
    return it == all.end() ? OdDbObjectId() : it->value;
}

QString OdDbDictionary::nameAt(OdDbObjectId id) const
{
    const auto& all = m_state.entries;
    const auto it = std::find_if(all.begin(), all.end(),
                                 [&](const DictionaryEntry& entry) { return entry.value == id; });
    return it == all.end() ? QString() : it->key;
}
