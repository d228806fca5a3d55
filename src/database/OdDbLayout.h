#pragma once

#include "database/OdDbObject.h"

#include <vector>

struct LayoutState
{
    QString name;
    int tabOrder = 0;
    OdDbObjectId block;
    OdDbObjectId lastActiveViewport;
    QString styleSheet;
};

/// A layout: the model tab (order 0) or a sheet.
class OdDbLayout : public OdDbStateful<OdDbObject, LayoutState>
{
public:
    static constexpr const char* kClassName = "OdDbLayout";
    static bool isKind(OdDbObjectKind kind) { return kind == OdDbObjectKind::Layout; }

    OdDbObjectKind kind() const override { return OdDbObjectKind::Layout; }
    const QString& getLayoutName() const { return m_state.name; }
    int getTabOrder() const { return m_state.tabOrder; }
    OdDbObjectId getBlockTableRecordId() const { return m_state.block; }
    const QString& getCurrentStyleSheet() const { return m_state.styleSheet; }
    /// The viewports of the sheet in drawing order, the overall one first where there is one.
    std::vector<OdDbObjectId> getViewportArray() const;
    /// The viewport that covers the sheet itself, or a null id in a layout never opened.
    OdDbObjectId overallVportId() const;
};

using OdDbLayoutPtr = OdSmartPtr<OdDbLayout>;
