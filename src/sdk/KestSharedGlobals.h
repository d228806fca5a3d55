#pragma once

class QWidget;

/// State that the host shares with its modules.
class KestSharedGlobals
{
public:
    /// While set, host property panels ignore notifications.
    static void SetUnderPropertyUpdate(bool under);
    static bool IsUnderPropertyUpdate();
    /// Makes the host's own resources current when asked to activate.
    static int GetKestResourceInstance(bool activate);
    /// The host's main window; null in batch mode.
    static QWidget* GetCMainWindow();
};
