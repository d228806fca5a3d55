#pragma once

#include "database/filters/OdLyLayerFilterManager.h"
#include "layermanager/LayerDrawing.h"
#include "layermanager/filters/tree/FilterEdits.h"
#include "support/FakeHost.h"

#include <initializer_list>

inline QStringList texts(std::initializer_list<const char*> utf8)
{
    QStringList list;
    for (const char* text : utf8)
        list << QString::fromUtf8(text);
    return list;
}

/// A drawing in a host, to which a test adds filters. Adding them is no undo step.
class FilterDrawing
{
public:
    explicit FilterDrawing(const QList<DrawingText::Layer>& layers = {{"A"}, {"B"}, {"C"}})
        : m_database(host.open(layer_drawing::make(layers)))
    { }
    explicit FilterDrawing(const QByteArray& text)
        : m_database(host.open(readDrawing(text, QStringLiteral("filters.dxf"))))
    { }

    OdDbDatabase& operator*() const { return m_database; }
    OdDbDatabase* operator->() const { return &m_database; }

    FilterKey property(const char* name, const char* expression, const FilterKey& parent = all())
    {
        const auto filter = odrxCreate<OdLyLayerFilter>(QString::fromUtf8(name));
        filter->setFilterExpression(QString::fromUtf8(expression));
        return add(filter, parent);
    }
    FilterKey group(const char* name, std::initializer_list<const char*> layers,
                    const FilterKey& parent = all())
    {
        const auto filter = odrxCreate<OdLyLayerGroup>(QString::fromUtf8(name));
        for (const char* layer : layers)
            filter->addLayerId(layer_drawing::id(m_database, layer));
        return add(filter, parent);
    }

    static FilterKey all() { return {QStringLiteral("All")}; }
    static FilterKey key(const char* name, int occurrence = 0)
    {
        return {QString::fromUtf8(name), occurrence};
    }

    /// The drawing's filters from the root on, each nested one with a dot for each level in front
    /// of its name.
    QStringList tree() const
    {
        QStringList lines;
        describe(*FilterTreeEdit(m_database).root(), QString(), lines);
        return lines;
    }
    QString current() const { return FilterTreeEdit(m_database).current()->name(); }
    OdLyLayerFilterPtr filter(const char* name) const
    {
        return FilterTreeEdit(m_database).find(key(name));
    }
    /// The layers that a group holds.
    QStringList layersOf(const char* group) const
    {
        const OdLyLayerFilterPtr found = filter(group);
        return found && found->isIdFilter()
            ? layer_drawing::names(static_cast<const OdLyLayerGroup&>(*found).layerIds())
            : QStringList(QStringLiteral("no group"));
    }

    FakeHost host;

private:
    FilterKey add(const OdLyLayerFilterPtr& filter, const FilterKey& parent)
    {
        FilterTreeEdit edit(m_database);
        edit.find(parent)->addNested(filter);
        edit.write();
        return keyOfFilter(edit.root(), *filter);
    }
    static void describe(const OdLyLayerFilter& filter, const QString& indent, QStringList& lines)
    {
        lines << indent + filter.name();
        for (const OdLyLayerFilterPtr& nested : filter.getNestedFilters())
            describe(*nested, indent + QLatin1Char('.'), lines);
    }

    OdDbDatabase& m_database;
};
