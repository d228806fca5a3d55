#pragma once

#include "host/batch/ExitCode.h"

#include <QString>
#include <QStringList>

class CMainWindow;
class HostCore;
class JournalKeeper;

/// What happens between the window's appearance and the user's first key.
class WindowSession
{
public:
    WindowSession(HostCore& core, CMainWindow& window)
        : m_core(core)
        , m_window(window)
    { }

    /// Has the start offer to recover what earlier runs left unsaved.
    void setJournals(JournalKeeper& keeper) { m_journals = &keeper; }
    /// Loads the module, opens the files and, where the user left it open, the layer palette.
    /// Without files those that were open last are opened, where the user wants that; else a new
    /// drawing is started.
    void start(const QStringList& files);
    /// Draws the window as it is into a picture and prints the layer table.
    ExitCode takePicture(const QString& path);

private:
    void loadModules();
    void reopenLastFiles();

    HostCore& m_core;
    CMainWindow& m_window;
    JournalKeeper* m_journals = nullptr;
};
