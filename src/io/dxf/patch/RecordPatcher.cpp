#include "io/dxf/patch/RecordPatcher.h"

#include "database/values/GroupList.h"
#include "io/dxf/read/DxfObjectSource.h"
#include "io/dxf/text/BinaryValue.h"
#include "io/dxf/text/GroupCode.h"

#include <algorithm>

RecordPatcher::RecordPatcher(const DxfObjectSource& source, quint32 slot, PatchList& patches)
    : m_source(source)
    , m_patches(patches)
    , m_spelling(source.spelling(slot))
{
    DxfCursor record = source.cursor(slot);
    m_begin = m_end = record.groupEnd();
    bool inGroup = false;
    while (record.next()) {
        const bool mark = record.code() == 102;
        m_spans.push_back({record.code(), record.groupBegin(), record.valueBegin(),
                           record.valueEnd(), record.groupEnd(),
                           !mark && !inGroup && record.code() < 1000});
        if (mark) {
            inGroup = record.bytes().trimmed().startsWith('{');
            m_openGroup = inGroup ? record.groupBegin() : kNoOffset;
        }
        m_end = record.groupEnd();
    }
}

const RecordPatcher::Span* RecordPatcher::find(int code) const
{
    const auto it = std::find_if(m_spans.begin(), m_spans.end(),
                                 [&](const Span& span) { return span.own && span.code == code; });
    return it == m_spans.end() ? nullptr : &*it;
}

const RecordPatcher::Span* RecordPatcher::lastOwn() const
{
    const auto it = std::find_if(m_spans.rbegin(), m_spans.rend(),
                                 [](const Span& span) { return span.code < 1000; });
    return it == m_spans.rend() ? nullptr : &*it;
}

QByteArray RecordPatcher::bytes(const Span& span) const
{
    const QByteArrayView raw = m_source.image().view(span.valueBegin, span.valueEnd);
    if (!m_spelling.isBinary())
        return raw.toByteArray();
    const bool hasLength = groupKind(span.code) == GroupKind::Chunk;
    BinaryValue::Scratch scratch;
    return BinaryValue::text(span.code, hasLength ? raw.sliced(1) : raw, scratch).toByteArray();
}

void RecordPatcher::setValue(const Span& span, QByteArrayView value)
{
    if (m_spelling.isBinary()) {
        m_patches.replace(span.valueBegin, span.end, m_spelling.value(span.code, value));
        return;
    }
    // A padded number stays padded.
    const QByteArray old = bytes(span);
    QByteArray text = value.toByteArray();
    if (old.startsWith(' ') && !text.isEmpty())
        text = text.rightJustified(old.size());
    m_patches.replace(span.valueBegin, span.valueEnd, text);
}

void RecordPatcher::want(int code, const QByteArray* value, const std::vector<int>& order)
{
    const Span* there = find(code);
    if (there && value)
        return setValue(*there, *value);
    if (there) {
        // All of them: a second one would count when the first is gone.
        for (const Span& span : m_spans) {
            if (span.own && span.code == code)
                remove(span);
        }
        return;
    }
    if (!value)
        return;
    const auto rankOf = [&](int c) { return std::find(order.begin(), order.end(), c); };
    quint64 at = m_begin;
    for (const Span& span : m_spans) {
        if (span.begin < m_openGroup && span.code < 1000
            && (!span.own || span.code == 5 || span.code == 330 || span.code == 100
                || rankOf(span.code) < rankOf(code)))
            at = span.end;
    }
    QByteArray group;
    m_spelling.append(group, code, *value);
    insert(at, group);
}

void RecordPatcher::replaceGroups(std::size_t first, const GroupList& before,
                                  const GroupList& after)
{
    const std::vector<GroupList::Group> olds(before.begin(), before.end());
    const std::vector<GroupList::Group> news(after.begin(), after.end());
    const auto same = [](const GroupList::Group& a, const GroupList::Group& b) {
        return a.code == b.code && a.value == b.value;
    };
    const std::size_t most = std::min(olds.size(), news.size());
    std::size_t head = 0;
    while (head < most && same(olds[head], news[head]))
        ++head;
    std::size_t tail = 0;
    while (tail < most - head && same(olds[olds.size() - 1 - tail], news[news.size() - 1 - tail]))
        ++tail;
    const auto spanAt = [&](std::size_t i) -> const Span& { return m_spans[first + i]; };
    const auto spelled = [&](const GroupList::Group& group, QByteArray& out) {
        m_spelling.append(out, group.code, m_source.fileValue(group.code, group.value));
    };
    if (olds.size() == news.size()) {
        for (std::size_t i = head; i < olds.size() - tail; ++i) {
            if (same(olds[i], news[i]))
                continue;
            if (olds[i].code == news[i].code) {
                setValue(spanAt(i), m_source.fileValue(news[i].code, news[i].value));
                continue;
            }
            QByteArray group;
            spelled(news[i], group);
            m_patches.replace(spanAt(i).begin, spanAt(i).end, group);
        }
        return;
    }
    QByteArray groups;
    for (std::size_t i = head; i < news.size() - tail; ++i)
        spelled(news[i], groups);
    const std::size_t oldEnd = olds.size() - tail;
    const quint64 begin = head < olds.size() ? spanAt(head).begin
        : olds.empty() ? (first < m_spans.size() ? m_spans[first].begin : m_end)
                       : spanAt(olds.size() - 1).end;
    const quint64 end = oldEnd > head ? spanAt(oldEnd - 1).end : begin;
    m_patches.replace(begin, end, groups);
}
