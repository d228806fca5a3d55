#pragma once

#include "host/application/HostFrontEnd.h"
#include "host/application/HostServices.h"
#include "host/commands/CommandProcessor.h"
#include "host/commands/CommandQueue.h"
#include "host/commands/CommandState.h"
#include "host/commands/HostIoManager.h"
#include "host/documents/DocumentFiles.h"
#include "host/documents/HostDocManager.h"
#include "host/documents/HostUndoHistory.h"
#include "host/modules/ModuleLoader.h"
#include "host/recovery/RecoveryFolder.h"
#include "host/sysvars/HostSysvarManager.h"
#include "host/sysvars/UserSettings.h"

#include <QElapsedTimer>

class QWidget;

/// The host without a face: settings, system variables, documents, commands and modules. There is
/// one per process, since modules reach it through the SDK's functions.
class HostCore
{
public:
    /// Settings are kept in `configFolder`; empty: at the desktop's usual place.
    HostCore(HostFrontEnd& frontEnd, const QString& configFolder);
    ~HostCore();
    HostCore(const HostCore&) = delete;
    HostCore& operator=(const HostCore&) = delete;

    /// Tells modules about the main window; null takes it away.
    void setMainWindow(QWidget* window);
    /// The dialogs behind the services; null takes them away.
    void setDialogs(HostDialogs* dialogs);
    /// Closes the documents without asking, takes the modules down, keeps the settings.
    void shutDown();

    UserSettings& settings() { return m_settings; }
    HostDocManager& documents() { return m_documents; }
    HostSysvarManager& sysvars() { return m_sysvars; }
    CommandState& commandState() { return m_state; }
    CommandQueue& queue() { return m_queue; }
    CommandProcessor& commands() { return m_commands; }
    DocumentFiles& files() { return m_files; }
    RecoveryFolder& recovery() { return m_recovery; }
    ModuleLoader& modules() { return m_modules; }
    HostFrontEnd& frontEnd() { return m_frontEnd; }

private:
    void tellTrouble(const QString& sentence);

    HostFrontEnd& m_frontEnd;
    QString m_trouble; ///< that a reactor had, as it was told last
    QElapsedTimer m_sinceTrouble;
    UserSettings m_settings;
    CommandState m_state;
    CommandQueue m_queue;
    HostDocManager m_documents;
    HostSysvarManager m_sysvars;
    CommandProcessor m_commands;
    HostIoManager m_io;
    HostServices m_services;
    HostUndoHistory m_undoHistory;
    DocumentFiles m_files;
    RecoveryFolder m_recovery;
    ModuleLoader m_modules;
    bool m_isDown = false;
};
