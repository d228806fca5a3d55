#pragma once

#include "database/drawing/OdDbDatabaseReactor.h"

class CLayerTreeVw;

/// Tells the filter tree when the drawing's filters may have changed by somebody else: a command,
/// undo, redo. Their records are those of dictionaries.
class FilterTreeDatabaseReactor : public OdDbDatabaseReactor
{
public:
    explicit FilterTreeDatabaseReactor(CLayerTreeVw& tree)
        : m_tree(tree)
    { }

    void objectAppended(const OdDbDatabase*, const OdDbObject* object) override { look(object); }
    void objectUnAppended(const OdDbDatabase*, const OdDbObject* object) override { look(object); }
    void objectReAppended(const OdDbDatabase*, const OdDbObject* object) override { look(object); }
    void objectModified(const OdDbDatabase*, const OdDbObject* object) override { look(object); }
    void objectErased(const OdDbDatabase*, const OdDbObject* object, bool) override
    {
        look(object);
    }
    void goodbye(const OdDbDatabase*) override;

private:
    void look(const OdDbObject* object);

    CLayerTreeVw& m_tree;
};
