#include "sdk/CLayerStateUtility.h"

#include "database/drawing/OdDbDatabase.h"
#include "database/states/LayerStates.h"
#include "database/tables/OdDbLayerTable.h"
#include "database/tables/OdDbLayerTableRecord.h"
#include "io/las/LasReader.h"
#include "io/las/LasText.h"
#include "io/las/LasWriter.h"
#include "sdk/CKestPreferenceManager.h"
#include "sdk/KsApDocManager.h"

#include <QCoreApplication>

#include <limits>

namespace {

constexpr int kAsViewportOverrides = 2; ///< bit of m_iOffNotfoundLayer

QString tr(const char* text)
{
    return QCoreApplication::translate("CLayerStateUtility", text);
}

void requireStream(const OdStreamBufPtr& stream)
{
    if (!stream)
        throw OdError(OdResult::InvalidInput, tr("A layer state needs a stream."));
}

/// The first state is wanted: its name must be free. Others join where their names are.
void takeAll(LayerStates& states, const std::vector<PortableLayerState>& read)
{
    bool first = true;
    for (const PortableLayerState& state : read) {
        if (std::exchange(first, false) || !states.has(state.name))
            states.take(state);
    }
}

} // namespace

OdDbDatabase* CLayerStateUtility::database() const
{
    if (m_database)
        return m_database;
    const KsApDocManager* documents = ksDocManagerPtr();
    const KsApDocument* current = documents ? documents->curDocument() : nullptr;
    return current ? current->database() : nullptr;
}

bool CLayerStateUtility::attempt(const std::function<void(OdDbDatabase&)>& operation)
{
    m_lastError.clear();
    OdDbDatabase* drawing = database();
    if (!drawing) {
        m_lastError = tr("No drawing is open.");
        return false;
    }
    try {
        operation(*drawing);
        return true;
    } catch (const OdError& error) {
        m_lastError = error.description();
    } catch (const std::exception& error) {
        m_lastError = QString::fromLocal8Bit(error.what());
    }
    return false;
}

bool CLayerStateUtility::attemptStates(const std::function<void(LayerStates&)>& operation)
{
    return attempt([&](OdDbDatabase& drawing) {
        LayerStates states(drawing);
        operation(states);
    });
}

bool CLayerStateUtility::GetDBLayStateIDs(std::vector<layStateEntry>& entries)
{
    entries.clear();
    return attemptStates([&](LayerStates& states) {
        const bool withExternal = CKestPreferenceManager::instance().m_iDontListinXref == 0;
        for (const LayerStateSummary& state : states.list(withExternal))
            entries.push_back({state.name, state.description, state.inLayout, state.sameAsDrawing});
    });
}

bool CLayerStateUtility::IsModelSpace() const
{
    const OdDbDatabase* drawing = database();
    return !drawing || drawing->getTILEMODE();
}

bool CLayerStateUtility::RenameLayerState(const QString& oldName, const QString& newName)
{
    return attemptStates([&](LayerStates& states) { states.rename(oldName, newName); });
}

bool CLayerStateUtility::DeleteLayerState(const QString& name)
{
    return attemptStates([&](LayerStates& states) { states.remove(name); });
}

bool CLayerStateUtility::RestoreLayState(const QString& name, int mask, int turnOffNotFound)
{
    return attempt([&](OdDbDatabase& drawing) {
        const int preference = CKestPreferenceManager::instance().m_iOffNotfoundLayer;
        LayerStateRestore::Options options;
        options.mask = mask;
        options.turnOffOthers = turnOffNotFound != 0;
        options.asOverrides = (preference & kAsViewportOverrides) != 0
            && drawing.activeViewportId().openObject<OdDbViewport>();
        LayerStates(drawing).restore(name, options);
    });
}

bool CLayerStateUtility::SaveLayState(const QString& name, int mask)
{
    return attemptStates([&](LayerStates& states) { states.save(name, mask); });
}

bool CLayerStateUtility::RestoreLayMask(const QString& name, int& mask)
{
    return attemptStates([&](LayerStates& states) { mask = states.restoreMask(name); });
}

bool CLayerStateUtility::ExportLayState(const QString& name, const QString& path)
{
    return attemptStates(
        [&](LayerStates& states) { LasWriter::writeFile({states.exported(name)}, path); });
}

bool CLayerStateUtility::ExportLayState(const QString& name, OdStreamBufPtr& stream)
{
    return attemptStates([&](LayerStates& states) {
        requireStream(stream);
        const QByteArray bytes = LasWriter::bytesWithLinetypes({states.exported(name)});
        stream->putBytes(bytes.constData(), static_cast<quint64>(bytes.size()));
    });
}

bool CLayerStateUtility::ImportLayState(const QString& path, bool& exists)
{
    exists = false;
    return attemptStates([&](LayerStates& states) {
        const std::vector<PortableLayerState> read = LasReader::readFile(path);
        exists = states.has(read.front().name);
        takeAll(states, read);
    });
}

bool CLayerStateUtility::ImportLayState(OdStreamBufPtr& stream)
{
    return attemptStates([&](LayerStates& states) {
        requireStream(stream);
        const quint64 count = stream->length() - stream->tell();
        if (count > static_cast<quint64>(std::numeric_limits<int>::max()))
            throw OdError(OdResult::OutOfRange, tr("The stream is too long for a layer state."));
        QByteArray bytes(static_cast<qsizetype>(count), Qt::Uninitialized);
        stream->getBytes(bytes.data(), count);
        takeAll(states, LasReader::read(bytes, tr("The stream")));
    });
}

bool CLayerStateUtility::AddNewLayStateToDB(const QString& name, const QString& description)
{
    return attemptStates([&](LayerStates& states) { states.add(name, description); });
}

bool CLayerStateUtility::SetLayStateDesc(const QString& name, const QString& description)
{
    return attemptStates([&](LayerStates& states) { states.setDescription(name, description); });
}

bool CLayerStateUtility::SetLayersInLS(const QString& name, std::vector<LayerInfoInLS>& layers)
{
    layers.clear();
    return attemptStates([&](LayerStates& states) {
        layers = states.layers(name);
        m_mask = states.restoreMask(name);
    });
}

bool CLayerStateUtility::UpdateLayerStateInfo(const QString& name,
                                              const std::vector<LayerInfoInLS>& layers)
{
    return attemptStates([&](LayerStates& states) {
        states.setLayers(name, layers);
        m_mask = states.restoreMask(name);
    });
}

bool CLayerStateUtility::AddLayerList(QStringList& names)
{
    names.clear();
    return attempt([&](OdDbDatabase& drawing) {
        for (const OdDbObjectId id : drawing.layerTable().records()) {
            const QString name = id.safeOpenObject<OdDbLayerTableRecord>()->getName();
            if (!name.startsWith(QLatin1Char('*')))
                names.append(name);
        }
    });
}

bool CLayerStateUtility::FilLSInfo(const QString& layerName, LayerInfoInLS& info)
{
    return attemptStates([&](LayerStates& states) { info = states.layerNow(layerName); });
}

bool CLayerStateUtility::CheckForDifference(const std::vector<LayerInfoInLS>& layers)
{
    bool same = false;
    attemptStates([&](LayerStates& states) { same = states.matchesDrawing(layers, m_mask); });
    return same;
}

QString CLayerStateUtility::LasFileText(const QByteArray& bytes)
{
    return LasText::decodeFile(bytes);
}

QString CLayerStateUtility::LasFileName(const QString& spelled)
{
    return LasText::unescaped(spelled);
}
