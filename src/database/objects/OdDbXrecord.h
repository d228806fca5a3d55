#pragma once

#include "database/objects/OdDbObject.h"
#include "database/values/GroupList.h"

struct XrecordState
{
    GroupList groups; ///< the data groups, without the record's own head
    GroupList xData; ///< extended data, group 1001 and on
    bool operator==(const XrecordState&) const = default;
};

/// A record of free groups.
class OdDbXrecord : public OdDbStateful<OdDbObject, XrecordState>
{
public:
    static constexpr const char* kClassName = "OdDbXrecord";
    static bool isKind(OdDbObjectKind kind) { return kind == OdDbObjectKind::Xrecord; }

    OdDbObjectKind kind() const override { return OdDbObjectKind::Xrecord; }
    const GroupList& groups() const { return m_state.groups; }
    const GroupList& xData() const { return m_state.xData; }
    void setGroups(const GroupList& groups) { assign(&XrecordState::groups, groups); }
    void setXData(const GroupList& xData) { assign(&XrecordState::xData, xData); }
};

using OdDbXrecordPtr = OdSmartPtr<OdDbXrecord>;
