#include "io/dwg/support/LayerEdits.h"

#include "database/drawing/OdDbDatabase.h"
#include "database/filters/OdLyLayerFilterManager.h"
#include "database/objects/OdDbEntity.h"
#include "database/objects/OdDbLayout.h"
#include "database/states/LayerStateMask.h"
#include "database/states/LayerStates.h"
#include "database/store/HeaderVariables.h"
#include "database/store/NameIndex.h"
#include "database/store/ObjectStore.h"
#include "database/tables/OdDbLayerTable.h"
#include "database/tables/OdDbLayerTableRecord.h"
#include "database/tables/OdDbLinetypeTableRecord.h"
#include "database/values/GroupList.h"

namespace {

// A name that is longer than most, with signs of several scripts that windows-1252 lacks.
const QString kLongName = QStringLiteral(
    "Proof \u00e4\u00f6\u00fc \u0416\u0443\u043a \u5c64 a rather long name of a layer");
const QString kProof = QStringLiteral("Proof");

OdDbLayerTableRecordPtr opened(OdDbObjectId layer)
{
    return layer.safeOpenObject<OdDbLayerTableRecord>(OdDb::kForWrite);
}

/// The last layer that may be renamed.
OdDbObjectId lastId(const OdDbDatabase& drawing)
{
    const auto layers = drawing.layerTable().records();
    for (auto it = layers.rbegin(); it != layers.rend(); ++it) {
        const auto layer = it->safeOpenObject<OdDbLayerTableRecord>();
        if (*it != drawing.getLayerZeroId() && !layer->isDependent())
            return *it;
    }
    return drawing.getLayerZeroId();
}

OdDbLayerTableRecordPtr last(const OdDbDatabase& drawing)
{
    return opened(lastId(drawing));
}

OdDbLayerTableRecordPtr proof(const OdDbDatabase& drawing)
{
    return opened(drawing.layerTable().getAt(kProof));
}

OdDbObjectId viewport(const OdDbDatabase& drawing)
{
    const auto& viewports = drawing.store().viewports();
    return viewports.empty() ? OdDbObjectId() : drawing.idOfSlot(viewports.back());
}

/// The oldest line that is not on the last layer.
OdDbObjectId entity(const OdDbDatabase& drawing)
{
    const ObjectStore& store = drawing.store();
    const quint32 last = lastId(drawing).slot();
    OdDbObjectId oldest;
    for (quint32 slot = 0; slot < store.fileRecords(); ++slot) {
        const bool counts = store.has(slot, ObjectStore::kEntity)
            && !store.has(slot, ObjectStore::kSubEntity) && store.type(slot) == RecordType::Line
            && store.layer(slot) != last;
        if (counts && (oldest.isNull() || store.handle(slot) < store.handle(oldest.slot())))
            oldest = drawing.idOfSlot(slot);
    }
    return oldest;
}

using Change = std::function<void(OdLyLayerFilter& root)>;

void changeFilters(OdDbDatabase& drawing, const Change& change)
{
    const auto manager = odlyGetLayerFilterManager(&drawing);
    OdLyLayerFilterPtr root;
    OdLyLayerFilterPtr current;
    manager->getFilters(root, current);
    change(*root);
    manager->setFilters(root, current);
}

OdLyLayerFilterPtr filter(const OdLyLayerFilter& root, const QString& name)
{
    for (const OdLyLayerFilterPtr& nested : root.getNestedFilters()) {
        if (nested->name() == name)
            return nested;
    }
    throw OdError(OdResult::KeyNotFound, name);
}

void addFilters(OdDbDatabase& drawing, OdDbObjectId layer)
{
    changeFilters(drawing, [&](OdLyLayerFilter& root) {
        const auto group = odrxCreate<OdLyLayerGroup>(QStringLiteral("Proof group \u5c64"));
        group->addLayerId(drawing.getLayerZeroId());
        group->addLayerId(layer);
        root.addNested(group);
        const auto rule = odrxCreate<OdLyLayerFilter>(QStringLiteral("Proof rule"));
        rule->setFilterExpression(QStringLiteral("COLOR==\"3\" "));
        root.addNested(rule);
    });
}

void addLinetype(OdDbDatabase& drawing)
{
    OdDbSymbolTable& table = drawing.table(OdDbTableKind::Linetype);
    auto record = std::make_unique<OdDbLinetypeTableRecord>();
    record->stateForLoading() = {
        QStringLiteral("PROOF_DASHES"), QStringLiteral("Proof __ . __"), {0.5, -0.25, 0, -0.25}};
    table.appendRecord(drawing.store().size(), NameIndex::fold(QStringLiteral("PROOF_DASHES")));
    const OdDbObjectId made =
        drawing.addObject(std::move(record), RecordType::Ltype, table.objectId());
    last(drawing)->setLinetypeObjectId(made);
}

void draw(OdDbDatabase& drawing)
{
    const OdDbObjectId space = drawing.getModelSpaceId();
    const OdDbObjectId layer = lastId(drawing);
    drawing.addEntity("LINE",
                      {{62, "5"},
                       {370, "50"},
                       {100, "AcDbLine"},
                       {10, "1"},
                       {20, "2.5"},
                       {30, "0"},
                       {11, "3"},
                       {21, "-4"},
                       {31, "0"}},
                      space, layer);
    drawing.addEntity("CIRCLE",
                      {{100, "AcDbCircle"}, {10, "7"}, {20, "8"}, {30, "0"}, {40, "2.25"}}, space,
                      layer);
    drawing.addEntity("TEXT",
                      {{100, "AcDbText"},
                       {10, "1"},
                       {20, "1"},
                       {30, "0"},
                       {40, "2.5"},
                       {1, "proof"},
                       {100, "AcDbText"}},
                      drawing.getPaperSpaceId(), layer);
}

void otherLayout(OdDbDatabase& drawing)
{
    const QString now = drawing.getCTAB();
    for (const OdDbObjectId id : drawing.layouts()) {
        const QString name = id.safeOpenObject<OdDbLayout>()->getLayoutName();
        if (name != now)
            return drawing.setCTAB(name);
    }
}

std::vector<LayerEdit> plainEdits()
{
    const auto of = [](auto change) {
        return [change](OdDbDatabase& drawing) { change(*last(drawing)); };
    };
    return {
        {"freeze", of([](auto& layer) { layer.setIsFrozen(!layer.isFrozen()); }), {"LAYER"}, 1},
        {"off", of([](auto& layer) { layer.setIsOff(!layer.isOff()); }), {"LAYER"}, 1},
        {"lock", of([](auto& layer) { layer.setIsLocked(!layer.isLocked()); }), {"LAYER"}, 1},
        {"plot", of([](auto& layer) { layer.setIsPlottable(!layer.isPlottable()); }), {"LAYER"}, 1},
        {"frozen in new viewports",
         of([](auto& layer) { layer.setVPDFLT(!layer.VPDFLT()); }),
         {"LAYER"},
         1},
        {"lineweight",
         of([](auto& layer) { layer.setLineWeight(layer.lineWeight() == 70 ? 25 : 70); }),
         {"LAYER"},
         1},
        {"colour by index",
         of([](auto& layer) { layer.setColor(OdCmColor::fromIndex(173)); }),
         {"LAYER"},
         1},
        {"true colour",
         of([](auto& layer) { layer.setColor(OdCmColor::fromRgb(12, 200, 99)); }),
         {"LAYER"},
         1,
         true},
        {"colour of a book",
         of([](auto& layer) {
             layer.setColor(OdCmColor::fromRgb(9, 8, 7, QStringLiteral("BOOK$Colour \u00e4")));
         }),
         {"LAYER"},
         1,
         true},
        {"rename",
         of([](auto& layer) { layer.setName(kLongName); }),
         {"LAYER", "DICTIONARY", "XRECORD"}},
        {"description",
         of([](auto& layer) { layer.setDescription(QStringLiteral("what \u00e4 layer \u5c64")); }),
         {"LAYER", "TABLE", "APPID"}},
        {"transparency",
         of([](auto& layer) {
             layer.setTransparency(OdDbLayerTableRecord::transparencyFromPercent(37));
         }),
         {"LAYER", "TABLE", "APPID"}},
    };
}

std::vector<LayerEdit> tableEdits()
{
    return {
        {"reconciled",
         [](OdDbDatabase& drawing) {
             last(drawing)->setIsReconciled(!last(drawing)->isReconciled());
         },
         {"LAYER", "DICTIONARY", "XRECORD"}},
        {"linetype loaded", addLinetype, {"LAYER", "TABLE", "LTYPE"}, 3},
        {"new layer",
         [](OdDbDatabase& drawing) {
             opened(drawing.layerTable().add(kLongName))->setColor(OdCmColor::fromIndex(30));
         },
         {"LAYER", "TABLE"},
         2},
        {"new filters",
         [](OdDbDatabase& drawing) { addFilters(drawing, lastId(drawing)); },
         {"TABLE", "DICTIONARY", "XRECORD"}},
        {"new state",
         [](OdDbDatabase& drawing) {
             LayerStates(drawing).add(kProof, QStringLiteral("what it is \u00e4"));
         },
         {"TABLE", "DICTIONARY", "XRECORD"}},
        {"freeze in a viewport",
         [](OdDbDatabase& drawing) {
             if (const auto there = viewport(drawing).openObject<OdDbViewport>(OdDb::kForWrite))
                 there->freezeLayersInViewport({lastId(drawing), drawing.getLayerZeroId()});
         },
         {"VIEWPORT"}},
        {"overrides",
         [](OdDbDatabase& drawing) {
             const OdDbObjectId there = viewport(drawing);
             if (there.isNull())
                 return;
             const auto layer = last(drawing);
             layer->setColor(OdCmColor::fromIndex(6), there);
             layer->setLineWeight(50, there);
             layer->setLinetypeObjectId(drawing.getLinetypeContinuousId(), there);
             layer->setTransparency(OdDbLayerTableRecord::transparencyFromPercent(10), there);
         },
         {"LAYER", "DICTIONARY", "XRECORD"}},
    };
}

std::vector<LayerEdit> drawingEdits()
{
    return {
        {"current layer",
         [](OdDbDatabase& drawing) {
             drawing.setCLAYER(drawing.getCLAYER() == lastId(drawing) ? drawing.getLayerZeroId()
                                                                      : lastId(drawing));
         },
         {},
         0},
        {"other layout current", otherLayout, {}},
        {"LTSCALE",
         [](OdDbDatabase& drawing) {
             drawing.setHeaderVariable(QStringLiteral("$LTSCALE"), 40, QStringLiteral("2.5"));
         },
         {},
         0},
        {"entities drawn",
         draw,
         {"LINE", "CIRCLE", "TEXT", "BLOCK_RECORD", "VIEWPORT", "INSERT", "LWPOLYLINE", "MTEXT",
          "HATCH", "DIMENSION", "ARC", "SPLINE", "POINT"}},
        {"CELTYPE",
         [](OdDbDatabase& drawing) {
             const OdDbObjectId linetype = drawing.table(OdDbTableKind::Linetype).records().back();
             drawing.setHeaderVariable(
                 QStringLiteral("$CELTYPE"), 6,
                 linetype.safeOpenObject<OdDbLinetypeTableRecord>()->getName());
         },
         {},
         0},
        {"MEASUREMENT",
         [](OdDbDatabase& drawing) {
             const QString name = QStringLiteral("$MEASUREMENT");
             drawing.setHeaderVariable(name, 70,
                                       QString::number(1 - drawing.header().intValue(name, 0)));
         },
         {},
         0},
        {"entity on another layer",
         [](OdDbDatabase& drawing) {
             if (const OdDbObjectId moved = entity(drawing); !moved.isNull())
                 drawing.setEntityLayer(moved, lastId(drawing));
         },
         {"LINE"}},
        {"dictionary variable",
         [](OdDbDatabase& drawing) {
             const QString name = QStringLiteral("LAYEREVAL");
             drawing.setDictionaryVariable(name,
                                           drawing.dictionaryVariable(name) == QLatin1String("2")
                                               ? QStringLiteral("1")
                                               : QStringLiteral("2"));
         },
         {"DICTIONARY", "DICTIONARYVAR"}},
    };
}

std::vector<LayerEdit> undoneLayers()
{
    const auto of = [](auto change) {
        return [change](OdDbDatabase& drawing) { change(*proof(drawing)); };
    };
    const QList<QByteArray> extras = {"LAYER", "DICTIONARY", "XRECORD"};
    return {
        {"no description", of([](auto& layer) { layer.setDescription({}); }), {"LAYER"}, 1},
        {"other description",
         of([](auto& layer) { layer.setDescription(QStringLiteral("\u5c64 other")); }),
         {"LAYER"},
         1},
        {"no transparency", of([](auto& layer) { layer.setTransparency(0); }), {"LAYER"}, 1},
        {"other transparency",
         of([](auto& layer) {
             layer.setTransparency(OdDbLayerTableRecord::transparencyFromPercent(90));
         }),
         {"LAYER"},
         1},
        {"not reconciled", of([](auto& layer) { layer.setIsReconciled(false); }), extras},
        {"no overrides", of([](auto& layer) { layer.removeAllOverrides(); }), extras},
        {"overrides of one viewport",
         [](OdDbDatabase& drawing) { proof(drawing)->removeViewportOverrides(viewport(drawing)); },
         extras},
        {"other override",
         [](OdDbDatabase& drawing) {
             if (!viewport(drawing).isNull())
                 proof(drawing)->setColor(OdCmColor::fromIndex(9), viewport(drawing));
         },
         extras},
        {"thaw in a viewport",
         [](OdDbDatabase& drawing) {
             if (const auto there = viewport(drawing).openObject<OdDbViewport>(OdDb::kForWrite))
                 there->thawLayersInViewport({drawing.layerTable().getAt(kProof)});
         },
         {"VIEWPORT"}},
    };
}

std::vector<LayerEdit> undoneRecords()
{
    const auto of = [](auto change) {
        return [change](OdDbDatabase& drawing) { change(*last(drawing)); };
    };
    return {
        {"changed filter",
         [](OdDbDatabase& drawing) {
             changeFilters(drawing, [](OdLyLayerFilter& root) {
                 const auto rule = filter(root, QStringLiteral("Proof rule"));
                 rule->setName(QStringLiteral("Proof \u00e4 renamed"));
                 rule->setFilterExpression(QStringLiteral("LOCKED==\"True\" "));
             });
         },
         {"DICTIONARY", "XRECORD"}},
        {"deleted filter",
         [](OdDbDatabase& drawing) {
             changeFilters(drawing, [](OdLyLayerFilter& root) {
                 root.removeNested(filter(root, QStringLiteral("Proof group \u5c64")));
             });
         },
         {"DICTIONARY", "XRECORD"}},
        {"deleted state",
         [](OdDbDatabase& drawing) { LayerStates(drawing).remove(kProof); },
         {"DICTIONARY", "XRECORD"}},
        {"renamed state",
         [](OdDbDatabase& drawing) {
             LayerStates(drawing).rename(kProof, QStringLiteral("Proof \u5c64"));
         },
         {"DICTIONARY", "XRECORD"}},
        {"state saved again",
         [](OdDbDatabase& drawing) {
             proof(drawing)->setIsOff(true);
             LayerStates(drawing).save(kProof, LayerStateMask::kOn | LayerStateMask::kColor);
         },
         {"LAYER", "XRECORD"}},
        {"deleted layer that filters, states and viewports name",
         of([](auto& layer) { layer.erase(); }),
         {"LAYER", "TABLE", "DICTIONARY", "XRECORD", "VIEWPORT"}},
        {"renamed layer that states name",
         of([](auto& layer) { layer.setName(kLongName); }),
         {"LAYER", "DICTIONARY", "XRECORD"}},
        {"other dictionary variable",
         [](OdDbDatabase& drawing) {
             drawing.setDictionaryVariable(QStringLiteral("LAYEREVAL"), QStringLiteral("2"));
         },
         {"DICTIONARYVAR"},
         1},
    };
}

std::vector<LayerEdit> all(std::initializer_list<std::vector<LayerEdit>> parts)
{
    std::vector<LayerEdit> edits;
    for (const std::vector<LayerEdit>& part : parts)
        edits.insert(edits.end(), part.begin(), part.end());
    return edits;
}

} // namespace

