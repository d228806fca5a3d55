#include "io/dxf/patch/DictionaryPatch.h"

#include "base/NumberText.h"
#include "io/dxf/patch/RecordPatcher.h"
#include "io/dxf/read/DictionaryGroups.h"
#include "io/dxf/read/DxfObjectSource.h"

#include <algorithm>

namespace {
constexpr int kKey = 3;
} // namespace

DictionaryPatch::DictionaryPatch(const DxfObjectSource& source, RecordPatcher& record)
    : m_source(source)
    , m_record(record)
    , m_end(record.begin())
{
    const auto& spans = record.spans();
    std::size_t key = spans.size();
    for (std::size_t i = 0; i < spans.size(); ++i) {
        if (spans[i].code < 1000)
            m_end = spans[i].end;
        if (!spans[i].own)
            continue;
        if (spans[i].code == kKey) {
            key = i;
        } else if (key < i && DictionaryGroups::isValue(spans[i].code)) {
            m_pairs.push_back({key, i, source.text().decode(record.bytes(spans[key])),
                               NumberText::handle(record.bytes(spans[i])).value_or(0)});
            key = spans.size();
        }
    }
}

void DictionaryPatch::turnInto(std::vector<KeyedHandle> wanted, const NewRecords& records,
                               bool hard)
{
    QHash<QString, quint64> present;
    for (const Pair& pair : m_pairs)
        present.insert(pair.text.toCaseFolded(), pair.handle);
    for (KeyedHandle& entry : wanted) {
        if (entry.handle == 0)
            entry.handle = present.value(entry.key.toCaseFolded(), 0);
    }
    const int valueCode = !m_pairs.empty() ? m_record.spans()[m_pairs.front().value].code
        : hard                             ? DictionaryGroups::kHardOwner
                                           : DictionaryGroups::kSoftOwner;
    if (wanted.size() == m_pairs.size())
        return patchInPlace(wanted);
    if (removeAndAppend(wanted, records, valueCode))
        return;
    for (const Pair& pair : m_pairs) {
        m_record.remove(m_record.spans()[pair.key]);
        m_record.remove(m_record.spans()[pair.value]);
    }
    append(wanted, 0, records, valueCode);
}

void DictionaryPatch::patchInPlace(const std::vector<KeyedHandle>& wanted)
{
    for (std::size_t i = 0; i < wanted.size(); ++i) {
        const Pair& pair = m_pairs[i];
        if (pair.text != wanted[i].key)
            m_record.setValue(m_record.spans()[pair.key], m_source.text().encode(wanted[i].key));
        if (pair.handle != wanted[i].handle)
            m_record.setValue(m_record.spans()[pair.value],
                              NewRecords::handleText(wanted[i].handle));
    }
}

bool DictionaryPatch::removeAndAppend(const std::vector<KeyedHandle>& wanted,
                                      const NewRecords& records, int valueCode)
{
    std::vector<const Pair*> gone;
    std::size_t kept = 0;
    for (const Pair& pair : m_pairs) {
        if (kept < wanted.size() && wanted[kept].key == pair.text
            && wanted[kept].handle == pair.handle)
            ++kept;
        else
            gone.push_back(&pair);
    }
    // What was passed over must be gone indeed, not moved behind.
    const auto isWanted = [&](const Pair* pair) {
        return std::any_of(wanted.begin() + static_cast<std::ptrdiff_t>(kept), wanted.end(),
                           [&](const KeyedHandle& entry) {
                               return entry.handle == pair->handle && entry.key == pair->text;
                           });
    };
    if (kept < wanted.size() && gone.size() < 1000
        && std::any_of(gone.begin(), gone.end(), isWanted))
        return false;
    for (const Pair* pair : gone) {
        m_record.remove(m_record.spans()[pair->key]);
        m_record.remove(m_record.spans()[pair->value]);
    }
    append(wanted, kept, records, valueCode);
    return true;
}

void DictionaryPatch::append(const std::vector<KeyedHandle>& wanted, std::size_t from,
                             const NewRecords& records, int valueCode)
{
    QByteArray groups;
    for (std::size_t i = from; i < wanted.size(); ++i) {
        if (wanted[i].handle != 0)
            records.appendEntry(groups, wanted[i], valueCode);
    }
    if (!groups.isEmpty())
        m_record.insert(m_end, groups);
}
