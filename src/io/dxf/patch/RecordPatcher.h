#pragma once

#include "io/dxf/patch/PatchList.h"
#include "io/dxf/read/DxfCursor.h"
#include "io/dxf/text/GroupSpelling.h"

#include <vector>

class DxfObjectSource;
class GroupList;

/// A record of the file, group by group, and the edits to it.
class RecordPatcher
{
public:
    struct Span
    {
        int code;
        quint64 begin;
        quint64 valueBegin;
        quint64 valueEnd; ///< of the text, before what ends it
        quint64 end;
        bool own; ///< neither of an application's group (102) nor extended data
    };

    RecordPatcher(const DxfObjectSource& source, quint32 slot, PatchList& patches);

    const std::vector<Span>& spans() const { return m_spans; }
    /// The record's first own group of that code, or null.
    const Span* find(int code) const;
    /// The last own group before extended data.
    const Span* lastOwn() const;
    /// The value in the form that setValue() takes, or as a text drawing pads it.
    QByteArray bytes(const Span& span) const;
    const GroupSpelling& spelling() const { return m_spelling; }
    /// Where groups can be put at the record's end.
    quint64 end() const { return m_end; }
    /// Behind the type name.
    quint64 begin() const { return m_begin; }

    /// Values are canonical; text is encoded already.
    void setValue(const Span& span, QByteArrayView value);
    void remove(const Span& span) { m_patches.remove(span.begin, span.end); }
    void insert(quint64 at, const QByteArray& groups) { m_patches.insert(at, groups); }
    /// Sets a group of the record's own, puts it behind its predecessor in `order` where it is
    /// missing, or takes it out (null value).
    void want(int code, const QByteArray* value, const std::vector<int>& order);
    /// Turns the run of groups from `first` on (index into spans) that holds `before` into `after`:
    /// the common head and tail stay as they are.
    void replaceGroups(std::size_t first, const GroupList& before, const GroupList& after);

private:
    const DxfObjectSource& m_source;
    PatchList& m_patches;
    GroupSpelling m_spelling;
    std::vector<Span> m_spans;
    static constexpr quint64 kNoOffset = ~quint64(0);
    quint64 m_openGroup = kNoOffset; ///< where an application's group begins that never ends
    quint64 m_begin = 0;
    quint64 m_end = 0;
};
