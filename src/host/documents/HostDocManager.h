#pragma once

#include "host/documents/HostDocument.h"
#include "sdk/KsApDocManager.h"

#include <memory>
#include <vector>

class CommandQueue;
class CommandState;

/// The open drawings of the host, one of them current, and those who follow them.
class HostDocManager : public KsApDocManager
{
public:
    HostDocManager(CommandState& commands, CommandQueue& queue);
    ~HostDocManager() override;

    HostDocument* curDocument() const override { return m_current; }
    int documentCount() const override { return static_cast<int>(m_documents.size()); }
    bool isBusy() const override { return m_busy > 0; }
    void executeInApplicationContext(const std::function<void()>& callback) override;
    void sendStringToExecute(const QString& text) override;
    void addReactor(KsApDocManagerReactor* reactor) override;
    void removeReactor(KsApDocManagerReactor* reactor) override;

    /// Takes a drawing in, tells the reactors, makes it current.
    HostDocument& add(std::unique_ptr<OdDbDatabase> database, const QString& fileName, bool hasFile,
                      DocumentFileState file = {});
    void setCurrent(HostDocument& document);
    /// Closes without asking. The drawing to its right becomes current, else the one to its left.
    void close(HostDocument& document);
    void closeAll();

    /// In the order in which they were opened.
    std::vector<HostDocument*> documents() const;
    bool contains(const HostDocument* document) const;
    /// The document whose file that path leads to, or null.
    HostDocument* findByFile(const QString& path) const;

    /// While one lives, isBusy() answers true.
    class BusyScope
    {
    public:
        explicit BusyScope(HostDocManager& manager)
            : m_manager(manager)
        {
            ++m_manager.m_busy;
        }
        ~BusyScope() { --m_manager.m_busy; }
        BusyScope(const BusyScope&) = delete;
        BusyScope& operator=(const BusyScope&) = delete;

    private:
        HostDocManager& m_manager;
    };

private:
    void notify(const std::function<void(KsApDocManagerReactor&)>& call);

    CommandState& m_commands;
    CommandQueue& m_queue;
    std::vector<std::unique_ptr<HostDocument>> m_documents;
    HostDocument* m_current = nullptr;
    std::vector<KsApDocManagerReactor*> m_reactors;
    int m_busy = 0;
};
