#pragma once

#include "database/values/OdDbObjectId.h"
#include "database/values/OdRxObject.h"

#include <QString>

#include <vector>

class OdLyLayerFilter;
using OdLyLayerFilterPtr = OdSmartPtr<OdLyLayerFilter>;

/// A node of a drawing's tree of layer filters. A plain one filters by an expression. A tree is the
/// caller's own: OdLyLayerFilterManager::setFilters() brings it into the drawing.
class OdLyLayerFilter : public OdRxObject
{
public:
    OdLyLayerFilter() = default;
    explicit OdLyLayerFilter(const QString& name)
        : m_name(name)
    { }
    ~OdLyLayerFilter() override;

    const QString& name() const { return m_name; }
    /// Raises OdError with NotApplicable where allowRename() is false.
    void setName(const QString& name);
    /// The expression in this system's spelling; as the drawing has it where that cannot be said
    /// so (isEditable() is false then). Empty for groups and the root.
    const QString& filterExpression() const { return m_expression; }
    void setFilterExpression(const QString& expression);
    /// False for an expression of another program that rows of criteria cannot say.
    bool isEditable() const { return m_editable; }

    /// True for a group: a list of layers instead of an expression.
    virtual bool isIdFilter() const { return false; }
    /// A filter that programs make and the drawing does not keep.
    bool dynamicallyGenerated() const { return m_dynamic; }
    bool allowDelete() const { return m_parent && !m_fixed; }
    bool allowRename() const { return m_parent && !m_fixed; }
    /// Whether filters can be nested in it: expressions in any but fixed ones, groups in groups and
    /// the root.
    bool allowNested() const { return !m_fixed; }
    bool allowNested(const OdLyLayerFilter& child) const;

    OdLyLayerFilterPtr parent() const;
    const std::vector<OdLyLayerFilterPtr>& getNestedFilters() const { return m_nested; }
    /// Raises OdError with NotApplicable for a child that cannot stand there.
    void addNested(const OdLyLayerFilterPtr& filter);
    /// False when it is none of the nested ones.
    bool removeNested(const OdLyLayerFilterPtr& filter);

    // For the manager and the programs that make filters
    void setDynamicallyGenerated(bool dynamic) { m_dynamic = dynamic; }
    /// The record it came from, null for a new one.
    OdDbObjectId record() const { return m_record; }
    void setRecord(OdDbObjectId record) { m_record = record; }
    struct Origin
    {
        OdDbObjectId record;
        QString stored; ///< expression as the drawing spells it
        bool editable = true;
        bool fixed = false;
    };
    void setOrigin(const Origin& origin, const QString& expression);
    /// The text to keep: the drawing's own spelling until the expression is set anew.
    const QString& storedExpression() const { return m_stored; }

private:
    QString m_name;
    QString m_expression;
    QString m_stored;
    OdDbObjectId m_record;
    OdLyLayerFilter* m_parent = nullptr;
    bool m_editable = true;
    bool m_fixed = false;
    bool m_dynamic = false;
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
    /// Takes the first entry of that layer out.
    void removeLayerId(OdDbObjectId layer);
    void setLayerIds(std::vector<OdDbObjectId> layers) { m_layers = std::move(layers); }

private:
    std::vector<OdDbObjectId> m_layers;
};

using OdLyLayerGroupPtr = OdSmartPtr<OdLyLayerGroup>;
