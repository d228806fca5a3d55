#pragma once

#include "sdk/IKestIOManager.h"
#include "sdk/IKestServicesManager.h"

/// The dialogs behind the SDK's services; a window brings them along, a batch run has none. The
/// calls are those of the services, with the same answers.
class HostDialogs
{
public:
    virtual ~HostDialogs() = default;

    virtual int pickColor(const KestPickRequest& request, OdCmColor& color) = 0;
    virtual int pickLinetype(const KestPickRequest& request, OdDbObjectId& linetype) = 0;
    virtual int pickLineweight(const KestPickRequest& request, int& weight) = 0;
    virtual int pickPlotStyle(const KestPickRequest& request, QString& name) = 0;
    virtual int selectFile(const KestFileRequest& request, QString& path, int& filterIndex) = 0;
    virtual void showHelp(int topic) = 0;
};
