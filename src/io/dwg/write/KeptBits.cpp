#include "io/dwg/write/KeptBits.h"

#include "io/dwg/write/Spelling.h"

#include <QHash>
#include <QSet>

#include <algorithm>

namespace {

using Groups = std::vector<GroupList::Group>;

bool isSame(const GroupList::Group& a, const GroupList::Group& b)
{
    return a.code == b.code && a.value == b.value;
}

/// How many items from the first on, or from the last on, are the same in both lists, and how many
/// groups these are.
struct Common
{
    std::size_t items = 0;
    std::size_t groups = 0;
};

Common commonStart(const FreeRecords::Items& before, const Groups& old, const Groups& now)
{
    Common common;
    for (const FreeRecords::Items::Item& item : before.items) {
        const std::size_t end = common.groups + static_cast<std::size_t>(item.groups);
        if (end > now.size())
            return common;
        for (std::size_t i = common.groups; i < end; ++i) {
            if (!isSame(old[i], now[i]))
                return common;
        }
        common.groups = end;
        ++common.items;
    }
    return common;
}

Common commonEnd(const FreeRecords::Items& before, const Groups& old, const Groups& now,
                 const Common& start)
{
    Common common;
    while (start.items + common.items < before.items.size()) {
        const auto& item = before.items[before.items.size() - 1 - common.items];
        const std::size_t end = common.groups + static_cast<std::size_t>(item.groups);
        if (start.groups + end > now.size())
            return common;
        for (std::size_t i = common.groups + 1; i <= end; ++i) {
            if (!isSame(old[old.size() - i], now[now.size() - i]))
                return common;
        }
        common.groups = end;
        ++common.items;
    }
    return common;
}

struct Reference
{
    quint64 handle;
    BitSpan at;
};

std::vector<Reference> readReferences(DwgRecord& record, BitSpan at)
{
    std::vector<Reference> found;
    record.handles.seek(at.begin);
    while (record.handles.position() < at.end && !record.hasFailed()) {
        const quint64 begin = record.handles.position();
        const quint64 handle = record.reference();
        found.push_back({handle, {begin, record.handles.position()}});
    }
    return found;
}

/// Where a handle stands in a list. Most are asked for in the order of the list.
class Finder
{
public:
    explicit Finder(const std::vector<Reference>& list)
        : m_list(list)
    { }

    const Reference* find(quint64 handle)
    {
        for (std::size_t i = m_next; i < std::min(m_next + 2, m_list.size()); ++i) {
            if (m_list[i].handle == handle)
                return take(i);
        }
        if (m_places.isEmpty()) {
            m_places.reserve(static_cast<qsizetype>(m_list.size()));
            for (std::size_t i = m_list.size(); i-- > 0;)
                m_places.insert(m_list[i].handle, i);
        }
        const auto found = m_places.constFind(handle);
        return found == m_places.cend() ? nullptr : take(*found);
    }

private:
    const Reference* take(std::size_t place)
    {
        m_next = place + 1;
        return &m_list[place];
    }

    const std::vector<Reference>& m_list;
    std::size_t m_next = 0;
    QHash<quint64, std::size_t> m_places;
};

/// The entry of a file that each wanted one takes the place of: one of its key, that of its handle
/// where there are several. Past the end for a new one.
std::vector<std::size_t> placesOf(const std::vector<KeyedHandle>& wanted,
                                  const std::vector<KeyedHandle>& before)
{
    const std::size_t none = before.size();
    QHash<QString, std::vector<std::size_t>> unused; // by key, the first one last
    for (std::size_t i = before.size(); i-- > 0;)
        unused[before[i].key].push_back(i);
    std::vector<std::size_t> places(wanted.size(), none);
    for (const bool sameHandle : {true, false}) {
        for (std::size_t i = 0; i < wanted.size(); ++i) {
            const auto found = unused.find(wanted[i].key);
            if (places[i] != none || found == unused.end())
                continue;
            // Most come in the order of the file, which is from the back.
            const auto place = std::find_if(found->rbegin(), found->rend(), [&](std::size_t entry) {
                return !sameHandle || before[entry].handle == wanted[i].handle;
            });
            if (place == found->rend())
                continue;
            places[i] = *place;
            found->erase(std::next(place).base());
        }
    }
    return places;
}

} // namespace

