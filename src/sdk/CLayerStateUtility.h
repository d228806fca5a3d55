#pragma once

#include "database/states/LayerStateMask.h"
#include "database/states/stored/LayerInfoInLS.h"
#include "database/streams/OdStreamBuf.h"
#include "sdk/layStateEntry.h"

#include <QStringList>

#include <functional>
#include <vector>

class LayerStates;
class OdDbDatabase;

/// The host's layer-state service: the named layer states of one drawing and layer-state files
/// (.las). Nothing is thrown: an operation that cannot be done answers false and lastError() says
/// why. Changes join the undo record that is open.
class CLayerStateUtility
{
public:
    /// Without a database the service works on the drawing that is current at each call.
    explicit CLayerStateUtility(OdDbDatabase* database = nullptr)
        : m_database(database)
    { }

    /// The states in the order to display. Those of external references are left out while
    /// CKestPreferenceManager::m_iDontListinXref is set.
    bool GetDBLayStateIDs(std::vector<layStateEntry>& entries);
    bool IsModelSpace() const;

    bool RenameLayerState(const QString& oldName, const QString& newName);
    bool DeleteLayerState(const QString& name);
    /// Brings back what the mask (LayerStateMask) names; layers that the state does not have are
    /// turned off when the last argument is not 0. In a layout, while bit 2 of
    /// CKestPreferenceManager::m_iOffNotfoundLayer is set, the settings become overrides of the
    /// active viewport.
    bool RestoreLayState(const QString& name, int mask, int turnOffNotFound);
    /// Stores the layers as they are, and the mask; the description stays.
    bool SaveLayState(const QString& name, int mask);
    bool RestoreLayMask(const QString& name, int& mask);

    bool ExportLayState(const QString& name, const QString& path);
    /// Writes at the stream's position.
    bool ExportLayState(const QString& name, OdStreamBufPtr& stream);
    /// Fails with `exists` set when the drawing has a state of that name. Of a file with several
    /// states the first one decides; later ones whose names are taken are passed over.
    bool ImportLayState(const QString& path, bool& exists);
    /// Reads from the stream's position to its end.
    bool ImportLayState(OdStreamBufPtr& stream);

    bool AddNewLayStateToDB(const QString& name, const QString& description);
    bool SetLayStateDesc(const QString& name, const QString& description);
    /// Fills the array with the layers of a state.
    bool SetLayersInLS(const QString& name, std::vector<LayerInfoInLS>& layers);
    bool UpdateLayerStateInfo(const QString& name, const std::vector<LayerInfoInLS>& layers);
    /// Fills the array with the names of all layers, reserved ones ("*...") left out.
    bool AddLayerList(QStringList& names);
    /// Fills the record with the layer's settings as they are.
    bool FilLSInfo(const QString& layerName, LayerInfoInLS& info);
    /// True when the settings are those of the drawing, as far as the mask of the state that was
    /// last read or updated here names them; without such a state, all of them.
    bool CheckForDifference(const std::vector<LayerInfoInLS>& layers);

    /// What a layer-state file says, whatever its encoding; the largest file that is read.
    static QString LasFileText(const QByteArray& bytes);
    static constexpr qint64 kLargestLasFile = qint64(256) << 20;
    /// A name as such a file spells it, its escapes resolved.
    static QString LasFileName(const QString& spelled);

    /// Why the last operation answered false; empty after one that did not.
    const QString& lastError() const { return m_lastError; }

private:
    OdDbDatabase* database() const;
    bool attempt(const std::function<void(OdDbDatabase&)>& operation);
    bool attemptStates(const std::function<void(LayerStates&)>& operation);

    OdDbDatabase* m_database;
    int m_mask = LayerStateMask::kAll;
    QString m_lastError;
};
