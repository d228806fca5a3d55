#include "database/store/HeaderVariables.h"

const HeaderVariables::Variable* HeaderVariables::find(const QString& name) const
{
    const auto it = m_index.constFind(name);
    return it == m_index.constEnd() ? nullptr : &m_variables[static_cast<std::size_t>(*it)];
}

QString HeaderVariables::value(const QString& name, const QString& fallback) const
{
    const auto it = m_index.constFind(name);
    return it == m_index.constEnd() ? fallback : m_variables[static_cast<std::size_t>(*it)].value;
}

int HeaderVariables::intValue(const QString& name, int fallback) const
{
    bool ok = false;
    const int number = value(name).trimmed().toInt(&ok);
    return ok ? number : fallback;
}

void HeaderVariables::set(const QString& name, int code, const QString& value)
{
    if (const auto it = m_index.constFind(name); it != m_index.constEnd()) {
        m_variables[static_cast<std::size_t>(*it)].value = value;
        return;
    }
    Variable variable;
    variable.name = name;
    variable.code = code;
    variable.value = value;
    load(std::move(variable));
}

void HeaderVariables::remove(const QString& name)
{
    // The entry stays, so that positions hold; only the name stops finding it.
    m_index.remove(name);
}

void HeaderVariables::load(Variable variable)
{
    m_index.insert(variable.name, static_cast<int>(m_variables.size()));
    m_variables.push_back(std::move(variable));
}
