#pragma once

#include "host/application/HostFrontEnd.h"

class CMainWindow;

/// The host's main window as its front end. Without a window, before the start and after the end,
/// prints go to the error stream and questions are cancelled.
class WindowFrontEnd : public HostFrontEnd
{
public:
    void attach(CMainWindow* window) { m_window = window; }

    void print(const QString& line) override;
    std::optional<QString> ask(const HostQuestion& question) override;
    bool isInteractive() const override { return m_window != nullptr; }
    std::unique_ptr<OdDbDatabase> readDrawingFile(const QString& path) override;
    SaveReport writeDrawingFile(const OdDbDatabase& drawing, const QString& path,
                                const SaveOptions& options) override;
    QString chooseFileToOpen() override;
    QString chooseFileToSave(const QString& suggestion, const QString& format) override;
    CloseAnswer askToSave(const HostDocument& document) override;
    LockAnswer askAboutLock(const QString& path, const QString& holder) override;
    ChangeAnswer askAboutChange(const HostDocument& document) override;
    bool askToReload(const HostDocument& document) override;
    RecoveryAnswer askToRecover(const QString& drawing, const QDateTime& written) override;
    void notify(const QString& sentence) override;
    void showStatus(const QString& sentence) override;
    void fileUsed(const QString& path) override;
    HostView* view() override;
    void regen(bool allViews) override;
    void repaint() override;
    void zoomExtents() override;
    void quit() override;

private:
    CMainWindow* m_window = nullptr;
};
