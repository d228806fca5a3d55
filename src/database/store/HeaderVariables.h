#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>

#include <vector>

/// Header variables of a drawing by name (with the file's "$"), each with its first group as text.
/// Variables with several groups (points) keep the first only; the rest stays in the file image.
class HeaderVariables
{
public:
    struct Variable
    {
        QString name;
        int code = 0;
        QString value;
        quint64 valueBegin =
            0; ///< byte range of the value line in the file image; empty when not in the file
        quint64 valueEnd = 0;
        QString loadedValue;
    };

    /// The variable, or null; valid until one is added.
    const Variable* find(const QString& name) const;
    bool contains(const QString& name) const { return m_index.contains(name); }
    QString value(const QString& name, const QString& fallback = {}) const;
    int intValue(const QString& name, int fallback) const;
    /// Sets, or adds, a variable. Undo and notification are the database's business.
    void set(const QString& name, int code, const QString& value);
    void remove(const QString& name);
    void load(Variable variable);
    const std::vector<Variable>& all() const { return m_variables; }

private:
    std::vector<Variable> m_variables;
    QHash<QString, int> m_index;
};
