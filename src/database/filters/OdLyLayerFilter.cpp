#include "database/filters/OdLyLayerFilter.h"

#include "database/values/OdError.h"

#include <algorithm>

OdLyLayerFilter::~OdLyLayerFilter()
{
    for (const OdLyLayerFilterPtr& child : m_nested)
        child->m_parent = nullptr;
}

void OdLyLayerFilter::setName(const QString& name)
{
    if (m_fixed)
        throw OdError(OdResult::NotApplicable,
                      QStringLiteral("The filter \"%1\" keeps its name.").arg(m_name));
    m_name = name;
}

void OdLyLayerFilter::setFilterExpression(const QString& expression)
{
    if (expression == m_expression)
        return;
    m_expression = m_stored = expression;
    m_editable = true;
}

bool OdLyLayerFilter::allowNested(const OdLyLayerFilter& child) const
{
    const bool holdsGroups = isIdFilter() || !m_parent;
    return allowNested() && (!child.isIdFilter() || holdsGroups);
}

OdLyLayerFilterPtr OdLyLayerFilter::parent() const
{
    return OdLyLayerFilterPtr(m_parent);
}

void OdLyLayerFilter::addNested(const OdLyLayerFilterPtr& filter)
{
    if (!allowNested(*filter))
        throw OdError(OdResult::NotApplicable,
                      QStringLiteral("The filter \"%1\" cannot stand below \"%2\".")
                          .arg(filter->name(), m_name));
    filter->m_parent = this;
    m_nested.push_back(filter);
}

bool OdLyLayerFilter::removeNested(const OdLyLayerFilterPtr& filter)
{
    const auto it = std::find(m_nested.begin(), m_nested.end(), filter);
    if (it == m_nested.end())
        return false;
    filter->m_parent = nullptr;
    m_nested.erase(it);
    return true;
}

void OdLyLayerFilter::setOrigin(const Origin& origin, const QString& expression)
{
    m_record = origin.record;
    m_stored = origin.stored;
    m_editable = origin.editable;
    m_fixed = origin.fixed;
    m_expression = expression;
}

void OdLyLayerGroup::removeLayerId(OdDbObjectId layer)
{
    const auto it = std::find(m_layers.begin(), m_layers.end(), layer);
    if (it != m_layers.end())
        m_layers.erase(it);
}
