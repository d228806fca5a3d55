#pragma once

#include <QByteArray>
#include <QString>

class OdCmColor;
class OdDbObjectId;
class QWidget;

/// How to ask for a colour, linetype or lineweight. For the property of a layer nothing but the
/// property itself is on offer.
struct KestPickRequest
{
    QString title; ///< empty: the dialog's own
    QWidget* parent = nullptr; ///< null: the main window
    bool offersByLayer = false;
    bool offersByBlock = false;
    bool offersDefault = true; ///< of lineweights
};

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

    /// Dialogs that let the user pick a property value for the current drawing. Each starts from
    /// the value it is given and answers kest::kNormal with the value picked, kest::kCancel, or
    /// kest::kError where the host has nobody to ask.
    virtual int pickColor(const KestPickRequest& request, OdCmColor& color) = 0;
    virtual int pickLinetype(const KestPickRequest& request, OdDbObjectId& linetype) = 0;
    /// Hundredths of a millimetre; -1 by layer, -2 by block, -3 default.
    virtual int pickLineweight(const KestPickRequest& request, int& weight) = 0;
    /// A name of the drawing's plot styles. Where colours decide about plotting the dialog says so
    /// and can only be cancelled.
    virtual int pickPlotStyle(const KestPickRequest& request, QString& name) = 0;
    /// Opens the help viewer at a topic; at its contents where the topic is not known.
    virtual void showHelp(int topic) = 0;
};

/// The host's services, or null while there is no host.
IKestServicesManager* getServicesManagerInterface();

/// Regenerates the current view; all views of the current document.
void ksedRegen();
void ksedRegenAll();
