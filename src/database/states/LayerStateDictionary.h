#pragma once

#include "database/objects/OdDbDictionary.h"
#include "database/objects/OdDbXrecord.h"

class OdDbDatabase;

/// The dictionary of a drawing's layer states: in the extension dictionary of the layer table, key
/// ACAD_LAYERSTATES; a state is a record under its name.
class LayerStateDictionary
{
public:
    explicit LayerStateDictionary(OdDbDatabase& drawing)
        : m_drawing(drawing)
    { }

    /// Null where the drawing has none.
    OdDbDictionaryPtr open(OdDb::OpenMode mode = OdDb::kForRead) const;
    /// True also for a state that is listed without a record of its own.
    bool has(const QString& name) const;
    /// The record of a state. Raises OdError with KeyNotFound where there is none of that name, or
    /// NotApplicable where it belongs to an external reference.
    OdDbXrecordPtr state(const QString& name, OdDb::OpenMode mode = OdDb::kForRead) const;
    /// The record of a new state; makes the dictionary where there is none. Raises OdError with
    /// InvalidKey (empty name) or DuplicateKey.
    OdDbXrecordPtr create(const QString& name);
    void rename(const QString& name, const QString& newName);
    void remove(const QString& name);

    /// States that programs keep for themselves; users neither see nor choose them.
    static bool isInternal(const QString& name, int mask);
    /// The name is that of a state of an external reference, "<reference>__<state>".
    static bool isExternalName(const QString& name);

private:
    OdDbObjectId id() const;
    void requireNew(const QString& name) const;

    OdDbDatabase& m_drawing;
};
