#include "support/drawings/RandomEdits.h"

#include "database/drawing/OdDbDatabase.h"
#include "database/filters/OdLyLayerFilterManager.h"
#include "database/objects/OdDbEntity.h"
#include "database/states/LayerStates.h"
#include "database/store/ObjectStore.h"
#include "database/tables/OdDbLayerTable.h"
#include "database/tables/OdDbLayerTableRecord.h"
#include "database/values/GroupList.h"

namespace {

OdDbLayerTableRecordPtr opened(OdDbObjectId id)
{
    return id.openObject<OdDbLayerTableRecord>(OdDb::kForWrite);
}

} // namespace

OdDbObjectId RandomEdits::layer()
{
    const auto records = m_database.layerTable().records();
    return records[static_cast<std::size_t>(number(static_cast<int>(records.size())))];
}

OdDbObjectId RandomEdits::viewport()
{
    const auto& all = m_database.store().viewports();
    return all.empty()
        ? OdDbObjectId()
        : m_database.idOfSlot(all[static_cast<std::size_t>(number(static_cast<int>(all.size())))]);
}

OdDbObjectId RandomEdits::entity()
{
    const ObjectStore& store = m_database.store();
    for (int tries = 0; tries < 20; ++tries) {
        const auto slot = static_cast<quint32>(number(static_cast<int>(store.fileRecords())));
        if (store.has(slot, ObjectStore::kEntity) && !store.has(slot, ObjectStore::kErased)
            && !store.has(slot, ObjectStore::kSubEntity)
            && store.type(slot) != RecordType::Viewport)
            return m_database.idOfSlot(slot);
    }
    return {};
}

void RandomEdits::step()
{
    struct Kind
    {
        const char* name;
        Edit edit;
    };
    constexpr Kind kKinds[] = {
        {"flags", &RandomEdits::flags},
        {"look", &RandomEdits::look},
        {"texts", &RandomEdits::texts},
        {"overrides", &RandomEdits::overrides},
        {"removeOverrides", &RandomEdits::removeOverrides},
        {"rename", &RandomEdits::rename},
        {"addLayer", &RandomEdits::addLayer},
        {"eraseLayer", &RandomEdits::eraseLayer},
        {"freezeInViewport", &RandomEdits::freezeInViewport},
        {"addFilter", &RandomEdits::addFilter},
        {"editFilter", &RandomEdits::editFilter},
        {"removeFilter", &RandomEdits::removeFilter},
        {"addState", &RandomEdits::addState},
        {"saveState", &RandomEdits::saveState},
        {"restoreState", &RandomEdits::restoreState},
        {"renameState", &RandomEdits::renameState},
        {"removeState", &RandomEdits::removeState},
        {"variable", &RandomEdits::variable},
        {"header", &RandomEdits::header},
        {"currentLayer", &RandomEdits::currentLayer},
        {"moveEntity", &RandomEdits::moveEntity},
        {"eraseEntity", &RandomEdits::eraseEntity},
        {"addEntity", &RandomEdits::addEntity},
    };
    const int chosen = number(100);
    if (chosen < 20) {
        m_last = "undo";
        m_database.undo();
        return;
    }
    if (chosen < 30) {
        m_last = "redo";
        m_database.redo();
        return;
    }
    const Kind& kind = kKinds[number(static_cast<int>(std::size(kKinds)))];
    m_last = kind.name;
    m_database.startUndoRecord();
    (this->*kind.edit)();
    m_database.endUndoRecord();
}

void RandomEdits::flags()
{
    const auto record = opened(layer());
    switch (number(5)) {
    case 0:
        return record->setIsFrozen(chance(50));
    case 1:
        return record->setIsOff(chance(50));
    case 2:
        return record->setIsLocked(chance(50));
    case 3:
        return record->setIsPlottable(chance(50));
    default:
        return record->setVPDFLT(chance(50));
    }
}

