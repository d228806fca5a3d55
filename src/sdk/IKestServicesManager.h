#pragma once

#include <QByteArray>
#include <QString>

/// Services of the host that are not bound to one document.
class IKestServicesManager
{
public:
    virtual ~IKestServicesManager() = default;

    /// The text of a lineweight (hundredths of a millimetre, or a named negative value) in the unit
    /// that LWUNITS asks for: "0.25 mm" or `0.010"`; "Default", "ByLayer", "ByBlock".
    virtual QString lineWeightText(int weight) const = 0;
    /// What a module keeps for its user from one run to the next, such as widths of columns, by a
    /// key of its own ("LayerManager/ColumnWidths"); empty where nothing is kept.
    virtual QByteArray userState(const QString& key) const = 0;
    virtual void setUserState(const QString& key, const QByteArray& state) = 0;
    /// Redraws the current view from the drawing.
    virtual void refreshView() = 0;
};

/// The host's services, or null while there is no host.
IKestServicesManager* getServicesManagerInterface();

/// Regenerates the current view; all views of the current document.
void ksedRegen();
void ksedRegenAll();
