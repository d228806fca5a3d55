#pragma once

#include "database/OdDbObject.h"

#include <QByteArray>

#include <vector>

/// One tagged group as the drawing stores it. Values are text in the drawing's encoding; handles
/// stay hexadecimal text.
struct TaggedGroup
{
    int code = 0;
    QByteArray value;
    bool operator==(const TaggedGroup&) const = default;
};

struct XrecordState
{
    std::vector<TaggedGroup> groups; ///< the data groups, without the record's own head
};

/// A record of free groups.
class OdDbXrecord : public OdDbStateful<OdDbObject, XrecordState>
{
public:
    static constexpr const char* kClassName = "OdDbXrecord";
    static bool isKind(OdDbObjectKind kind) { return kind == OdDbObjectKind::Xrecord; }

    OdDbObjectKind kind() const override { return OdDbObjectKind::Xrecord; }
    const std::vector<TaggedGroup>& groups() const { return m_state.groups; }
};

using OdDbXrecordPtr = OdSmartPtr<OdDbXrecord>;