void RandomEdits::look()
{
    const auto record = opened(layer());
    const auto linetypes = m_database.table(OdDbTableKind::Linetype).records();
    record->setColor(chance(50) || !m_trueColours
                         ? OdCmColor::fromIndex(1 + number(255))
                         : OdCmColor::fromRgb(number(256), number(256), number(256),
                                              chance(20) ? QStringLiteral("BOOK$Red") : QString()));
    record->setLineWeight(chance(50) ? 25 : 70);
    record->setLinetypeObjectId(
        linetypes[static_cast<std::size_t>(number(static_cast<int>(linetypes.size())))]);
}

void RandomEdits::texts()
{
    const auto record = opened(layer());
    record->setDescription(chance(30) ? QString() : QStringLiteral("text ^ %1").arg(number(9)));
    record->setTransparency(OdDbLayerTableRecord::transparencyFromPercent(number(91)));
    if (chance(30))
        record->setIsReconciled(chance(50));
}

void RandomEdits::overrides()
{
    const OdDbObjectId there = viewport();
    if (there.isNull())
        return;
    const auto record = opened(layer());
    if (chance(50))
        record->setColor(OdCmColor::fromIndex(1 + number(255)), there);
    if (chance(50))
        record->setLineWeight(50, there);
    if (chance(50))
        record->setTransparency(OdDbLayerTableRecord::transparencyFromPercent(number(91)), there);
    if (chance(50))
        record->setLinetypeObjectId(m_database.getLinetypeContinuousId(), there);
}

void RandomEdits::removeOverrides()
{
    const auto record = opened(layer());
    const OdDbObjectId there = viewport();
    if (chance(40))
        return record->removeAllOverrides();
    if (there.isNull())
        return;
    if (chance(50))
        record->removeColorOverride(there);
    else
        record->removeViewportOverrides(there);
}

void RandomEdits::rename()
{
    const OdDbObjectId id = layer();
    const auto record = opened(id);
    if (id != m_database.getLayerZeroId() && !record->isDependent())
        record->setName(QStringLiteral("RENAMED_%1").arg(++m_names));
}

void RandomEdits::addLayer()
{
    const OdDbObjectId made = m_database.layerTable().add(QStringLiteral("NEW_%1").arg(++m_names));
    opened(made)->setColor(OdCmColor::fromIndex(1 + number(255)));
}

void RandomEdits::eraseLayer()
{
    m_database.layerTable().generateUsageData();
    for (int tries = 0; tries < 10; ++tries) {
        const OdDbObjectId id = layer();
        const auto record = opened(id);
        if (id == m_database.getLayerZeroId() || id == m_database.getCLAYER() || record->isInUse())
            continue;
        record->erase();
        return;
    }
}

void RandomEdits::freezeInViewport()
{
    const auto there = viewport().openObject<OdDbViewport>(OdDb::kForWrite);
    if (!there)
        return;
    OdDbObjectIdArray layers = {layer(), layer(), layer()};
    if (chance(60))
        there->freezeLayersInViewport(layers);
    else if (chance(50))
        there->thawLayersInViewport(layers);
    else
        there->thawAllLayersInViewport();
}

void RandomEdits::addFilter()
{
    const auto manager = odlyGetLayerFilterManager(&m_database);
    OdLyLayerFilterPtr root;
    OdLyLayerFilterPtr current;
    manager->getFilters(root, current);
    OdLyLayerFilterPtr made;
    if (chance(50)) {
        const auto group = odrxCreate<OdLyLayerGroup>(QStringLiteral("Group %1").arg(++m_names));
        for (int i = number(5); i > 0; --i)
            group->addLayerId(layer());
        made = group;
    } else {
        made = odrxCreate<OdLyLayerFilter>(QStringLiteral("Filter %1").arg(++m_names));
        made->setFilterExpression(QStringLiteral("COLOR==\"%1\" ").arg(1 + number(255)));
    }
    const auto& nested = root->getNestedFilters();
    const OdLyLayerFilterPtr parent =
        nested[static_cast<std::size_t>(number(static_cast<int>(nested.size())))];
    if (chance(50) && parent->allowNested(*made))
        parent->addNested(made);
    else
        root->addNested(made);
    manager->setFilters(root, chance(50) ? made : current);
}

