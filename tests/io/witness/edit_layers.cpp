// Edits a drawing for test_saved_drawings.py: edit_layers simple|full IN OUT.
//
// simple: freezes every second layer and renames the last one that may be renamed.
// full: beyond that a new layer, a description, a transparency, overrides, frozen lists, filters
// and variables. Prints the new name and the old one, a line each; nothing where no layer can be
// renamed.

#include "database/drawing/OdDbDatabase.h"
#include "database/filters/OdLyLayerFilterManager.h"
#include "database/objects/OdDbEntity.h"
#include "database/objects/OdDbLayout.h"
#include "database/store/ObjectStore.h"
#include "database/tables/OdDbLayerTable.h"
#include "database/tables/OdDbLayerTableRecord.h"
#include "database/values/GroupList.h"
#include "io/DrawingFile.h"

#include <QString>

#include <cstdio>

namespace {

void freezeEverySecond(const OdDbDatabase& drawing)
{
    bool second = false;
    for (const OdDbObjectId id : drawing.layerTable().records()) {
        if (second)
            id.safeOpenObject<OdDbLayerTableRecord>(OdDb::kForWrite)->setIsFrozen(true);
        second = !second;
    }
}

void renameLast(const OdDbDatabase& drawing)
{
    auto layers = drawing.layerTable().records();
    for (auto it = layers.rbegin(); it != layers.rend(); ++it) {
        const auto layer = it->safeOpenObject<OdDbLayerTableRecord>(OdDb::kForWrite);
        const QString old = layer->getName();
        if (*it == drawing.getLayerZeroId() || layer->isDependent()
            || old.startsWith(QLatin1Char('*'))
            || old.compare(QLatin1String("defpoints"), Qt::CaseInsensitive) == 0)
            continue;
        layer->setName(QStringLiteral("RENAMED"));
        std::printf("RENAMED\n%s\n", qUtf8Printable(old));
        return;
    }
}

void editEverything(OdDbDatabase& drawing)
{
    const OdDbObjectId made = drawing.layerTable().add(QStringLiteral("ADDED"));
    const auto layer = made.safeOpenObject<OdDbLayerTableRecord>(OdDb::kForWrite);
    layer->setDescription(QStringLiteral("added by a test"));
    layer->setTransparency(OdDbLayerTableRecord::transparencyFromPercent(50));
    layer->setColor(OdCmColor::fromIndex(3));
    layer->setIsReconciled(true);
    const auto zero =
        drawing.getLayerZeroId().safeOpenObject<OdDbLayerTableRecord>(OdDb::kForWrite);
    zero->setDescription(QStringLiteral("the first"));
    for (const quint32 slot : drawing.store().viewports()) {
        const OdDbObjectId viewport = drawing.idOfSlot(slot);
        layer->setColor(OdCmColor::fromIndex(1), viewport);
        zero->setLineWeight(50, viewport);
        viewport.safeOpenObject<OdDbViewport>(OdDb::kForWrite)->freezeLayersInViewport({made});
    }
    for (const OdDbObjectId layout : drawing.layouts())
        drawing.addEntity("LINE",
                          {{62, "5"},
                           {100, "AcDbLine"},
                           {10, "1"},
                           {20, "2"},
                           {30, "0"},
                           {11, "3"},
                           {21, "4"},
                           {31, "0"}},
                          layout.openObject<OdDbLayout>()->getBlockTableRecordId(), made);
    drawing.setDictionaryVariable(QStringLiteral("LAYEREVAL"), QStringLiteral("1"));
    const auto manager = odlyGetLayerFilterManager(&drawing);
    OdLyLayerFilterPtr root;
    OdLyLayerFilterPtr current;
    manager->getFilters(root, current);
    const auto group = odrxCreate<OdLyLayerGroup>(QStringLiteral("Added group"));
    group->addLayerId(made);
    root->addNested(group);
    manager->setFilters(root, group);
}

} // namespace

int main(int count, char** arguments)
{
    if (count != 4)
        return 2;
    try {
        const auto drawing = readDrawing(QString::fromLocal8Bit(arguments[2]));
        freezeEverySecond(*drawing);
        renameLast(*drawing);
        if (QByteArrayView(arguments[1]) == "full")
            editEverything(*drawing);
        writeDrawing(*drawing, QString::fromLocal8Bit(arguments[3]));
    } catch (const OdError& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
    return 0;
}
