#pragma once

#include "database/filters/OdLyLayerFilter.h"

#include <optional>
#include <set>

class OdDbDatabase;

/// Brings a tree of layer filters into a drawing's dictionaries.
class FilterTreeWriter
{
public:
    struct Tree
    {
        OdLyLayerFilterPtr root;
        OdLyLayerFilterPtr current;
    };

    explicit FilterTreeWriter(OdDbDatabase& database)
        : m_database(database)
    { }

    /// `present` is what the drawing has now.
    void write(const Tree& present, const Tree& wanted);

    /// A filter of its own with the same contents, without nested ones.
    static OdLyLayerFilterPtr copyOf(const OdLyLayerFilter& filter);
    /// The filter of this session below the root, or nothing.
    static std::optional<OdLyLayerFilterPtr> sessionFilter(const OdLyLayerFilter& root);

private:
    void writeNested(OdDbObjectId owner, const OdLyLayerFilter& parent);
    OdDbObjectId writeFilter(OdDbObjectId dictionary, const OdLyLayerFilter& filter,
                             const QString& newKey);
    void writeCurrent(const Tree& wanted);
    void markCurrent(OdDbObjectId record, bool current);
    void removeMirrors(const OdLyLayerFilter& present, const OdLyLayerFilter& wanted);
    bool isOwnRecord(const OdLyLayerFilter& filter, OdDbObjectId dictionary) const;

    OdDbDatabase& m_database;
    const OdLyLayerFilter* m_current = nullptr;
    OdDbObjectId m_currentRecord;
    std::set<quint32> m_written;
};
