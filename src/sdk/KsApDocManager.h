#pragma once

#include <QString>

#include <functional>

class OdDbDatabase;

/// An open drawing as plug-ins see it.
class KsApDocument
{
public:
    virtual ~KsApDocument() = default;
    virtual OdDbDatabase* database() const = 0;
    /// Full path, or the name of a drawing that was never saved.
    virtual QString fileName() const = 0;
    /// Plug-ins may mark a document as seen, by a key of their own.
    virtual bool hasMark(const QString& key) const = 0;
    virtual void setMark(const QString& key) = 0;
};

/// Listener to the host's documents.
class KsApDocManagerReactor
{
public:
    virtual ~KsApDocManagerReactor() = default;
    virtual void documentCreateStarted(KsApDocument*) { }
    virtual void documentCreated(KsApDocument*) { }
    virtual void documentToBeCurrent(KsApDocument*) { }
    virtual void documentBecameCurrent(KsApDocument*) { }
    virtual void docInstanceToBeDeactivated(KsApDocument*) { }
    virtual void documentToBeDestroyed(KsApDocument*) { }
    virtual void documentDestroyed(const QString& /*fileName*/) { }
};

/// The host's open documents.
class KsApDocManager
{
public:
    virtual ~KsApDocManager() = default;
    virtual KsApDocument* curDocument() const = 0;
    virtual int documentCount() const = 0;
    /// True while the host opens, closes or shuts down and palettes should stand aside.
    virtual bool isBusy() const = 0;
    /// Runs the callback at once, outside of the document's command.
    virtual void executeInApplicationContext(const std::function<void()>& callback) = 0;
    /// Queues a command string as if the user had typed it.
    virtual void sendStringToExecute(const QString& text) = 0;
    virtual void addReactor(KsApDocManagerReactor* reactor) = 0;
    virtual void removeReactor(KsApDocManagerReactor* reactor) = 0;
};

/// The host's document manager, or null while there is no host.
KsApDocManager* ksDocManagerPtr();
