#include "database/drawing/OdDbDatabase.h"
#include "database/drawing/UndoJournal.h"
#include "database/objects/OdDbDictionary.h"
#include "database/objects/OdDbEntity.h"
#include "database/objects/OdDbLayout.h"
#include "database/store/HeaderVariables.h"
#include "database/store/ObjectStore.h"
#include "database/tables/OdDbBlockTableRecord.h"
#include "database/tables/OdDbLayerTableRecord.h"

#include <algorithm>

namespace {

/// Viewport number that stands for model space and for the sheet itself.
constexpr int kModelViewport = 2;
constexpr int kSheetViewport = 1;

constexpr int kActiveStatus = 1;

} // namespace

std::vector<OdDbObjectId> OdDbDatabase::layouts() const
{
    std::vector<OdDbObjectId> found;
    const auto roots = m_namedObjects.openObject<OdDbDictionary>();
    const auto entries =
        roots ? roots->getAt(QStringLiteral("ACAD_LAYOUT")).openObject<OdDbDictionary>() : nullptr;
    if (!entries)
        return found;
    for (const DictionaryEntry& entry : entries->entries()) {
        if (entry.value.openObject<OdDbLayout>())
            found.push_back(entry.value);
    }
    std::stable_sort(found.begin(), found.end(), [](OdDbObjectId a, OdDbObjectId b) {
        return a.openObject<OdDbLayout>()->getTabOrder()
            < b.openObject<OdDbLayout>()->getTabOrder();
    });
    return found;
}

OdDbObjectId OdDbDatabase::getPaperSpaceId() const
{
    if (const auto sheet = m_current.sheet.openObject<OdDbLayout>())
        return sheet->getBlockTableRecordId();
    return table(OdDbTableKind::Block).getAt(QStringLiteral("*Paper_Space"));
}

OdDbObjectId OdDbDatabase::currentLayoutId() const
{
    const OdDbObjectId space = m_current.modelSpace ? getModelSpaceId() : getPaperSpaceId();
    if (!m_current.modelSpace && !m_current.sheet.isNull())
        return m_current.sheet;
    const auto block = space.openObject<OdDbBlockTableRecord>();
    return block ? block->getLayoutId() : OdDbObjectId();
}

OdDbObjectId OdDbDatabase::activeViewportId() const
{
    return m_current.modelSpace ? OdDbObjectId() : activeViewportOf(getPaperSpaceId());
}

OdDbObjectId OdDbDatabase::activeViewportOf(OdDbObjectId sheet) const
{
    const std::vector<OdDbObjectId> viewports = viewportsOf(sheet);
    if (viewports.empty())
        return {};
    if (std::find(viewports.begin(), viewports.end(), m_current.viewport) != viewports.end())
        return m_current.viewport;
    const auto floating = std::find_if(viewports.begin() + 1, viewports.end(), [](OdDbObjectId id) {
        return id.openObject<OdDbViewport>()->status() == kActiveStatus;
    });
    return floating == viewports.end() ? viewports.front() : *floating;
}

std::vector<OdDbObjectId> OdDbDatabase::viewportsOf(OdDbObjectId space) const
{
    std::vector<OdDbObjectId> viewports;
    for (const quint32 slot : m_store->viewports()) {
        if (m_store->owner(slot) == space.slot() && !m_store->has(slot, ObjectStore::kErased))
            viewports.push_back(idOfSlot(slot));
    }
    // In a sheet that was opened the sheet's own viewport has number 1; in others all numbers are 0
    // and it is the first one.
    const auto overall = std::find_if(viewports.begin(), viewports.end(), [](OdDbObjectId id) {
        return id.openObject<OdDbViewport>()->number() == 1;
    });
    if (overall != viewports.end())
        std::rotate(viewports.begin(), overall, overall + 1);
    return viewports;
}