std::vector<LayerEdit> layerEdits()
{
    return all({plainEdits(), tableEdits(), drawingEdits()});
}

std::vector<LayerEdit> undoingEdits()
{
    return all({undoneLayers(), undoneRecords()});
}

void addProofs(OdDbDatabase& drawing)
{
    const OdDbObjectId made = drawing.layerTable().add(kProof);
    const auto layer = opened(made);
    layer->setDescription(QStringLiteral("described"));
    layer->setTransparency(OdDbLayerTableRecord::transparencyFromPercent(50));
    layer->setIsReconciled(true);
    addFilters(drawing, made);
    for (const quint32 slot : drawing.store().viewports()) {
        const OdDbObjectId there = drawing.idOfSlot(slot);
        layer->setColor(OdCmColor::fromIndex(2), there);
        layer->setLineWeight(30, there);
        layer->setTransparency(OdDbLayerTableRecord::transparencyFromPercent(20), there);
        const auto open = there.openObject<OdDbViewport>(OdDb::kForWrite);
        if (open)
            open->freezeLayersInViewport({made});
    }
    LayerStates(drawing).add(kProof, QStringLiteral("state of proofs"));
    LayerStates(drawing).add(QStringLiteral("Proof 2"), {});
    drawing.setDictionaryVariable(QStringLiteral("LAYEREVAL"), QStringLiteral("1"));
}
