#pragma once

#include "host/application/HostFrontEnd.h"

#include <cstdio>

/// The host without a window: prints to a stream, has nobody to ask.
class BatchFrontEnd : public HostFrontEnd
{
public:
    explicit BatchFrontEnd(std::FILE* output)
        : m_output(output)
    { }

    void print(const QString& line) override;
    std::optional<QString> ask(const HostQuestion&) override { return std::nullopt; }
    bool isInteractive() const override { return false; }
    std::unique_ptr<OdDbDatabase> readDrawingFile(const QString& path) override;
    SaveReport writeDrawingFile(const OdDbDatabase& drawing, const QString& path,
                                const SaveOptions& options) override;
    QString chooseFileToOpen() override { return {}; }
    QString chooseFileToSave(const QString&, const QString&) override { return {}; }
    CloseAnswer askToSave(const HostDocument&) override { return CloseAnswer::Cancel; }
    LockAnswer askAboutLock(const QString&, const QString&) override { return LockAnswer::Cancel; }
    ChangeAnswer askAboutChange(const HostDocument&) override { return ChangeAnswer::Cancel; }
    bool askToReload(const HostDocument&) override { return false; }
    RecoveryAnswer askToRecover(const QString&, const QDateTime&) override
    {
        return RecoveryAnswer::Later;
    }
    void notify(const QString& sentence) override { print(sentence); }
    void showStatus(const QString&) override { }
    void fileUsed(const QString&) override { }
    void regen(bool) override { }
    void zoomExtents() override { }
    void quit() override { m_quit = true; }

    bool hasQuit() const { return m_quit; }

private:
    std::FILE* m_output;
    bool m_quit = false;
};
