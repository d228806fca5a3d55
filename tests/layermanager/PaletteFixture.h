#pragma once

#include "layermanager/layers/grid/CLayerListCtrl.h"
#include "support/FakeHost.h"
#include "support/GuardedTest.h"
#include "support/RecordingPrompts.h"
#include "toolkit/CXTPDockingPaneManager.h"

#include <QMainWindow>

#include <memory>

class CLayerPaneView;
class CLayerTreeVw;
class OdRxModule;
class QLineEdit;

/// The module in a host's main window, with one drawing open.
class PaletteFixture : public GuardedTest
{
    Q_OBJECT
protected:
    void prepare() override;
    void finish() override;

    FakeHost& host() const { return *m_host; }
    OdRxModule& module() const { return *m_module; }
    CXTPDockingPaneManager& manager() const { return *m_manager; }
    QMainWindow& window() const { return *m_window; }
    QLineEdit& elsewhere() const { return *m_elsewhere; }
    OdDbDatabase& db() const { return *m_database; }
    OdDbDatabase& open(const QList<QByteArray>& layers);

    /// Runs a command in the current drawing, or, on request, without one.
    void run(const char* globalName);
    void runWithout(const char* globalName);
    CXTPDockingPane* pane() const { return m_manager->FindPane(1000); }
    CLayerPaneView* view() const;
    CLayerListCtrl& grid() const;
    CLayerTreeVw& tree() const;
    RecordingPrompts& prompts() const { return *m_prompts; }
    QString statusText() const;
    int state() const { return host().ints.value(QStringLiteral("LAYERMANAGERSTATE"), -1); }
    void unload();

private:
    std::unique_ptr<QMainWindow> m_window;
    std::unique_ptr<CXTPDockingPaneManager> m_manager;
    std::unique_ptr<FakeHost> m_host;
    std::unique_ptr<RecordingPrompts> m_prompts;
    QLineEdit* m_elsewhere = nullptr;
    OdRxModule* m_module = nullptr;
    OdDbDatabase* m_database = nullptr;
};
