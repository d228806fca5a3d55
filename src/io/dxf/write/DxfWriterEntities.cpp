#include "database/drawing/OdDbDatabase.h"
#include "database/store/ObjectStore.h"
#include "database/tables/OdDbBlockTableRecord.h"
#include "io/dxf/read/DxfObjectSource.h"
#include "io/dxf/read/DxfStructure.h"
#include "io/dxf/write/DxfWriter.h"

namespace {

/// Model space and the sheet that comes first have theirs in a section of its own.
bool standsInEntities(const OdDbBlockTableRecord& block)
{
    const QString name = block.getName();
    return name.compare(QLatin1String("*Model_Space"), Qt::CaseInsensitive) == 0
        || name.compare(QLatin1String("*Paper_Space"), Qt::CaseInsensitive) == 0;
}

} // namespace

std::optional<quint64> DxfWriter::endOfBlock(const OdDbBlockTableRecord& block) const
{
    if (block.blockSlot() == OdDbObjectId::kNoSlot)
        return std::nullopt;
    for (quint32 slot = block.blockSlot() + 1; slot < m_store.fileRecords(); ++slot) {
        if (m_store.type(slot) == RecordType::EndBlk)
            return m_store.begin(slot);
    }
    return std::nullopt;
}

void DxfWriter::addEntity(quint32 slot)
{
    const auto block =
        m_database.idOfSlot(m_store.owner(slot)).safeOpenObject<OdDbBlockTableRecord>();
    const bool inSection = standsInEntities(*block) || !endOfBlock(*block);
    NewRun& run = m_entities[inSection ? ObjectStore::kNone : block->objectId().slot()];
    const NewRecords::Head head = headOf(slot);
    addTo(run, slot, m_newRecords.entity(head, m_database.idOfSlot(slot)));
    used(head.handle);
}

void DxfWriter::placeEntities()
{
    const DxfStructure structure(m_source);
    for (auto& [owner, run] : m_entities) {
        if (owner != ObjectStore::kNone) {
            const auto block = m_database.idOfSlot(owner).safeOpenObject<OdDbBlockTableRecord>();
            m_patches.insertRecords(*endOfBlock(*block), run.placed = run.bytes);
        } else if (const auto end = structure.entitiesEnd()) {
            m_patches.insertRecords(*end, run.placed = run.bytes);
        } else {
            const QByteArray start = m_newRecords.sectionStart("ENTITIES");
            run.prefix = start.size();
            m_patches.insertRecords(structure.beforeObjects(),
                                    run.placed = start + run.bytes + m_newRecords.sectionEnd());
        }
    }
}
