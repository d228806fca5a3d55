#pragma once

#include <QString>

class OdDbDatabase;
class OdDbObject;

/// Listener to a database. The object of a notification is open for read during the call.
class OdDbDatabaseReactor
{
public:
    virtual ~OdDbDatabaseReactor() = default;

    virtual void objectAppended(const OdDbDatabase*, const OdDbObject*) { }
    /// An append was undone.
    virtual void objectUnAppended(const OdDbDatabase*, const OdDbObject*) { }
    /// An erased or un-appended object came back by undo or redo.
    virtual void objectReAppended(const OdDbDatabase*, const OdDbObject*) { }
    virtual void objectModified(const OdDbDatabase*, const OdDbObject*) { }
    virtual void objectErased(const OdDbDatabase*, const OdDbObject*, bool /*erased*/) { }
    /// Names are those of the variables, without the file's dollar sign: "CLAYER", "TILEMODE",
    /// "CTAB", "CVPORT".
    virtual void headerSysVarChanged(const OdDbDatabase*, const QString& /*name*/) { }
    virtual void goodbye(const OdDbDatabase*) { }
};