OdDbObjectId OdDbDatabase::getCLAYER() const
{
    return m_current.layer.isErased() ? getLayerZeroId() : m_current.layer;
}

bool OdDbDatabase::getTILEMODE() const
{
    return m_current.modelSpace;
}

QString OdDbDatabase::getCTAB() const
{
    const auto layout = currentLayoutId().openObject<OdDbLayout>();
    if (layout)
        return layout->getLayoutName();
    return m_current.modelSpace ? QStringLiteral("Model") : QStringLiteral("Layout1");
}

int OdDbDatabase::getCVPORT() const
{
    if (m_current.modelSpace)
        return kModelViewport;
    const auto viewport = activeViewportId().openObject<OdDbViewport>();
    return viewport && viewport->number() > 0 ? viewport->number() : kSheetViewport;
}

void OdDbDatabase::setCLAYER(OdDbObjectId layer)
{
    if (!layer.openObject<OdDbLayerTableRecord>())
        throw OdError(OdResult::InvalidInput,
                      QStringLiteral("CLAYER must name a layer of the drawing."));
    CurrentSettings next = m_current;
    next.layer = layer;
    changeCurrent(next);
}

void OdDbDatabase::setTILEMODE(bool modelSpace)
{
    CurrentSettings next = m_current;
    next.modelSpace = modelSpace;
    changeCurrent(next);
}

void OdDbDatabase::setCTAB(const QString& layoutName)
{
    const std::vector<OdDbObjectId> all = layouts();
    const auto found = std::find_if(all.begin(), all.end(), [&](OdDbObjectId id) {
        return id.openObject<OdDbLayout>()->getLayoutName().compare(layoutName, Qt::CaseInsensitive)
            == 0;
    });
    CurrentSettings next = m_current;
    if (found != all.end() && (*found).openObject<OdDbLayout>()->getTabOrder() != 0) {
        next.modelSpace = false;
        next.sheet = *found;
        next.viewport = {};
    } else if (found != all.end()
               || layoutName.compare(QStringLiteral("Model"), Qt::CaseInsensitive) == 0)
    {
        next.modelSpace = true;
    } else {
        throw OdError(OdResult::KeyNotFound,
                      QStringLiteral("There is no layout \"%1\".").arg(layoutName));
    }
    changeCurrent(next);
}

void OdDbDatabase::setActiveViewport(OdDbObjectId viewport)
{
    CurrentSettings next = m_current;
    next.viewport = viewport;
    changeCurrent(next);
}

void OdDbDatabase::changeCurrent(const CurrentSettings& next)
{
    if (next == m_current)
        return;
    const CurrentSettings before = m_current;
    m_journal->keepCurrent(before);
    m_current = next;
    announceCurrent(before);
}

void OdDbDatabase::announceCurrent(const CurrentSettings& before)
{
    const CurrentSettings now = m_current;
    if (before.layer != now.layer)
        notifyHeader(QStringLiteral("CLAYER"));
    if (before.modelSpace != now.modelSpace)
        notifyHeader(QStringLiteral("TILEMODE"));
    if (before.modelSpace != now.modelSpace || before.sheet != now.sheet)
        notifyHeader(QStringLiteral("CTAB"));
    if (before.viewport != now.viewport)
        notifyHeader(QStringLiteral("CVPORT"));
}

void OdDbDatabase::setHeaderVariable(const QString& name, int code, const QString& value)
{
    const bool existed = m_header->contains(name);
    const QString before = m_header->value(name);
    if (existed && before == value)
        return;
    m_journal->keepHeader(name, code, before, existed);
    m_header->set(name, code, value);
    notifyHeader(name.mid(1));
}

void OdDbDatabase::exchangeHeader(const QString& name, int code, QString& value, bool& exists)
{
    const bool existed = m_header->contains(name);
    const QString before = m_header->value(name);
    if (exists)
        m_header->set(name, code, value);
    else
        m_header->remove(name);
    value = before;
    exists = existed;
}
