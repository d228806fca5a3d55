#pragma once

#include "sdk/KsApDocManager.h"

#include <QStringList>

class HostDocManager;
class UserSettings;

/// Which drawings are open and which is current, kept in the settings for the next start. While the
/// host is busy (it ends, say) nothing is noted: what was open then is what comes back.
class OpenFiles : private KsApDocManagerReactor
{
public:
    OpenFiles(HostDocManager& documents, UserSettings& settings);
    ~OpenFiles() override;
    OpenFiles(const OpenFiles&) = delete;
    OpenFiles& operator=(const OpenFiles&) = delete;

    /// The files that were open when the program ended last, in their order.
    QStringList lastFiles() const { return m_lastFiles; }
    /// The one among them that was current; empty where that one had no file.
    QString lastCurrent() const { return m_lastCurrent; }
    /// Tells and keeps nothing from now on, for a run that leaves no traces.
    void ignore();
    /// Notes what is open now; to be called when a drawing got another file.
    void note();

private:
    void documentBecameCurrent(KsApDocument*) override { note(); }
    void documentDestroyed(const QString&) override { note(); }

    HostDocManager& m_documents;
    UserSettings& m_settings;
    QStringList m_lastFiles;
    QString m_lastCurrent;
    bool m_ignores = false;
};
