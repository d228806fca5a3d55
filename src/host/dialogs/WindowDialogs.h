#pragma once

#include "host/application/HostDialogs.h"

#include <QPointer>

class CHelpViewer;
class HelpKey;
class HostCore;
class HostDocument;
struct LinetypeItem;
class OdDbDatabase;

/// The dialogs of the services over a window: what they show of the drawing, and what is done with
/// the answers. The questions themselves go through Prompts.
class WindowDialogs : public HostDialogs
{
public:
    WindowDialogs(HostCore& core, QWidget& window);
    ~WindowDialogs() override;
    WindowDialogs(const WindowDialogs&) = delete;
    WindowDialogs& operator=(const WindowDialogs&) = delete;

    int pickColor(const KestPickRequest& request, OdCmColor& color) override;
    int pickLinetype(const KestPickRequest& request, OdDbObjectId& linetype) override;
    int pickLineweight(const KestPickRequest& request, int& weight) override;
    int pickPlotStyle(const KestPickRequest& request, QString& name) override;
    int selectFile(const KestFileRequest& request, QString& path, int& filterIndex) override;
    void showHelp(int topic) override;

private:
    QWidget* parentOf(QWidget* wanted) const;
    OdDbDatabase* drawing() const;
    /// Adds a linetype to the current drawing, in the undo record that is open or in one of its
    /// own; a sentence where it cannot.
    QString addLinetype(const LinetypeItem& item) const;

    HostCore& m_core;
    QWidget& m_window;
    HelpKey* m_helpKey;
    QPointer<CHelpViewer> m_help;
};
