#pragma once

#include "database/OdDbObjectId.h"
#include "database/OdRxObject.h"

#include <QString>

#include <vector>

class OdLyLayerFilter;
using OdLyLayerFilterPtr = OdSmartPtr<OdLyLayerFilter>;

/// A node of a drawing's tree of layer filters. A plain one filters by an expression.
class OdLyLayerFilter : public OdRxObject
{
public:
    explicit OdLyLayerFilter(const QString& name)
        : m_name(name)
    { }

    const QString& name() const { return m_name; }
    /// The expression as the drawing has it; empty for groups and the root.
    const QString& filterExpression() const { return m_expression; }
    /// True for a group: a list of layers instead of an expression.
    virtual bool isIdFilter() const { return false; }
    const std::vector<OdLyLayerFilterPtr>& getNestedFilters() const { return m_nested; }

    void addNested(const OdLyLayerFilterPtr& filter) { m_nested.push_back(filter); }
    void setFilterExpression(const QString& expression) { m_expression = expression; }

private:
    QString m_name;
    QString m_expression;
    std::vector<OdLyLayerFilterPtr> m_nested;
};

/// A filter that holds its layers one by one.
class OdLyLayerGroup : public OdLyLayerFilter
{
public:
    using OdLyLayerFilter::OdLyLayerFilter;
    bool isIdFilter() const override { return true; }
    /// In the order of the drawing; layers that are gone are left out.
    const std::vector<OdDbObjectId>& layerIds() const { return m_layers; }
    void addLayerId(OdDbObjectId layer) { m_layers.push_back(layer); }

private:
    std::vector<OdDbObjectId> m_layers;
};
