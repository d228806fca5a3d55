#include "host/application/HostCore.h"

#include "database/drawing/OdDbDatabase.h"
#include "database/drawing/ReactorTrouble.h"
#include "host/commands/HostCommand.h"
#include "host/commands/selection/SelectEntities.h"
#include "host/sysvars/PreferenceSettings.h"
#include "sdk/KestHost.h"

namespace {
// The SDK's function has no place for who asks; there is one host per process.
HostCore* s_core = nullptr;

int selectForModules(const KestSelectionRequest& request, KestSelectionSet& selection)
{
    return selectEntities(*s_core, request, selection);
}
} // namespace

HostCore::HostCore(HostFrontEnd& frontEnd, const QString& configFolder)
    : m_frontEnd(frontEnd)
    , m_settings(configFolder)
    , m_documents(m_state, m_queue)
    , m_sysvars(m_documents, m_state, m_settings)
    , m_commands(m_state, m_queue, m_documents)
    , m_io(m_commands)
    , m_services(m_sysvars, m_settings)
    , m_undoHistory(m_documents)
    , m_files(m_documents, m_sysvars)
    , m_recovery(configFolder)
{
    m_sysvars.setFrontEnd(frontEnd);
    m_commands.setFrontEnd(frontEnd);
    m_io.setFrontEnd(frontEnd);
    m_services.setFrontEnd(frontEnd);
    m_files.setFrontEnd(frontEnd);
    loadPreferences(m_settings);
    reactor_trouble::setTeller([this](const QString& sentence) { tellTrouble(sentence); });
    registerHostCommands(*this);
    setMainWindow(nullptr);
}

HostCore::~HostCore()
{
    shutDown();
    unregisterHostCommands();
    reactor_trouble::setTeller({});
    ksSetHost({});
    s_core = nullptr;
}

void HostCore::tellTrouble(const QString& sentence)
{
    // One edit of many layers may go wrong in the same way for each of them.
    constexpr qint64 kPause = 1000; // milliseconds
    const bool isNews = sentence != m_trouble || m_sinceTrouble.hasExpired(kPause);
    m_trouble = sentence;
    m_sinceTrouble.start();
    if (isNews)
        m_frontEnd.print(sentence);
}

void HostCore::setMainWindow(QWidget* window)
{
    s_core = this;
    ksSetHost(
        {&m_sysvars, &m_io, &m_services, &m_documents, &m_undoHistory, window, selectForModules});
}

void HostCore::setDialogs(HostDialogs* dialogs)
{
    m_services.setDialogs(dialogs);
    m_io.setDialogs(dialogs);
}

void HostCore::shutDown()
{
    if (m_isDown)
        return;
    m_isDown = true;
    {
        // Palettes stand aside: the state they are in is the one to come back to.
        const HostDocManager::BusyScope busy(m_documents);
        m_documents.closeAll();
        m_modules.unloadAll();
    }
    storePreferences(m_settings);
    if (const QString problem = m_settings.save(); !problem.isEmpty())
        m_frontEnd.print(problem);
}
