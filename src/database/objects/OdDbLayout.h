#pragma once

#include "database/objects/OdDbObject.h"

#include <vector>

struct LayoutState
{
    QString name;
    int tabOrder = 0;
    OdDbObjectId block;
    OdDbObjectId lastActiveViewport;
    QString styleSheet;
};

/// How a layout is plotted.
class OdDbPlotSettings : public OdDbStateful<OdDbObject, LayoutState>
{
public:
    static constexpr const char* kClassName = "OdDbPlotSettings";
    static bool isKind(OdDbObjectKind kind) { return kind == OdDbObjectKind::Layout; }

    OdDbObjectKind kind() const override { return OdDbObjectKind::Layout; }
    /// Name of the plot style table, empty where there is none.
    const QString& getCurrentStyleSheet() const { return m_state.styleSheet; }
};

/// A layout: the model tab (order 0) or a sheet.
class OdDbLayout : public OdDbPlotSettings
{
public:
    static constexpr const char* kClassName = "OdDbLayout";
    static bool isKind(OdDbObjectKind kind) { return kind == OdDbObjectKind::Layout; }

    const QString& getLayoutName() const { return m_state.name; }
    int getTabOrder() const { return m_state.tabOrder; }
    OdDbObjectId getBlockTableRecordId() const { return m_state.block; }
    /// The viewports of the sheet in drawing order, the overall one first where there is one.
    std::vector<OdDbObjectId> getViewportArray() const;
};
