#include "host/documents/HostDocManager.h"

#include "database/drawing/OdDbDatabase.h"
#include "database/drawing/ReactorTrouble.h"
#include "host/commands/CommandQueue.h"
#include "host/commands/CommandState.h"

#include <QFileInfo>
#include <QScopeGuard>

#include <algorithm>

HostDocManager::HostDocManager(CommandState& commands, CommandQueue& queue)
    : m_commands(commands)
    , m_queue(queue)
{ }

HostDocManager::~HostDocManager() = default;

void HostDocManager::executeInApplicationContext(const std::function<void()>& callback)
{
    QStringList suspended;
    m_commands.swapNames(suspended);
    const auto resume = qScopeGuard([&] { m_commands.swapNames(suspended); });
    callback();
}

void HostDocManager::sendStringToExecute(const QString& text)
{
    m_queue.append(text);
}

void HostDocManager::addReactor(KsApDocManagerReactor* reactor)
{
    if (std::find(m_reactors.begin(), m_reactors.end(), reactor) == m_reactors.end())
        m_reactors.push_back(reactor);
}

void HostDocManager::removeReactor(KsApDocManagerReactor* reactor)
{
    std::erase(m_reactors, reactor);
}

void HostDocManager::notify(const std::function<void(KsApDocManagerReactor&)>& call)
{
    // Reactors may come and go while they are told; those that left are told no more.
    const std::vector<KsApDocManagerReactor*> told = m_reactors;
    for (KsApDocManagerReactor* reactor : told) {
        if (std::find(m_reactors.begin(), m_reactors.end(), reactor) == m_reactors.end())
            continue;
        try {
            call(*reactor);
        } catch (...) {
            // Half closed or half opened, a drawing would be of no use to anybody.
            reactor_trouble::tell();
        }
    }
}

HostDocument& HostDocManager::add(std::unique_ptr<OdDbDatabase> database, const QString& fileName,
                                  bool hasFile, DocumentFileState file)
{
    m_documents.push_back(
        std::make_unique<HostDocument>(std::move(database), fileName, hasFile, std::move(file)));
    HostDocument& document = *m_documents.back();
    notify([&](KsApDocManagerReactor& r) { r.documentCreateStarted(&document); });
    notify([&](KsApDocManagerReactor& r) { r.documentCreated(&document); });
    setCurrent(document);
    return document;
}

void HostDocManager::setCurrent(HostDocument& document)
{
    if (m_current == &document)
        return;
    notify([&](KsApDocManagerReactor& r) { r.documentToBeCurrent(&document); });
    m_current = &document;
    notify([&](KsApDocManagerReactor& r) { r.documentBecameCurrent(&document); });
}

void HostDocManager::close(HostDocument& document)
{
    notify([&](KsApDocManagerReactor& r) { r.docInstanceToBeDeactivated(&document); });
    notify([&](KsApDocManagerReactor& r) { r.documentToBeDestroyed(&document); });
    const auto place = std::find_if(m_documents.begin(), m_documents.end(),
                                    [&](const auto& d) { return d.get() == &document; });
    const bool wasCurrent = m_current == &document;
    if (wasCurrent)
        m_current = nullptr;
    const QString fileName = document.fileName();
    const auto index = static_cast<std::size_t>(place - m_documents.begin());
    // Gone from the list before it dies: nobody finds a drawing that is being taken down.
    std::unique_ptr<HostDocument> dying = std::move(*place);
    m_documents.erase(place);
    dying.reset();
    notify([&](KsApDocManagerReactor& r) { r.documentDestroyed(fileName); });
    if (wasCurrent && !m_documents.empty())
        setCurrent(*m_documents[std::min(index, m_documents.size() - 1)]);
}

void HostDocManager::closeAll()
{
    while (!m_documents.empty())
        close(*m_documents.back());
}

std::vector<HostDocument*> HostDocManager::documents() const
{
    std::vector<HostDocument*> all;
    for (const auto& document : m_documents)
        all.push_back(document.get());
    return all;
}

bool HostDocManager::contains(const HostDocument* document) const
{
    return std::any_of(m_documents.begin(), m_documents.end(),
                       [&](const auto& d) { return d.get() == document; });
}

HostDocument* HostDocManager::findByFile(const QString& path) const
{
    const QFileInfo wanted(path);
    for (const auto& document : m_documents) {
        if (document->hasFile() && QFileInfo(document->fileName()) == wanted)
            return document.get();
    }
    return nullptr;
}