void RandomEdits::editFilter()
{
    const auto manager = odlyGetLayerFilterManager(&m_database);
    OdLyLayerFilterPtr root;
    OdLyLayerFilterPtr current;
    manager->getFilters(root, current);
    for (const OdLyLayerFilterPtr& filter : root->getNestedFilters()) {
        if (!filter->allowRename() || chance(50))
            continue;
        if (chance(50))
            filter->setName(QStringLiteral("Named %1").arg(++m_names));
        else if (filter->isIdFilter())
            static_cast<OdLyLayerGroup&>(*filter).addLayerId(layer());
        else
            filter->setFilterExpression(QStringLiteral("LOCKED==\"True\" "));
        break;
    }
    manager->setFilters(root, chance(50) ? root : current);
}

void RandomEdits::removeFilter()
{
    const auto manager = odlyGetLayerFilterManager(&m_database);
    OdLyLayerFilterPtr root;
    OdLyLayerFilterPtr current;
    manager->getFilters(root, current);
    const std::vector<OdLyLayerFilterPtr> nested = root->getNestedFilters();
    for (const OdLyLayerFilterPtr& filter : nested) {
        if (filter->allowDelete() && chance(30))
            root->removeNested(filter);
    }
    manager->setFilters(root, root);
}

QString RandomEdits::state()
{
    const auto all = LayerStates(m_database).list(false);
    return all.empty() ? QString()
                       : all[static_cast<std::size_t>(number(static_cast<int>(all.size())))].name;
}

void RandomEdits::addState()
{
    LayerStates(m_database)
        .add(QStringLiteral("State %1").arg(++m_names), QStringLiteral("made at random"));
}

void RandomEdits::saveState()
{
    if (const QString name = state(); !name.isEmpty())
        LayerStates(m_database).save(name, number(2048));
}

void RandomEdits::restoreState()
{
    LayerStateRestore::Options options;
    options.mask = number(2048);
    options.turnOffOthers = chance(30);
    options.asOverrides = chance(20) && !m_database.activeViewportId().isNull();
    if (const QString name = state(); !name.isEmpty())
        LayerStates(m_database).restore(name, options);
}

void RandomEdits::renameState()
{
    if (const QString name = state(); !name.isEmpty())
        LayerStates(m_database).rename(name, QStringLiteral("Renamed \"%1\" |").arg(++m_names));
}

void RandomEdits::removeState()
{
    if (const QString name = state(); !name.isEmpty())
        LayerStates(m_database).remove(name);
}

void RandomEdits::variable()
{
    m_database.setDictionaryVariable(chance(50) ? QStringLiteral("LAYEREVAL")
                                                : QStringLiteral("LAYERNOTIFY"),
                                     QString::number(number(3)));
}

void RandomEdits::header()
{
    m_database.setHeaderVariable(chance(50) ? QStringLiteral("$LWDISPLAY")
                                            : QStringLiteral("$XEDIT"),
                                 290, QString::number(number(2)));
}

void RandomEdits::currentLayer()
{
    m_database.setCLAYER(layer());
    if (chance(30))
        m_database.setTILEMODE(chance(50));
}

void RandomEdits::moveEntity()
{
    const OdDbObjectId moved = entity();
    if (!moved.isNull())
        m_database.setEntityLayer(moved, layer());
}

void RandomEdits::eraseEntity()
{
    const auto erased = entity().openObject<OdDbEntity>(OdDb::kForWrite);
    if (erased)
        erased->erase();
}

void RandomEdits::addEntity()
{
    const QByteArray x = QByteArray::number(number(1000));
    GroupList groups;
    if (chance(50))
        groups.append(62, QByteArray::number(1 + number(255)));
    for (const GroupList::Group& group :
         GroupList{{100, "AcDbCircle"}, {10, x}, {20, "1.5"}, {30, "0"}, {40, "2"}})
        groups.append(group);
    const OdDbObjectId space =
        chance(70) ? m_database.getModelSpaceId() : m_database.getPaperSpaceId();
    m_database.addEntity("CIRCLE", groups, space, layer());
}
