#include "io/dxf/DxfWriter.h"

#include "database/HeaderVariables.h"
#include "database/ObjectStore.h"
#include "database/OdDbDatabase.h"
#include "database/OdDbLayerTableRecord.h"
#include "io/dxf/DxfObjectSource.h"

#include <QCoreApplication>

#include <algorithm>

namespace {

QString tr(const char* text)
{
    return QCoreApplication::translate("DxfWriter", text);
}

} // namespace

DxfWriter::DxfWriter(const DxfObjectSource& source, const OdDbDatabase& database)
    : m_source(source)
    , m_database(database)
{ }

DrawingPieces DxfWriter::run()
{
    const ObjectStore& store = m_database.store();
    for (const quint32 slot : store.touched()) {
        refuseUnsavable(slot);
        if (store.type(slot) == RecordType::Layer && slot < store.fileRecords())
            patchLayer(slot);
    }
    patchHeader();
    std::stable_sort(m_patches.begin(), m_patches.end(),
                     [](const auto& a, const auto& b) { return a.begin < b.begin; });

    DrawingPieces pieces;
    quint64 copied = 0;
    for (LayerGroups::Patch& patch : m_patches) {
        if (patch.begin > copied)
            pieces.parts.push_back(m_source.image().view(copied, patch.begin));
        if (!patch.bytes.isEmpty()) {
            pieces.owned.push_back(std::move(patch.bytes));
            pieces.parts.push_back(pieces.owned.back());
        }
        copied = patch.end;
    }
    pieces.parts.push_back(m_source.image().view(copied, m_source.image().size()));
    m_report.recordsIdentical = store.fileRecords() - m_report.recordsChanged;
    pieces.report = m_report;
    return pieces;
}

void DxfWriter::refuseUnsavable(quint32 slot) const
{
    const ObjectStore& store = m_database.store();
    const bool inFile = slot < store.fileRecords();
    const bool erased = store.has(slot, ObjectStore::kErased);
    if (inFile == erased)
        throw OdError(OdResult::NotImplementedYet,
                      erased ? tr("Erased objects cannot be saved yet (%1).")
                                   .arg(QString::fromLatin1(store.typeName(slot)))
                             : tr("The drawing lacks a record for \"%1\" that was changed; it "
                                  "cannot be saved yet.")
                                   .arg(QString::fromLatin1(store.typeName(slot))));
}

void DxfWriter::patchLayer(quint32 slot)
{
    const auto* layer = static_cast<const OdDbLayerTableRecord*>(m_database.store().object(slot));
    const LayerState before = m_source.readLayer(slot);
    if (before == layer->state())
        return;
    const std::size_t patches = m_patches.size();
    DxfCursor record = m_source.cursor(slot);
    LayerGroups::patch(record, before, layer->state(), m_source.text(), m_patches);
    if (m_patches.size() > patches)
        ++m_report.recordsChanged;
}

void DxfWriter::patchHeader()
{
    const HeaderVariables& header = m_database.header();
    for (const HeaderVariables::Variable& variable : header.all()) {
        if (variable.value != variable.loadedValue && header.contains(variable.name))
            patchVariable(variable.name, m_source.text().encode(variable.value));
    }
    const CurrentSettings& loaded = m_database.loadedCurrent();
    const CurrentSettings& current = m_database.current();
    if (current.layer != loaded.layer) {
        const auto layer = m_database.getCLAYER().safeOpenObject<OdDbLayerTableRecord>();
        patchVariable(QStringLiteral("$CLAYER"), m_source.text().encode(layer->getName()));
    }
    if (current.modelSpace != loaded.modelSpace)
        patchVariable(QStringLiteral("$TILEMODE"), current.modelSpace ? "1" : "0");
}

void DxfWriter::patchVariable(const QString& name, const QByteArray& value)
{
    const auto& all = m_database.header().all();
    const auto it =
        std::find_if(all.begin(), all.end(), [&](const auto& v) { return v.name == name; });
    if (it == all.end() || it->valueEnd == 0)
        throw OdError(OdResult::NotImplementedYet,
                      tr("The drawing has no header variable %1 to keep the change in; it cannot "
                         "be saved yet.")
                          .arg(name));
    const QByteArrayView old = m_source.image().view(it->valueBegin, it->valueEnd);
    m_patches.push_back({it->valueBegin, it->valueEnd,
                         old.startsWith(' ') ? value.rightJustified(old.size()) : value});
    ++m_report.recordsChanged;
}

DrawingPieces DxfObjectSource::write(const OdDbDatabase& database) const
{
    return DxfWriter(*this, database).run();
}
