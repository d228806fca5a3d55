#pragma once

#include "database/values/OdRxObject.h"

#include <QString>

class OdDbDatabase;
class IKestIOManager;

/// What a command runs in.
class OdEdCommandContext
{
public:
    virtual ~OdEdCommandContext() = default;
};

/// A command context that belongs to a drawing.
class OdDbCommandContext : public OdEdCommandContext
{
public:
    explicit OdDbCommandContext(OdDbDatabase* database)
        : m_database(database)
    { }
    OdDbDatabase* database() const { return m_database; }

private:
    OdDbDatabase* m_database;
};

/// Bits of a command's flags that the host acts on.
namespace OdEd {
enum CommandFlag : int {
    kTransparent = 0x00000001, ///< may run inside another command
    kUsePickSet = 0x00000002, ///< keeps the selection made before the command
    kSession = 0x00200000, ///< works on documents, not in one: opens no undo record
    kNoUndoMarker = 0x00800000, ///< opens no undo record of its own; hidden from completion
    kPalette = 0x04000000, ///< opens a palette: not added to the undo history
};
}

/// A command that a module adds to the host.
class OdEdCommand : public OdRxObject
{
public:
    virtual QString groupName() const = 0;
    virtual QString globalName() const = 0;
    virtual QString localName() const = 0;
    virtual void execute(OdEdCommandContext* context) = 0;
    virtual int flags() const = 0;
    virtual void undefine(bool undefineIt) = 0;
};

using OdEdCommandPtr = OdSmartPtr<OdEdCommand>;