bool KeptBits::groups(QByteArrayView body, const FreeRecords::Items& before, const GroupList& after,
                      const Spell& spell, BitWriter& out)
{
    const Groups old(before.groups.begin(), before.groups.end());
    const Groups now(after.begin(), after.end());
    const Common start = commonStart(before, old, now);
    const Common end = commonEnd(before, old, now, start);
    const auto beginOf = [&](std::size_t item) {
        return item < before.items.size() ? before.items[item].begin : before.readEnd;
    };
    GroupList changed;
    for (std::size_t i = start.groups; i < now.size() - end.groups; ++i)
        changed.append(now[i]);
    out.append(body, beginOf(0), beginOf(start.items));
    BitWriter spelled;
    if (!spell(changed, spelled))
        return false;
    out.append(spelled);
    out.append(body, beginOf(before.items.size() - end.items), before.end);
    return true;
}

KeptBits::References KeptBits::references(DwgRecord& record, BitSpan at,
                                          const std::vector<quint64>& wanted, DwgReference kind,
                                          const std::function<bool(quint64)>& isUnknown)
{
    const std::vector<Reference> list = readReferences(record, at);
    References now;
    std::size_t next = 0;
    for (const Reference& known : list) {
        const bool follows = next < wanted.size() && wanted[next] == known.handle;
        next += follows ? 1 : 0;
        if (follows || (isUnknown && isUnknown(known.handle)))
            now.handles.push_back(known.handle);
    }
    now.handles.insert(now.handles.end(), wanted.begin() + static_cast<std::ptrdiff_t>(next),
                       wanted.end());
    Finder finder(list);
    for (const quint64 handle : now.handles) {
        if (const Reference* known = finder.find(handle))
            now.bits.append(record.body(), known->at.begin, known->at.end);
        else
            now.bits.handle(kind, handle);
    }
    return now;
}

std::vector<KeyedHandle> KeptBits::inKeyOrder(const std::vector<KeyedHandle>& wanted,
                                              const std::vector<KeyedHandle>& before)
{
    QSet<QString> known;
    for (const KeyedHandle& entry : before)
        known.insert(entry.key);
    using Keyed = std::pair<QString, const KeyedHandle*>; // by the key in lower case
    std::vector<Keyed> added;
    for (const KeyedHandle& entry : wanted) {
        if (!known.contains(entry.key))
            added.emplace_back(entry.key.toLower(), &entry);
    }
    std::stable_sort(added.begin(), added.end(),
                     [](const Keyed& a, const Keyed& b) { return a.first < b.first; });
    std::vector<KeyedHandle> all;
    auto next = added.cbegin();
    const auto takeAddedBefore = [&](const QString* key) {
        for (; next != added.cend() && (!key || next->first < *key); ++next)
            all.push_back(*next->second);
    };
    for (const KeyedHandle& entry : wanted) {
        if (!known.contains(entry.key))
            continue;
        const QString key = entry.key.toLower();
        takeAddedBefore(&key);
        all.push_back(entry);
    }
    takeAddedBefore(nullptr);
    return all;
}

KeptBits::Entries KeptBits::entries(const DwgRecord& record, const DwgFormat& format,
                                    const FreeRecords::Dictionary& before,
                                    const std::vector<KeyedHandle>& wanted)
{
    const std::vector<std::size_t> places = placesOf(wanted, before.entries);
    Entries now;
    for (std::size_t i = 0; i < wanted.size(); ++i) {
        KeyedHandle entry = wanted[i];
        const std::size_t place = places[i];
        const bool isKnown = place < before.entries.size();
        const bool stays =
            isKnown && (entry.handle == 0 || before.entries[place].handle == entry.handle);
        if (isKnown)
            now.keys.append(record.body(), before.keysAt[place].begin, before.keysAt[place].end);
        else
            now.keys.append(Spelling::text(format, entry.key));
        if (stays) {
            const BitSpan at = before.referencesAt[place];
            now.references.append(record.body(), at.begin, at.end);
            entry.handle = before.entries[place].handle;
        } else {
            now.references.handle(DwgReference::SoftOwner, entry.handle);
        }
        now.entries.push_back(std::move(entry));
    }
    return now;
}
