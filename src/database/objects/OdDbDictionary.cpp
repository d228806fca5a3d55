#include "database/objects/OdDbDictionary.h"

#include "database/drawing/OdDbDatabase.h"

#include <algorithm>

int OdDbDictionary::find(const QString& key) const
{
    const auto& all = m_state.entries;
    if (m_index.isEmpty()) {
        m_index.reserve(static_cast<qsizetype>(all.size()));
        for (std::size_t i = all.size(); i-- > 0;) // of equal keys the first is found
            m_index.insert(all[i].key.toCaseFolded(), static_cast<int>(i));
    }
    return m_index.value(key.toCaseFolded(), -1);
}

OdDbObjectId OdDbDictionary::getAt(const QString& key) const
{
    const int at = find(key);
    const OdDbObjectId value =
        at < 0 ? OdDbObjectId() : m_state.entries[static_cast<std::size_t>(at)].value;
    return value.isErased() ? OdDbObjectId() : value;
}

QString OdDbDictionary::nameAt(OdDbObjectId id) const
{
    const auto& all = m_state.entries;
    const auto it = std::find_if(all.begin(), all.end(),
                                 [&](const DictionaryEntry& entry) { return entry.value == id; });
    return it == all.end() ? QString() : it->key;
}

void OdDbDictionary::setAt(const QString& key, OdDbObjectId value)
{
    requireWriteEnabled();
    const int at = find(key);
    if (at >= 0 && m_state.entries[static_cast<std::size_t>(at)].value == value)
        return;
    assertWriteEnabled();
    if (at >= 0) {
        m_state.entries[static_cast<std::size_t>(at)].value = value;
        return;
    }
    m_index.insert(key.toCaseFolded(), static_cast<int>(m_state.entries.size()));
    m_state.entries.push_back({key, value});
}

bool OdDbDictionary::remove(const QString& key)
{
    requireWriteEnabled();
    const int at = find(key);
    if (at < 0)
        return false;
    assertWriteEnabled();
    m_state.entries.erase(m_state.entries.begin() + at);
    m_index.clear();
    return true;
}

bool OdDbDictionary::rename(const QString& key, const QString& newKey)
{
    requireWriteEnabled();
    const int at = find(key);
    const int taken = find(newKey);
    if (at < 0 || (taken >= 0 && taken != at))
        return false;
    if (key == newKey)
        return true;
    assertWriteEnabled();
    m_state.entries[static_cast<std::size_t>(at)].key = newKey;
    m_index.clear();
    return true;
}

void OdDbDictionary::setEntries(const std::vector<DictionaryEntry>& entries)
{
    assign(&DictionaryState::entries, entries);
    m_index.clear();
}
