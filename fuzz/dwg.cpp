// Any bytes, read as a DWG drawing: they are refused with a sentence, opened for reading only, or
// a drawing that keeps its bytes, whose edits are read again as they were made.

#include "database/objects/OdDbEntity.h"
#include "io/dwg/read/DwgObjectSource.h"
#include "io/dwg/support/DwgMaker.h"
#include "support/DrawingFuzz.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace {

/// Edits of what stands beside the values of a layer: extended data, records that hang on it, lists
/// of viewports.
void editBesideLayers(OdDbDatabase& drawing)
{
    constexpr qint16 kLineWeight = 50;
    const OdDbObjectIdArray layers = drawing.layerTable().records();
    for (const quint32 slot : drawing.store().viewports()) {
        const OdDbObjectId viewport = drawing.idOfSlot(slot);
        if (const auto open = viewport.openObject<OdDbViewport>(OdDb::kForWrite))
            open->freezeLayersInViewport(layers);
        if (layers.empty())
            continue;
        layers.back()
            .safeOpenObject<OdDbLayerTableRecord>(OdDb::kForWrite)
            ->setLineWeight(kLineWeight, viewport);
    }
    for (const OdDbObjectId id : layers)
        id.safeOpenObject<OdDbLayerTableRecord>(OdDb::kForWrite)
            ->setDescription(QStringLiteral("described"));
}

void compareBesideLayers(const OdDbDatabase& wanted, const OdDbDatabase& found)
{
    const auto there = [&](OdDbObjectId id) {
        return found.idOfSlot(found.store().find(id.getHandle().value()));
    };
    for (const OdDbObjectId id : wanted.layerTable().records()) {
        const auto layer = there(id).openObject<OdDbLayerTableRecord>();
        const auto before = id.safeOpenObject<OdDbLayerTableRecord>();
        drawing_fuzz::require(layer && layer->description() == before->description(),
                              "a description is lost:", before->getName());
        drawing_fuzz::require(layer->state().overrides.size() == before->state().overrides.size(),
                              "an override is lost:", before->getName());
    }
    for (const quint32 slot : wanted.store().viewports()) {
        const OdDbObjectId id = wanted.idOfSlot(slot);
        const auto before = id.openObject<OdDbViewport>();
        const auto viewport = there(id).openObject<OdDbViewport>();
        drawing_fuzz::require(!before || viewport, "a viewport is lost");
        drawing_fuzz::require(
            !before || viewport->frozenLayers().size() == before->frozenLayers().size(),
            "a frozen layer is lost");
    }
}

void exercise(const QByteArray& bytes)
{
    QString refusal;
    const std::unique_ptr<OdDbDatabase> drawing = drawing_fuzz::read(bytes, refusal);
    if (!drawing)
        return;
    drawing_fuzz::visitRecords(*drawing);
    (void)drawing->audit();
    const auto* source = dynamic_cast<const DwgObjectSource*>(drawing->source());
    if (!source)
        return; // of the other format
    if (!source->faults().isEmpty()) {
        try {
            (void)drawingBytes(*drawing);
            drawing_fuzz::require(false, "a drawing with faults was written");
        } catch (const OdError& error) {
            drawing_fuzz::require(!error.description().isEmpty(), "an error has no sentence");
        }
        return;
    }
    drawing_fuzz::require(drawingBytes(*drawing) == bytes, "an unedited drawing changed");
    drawing_fuzz::editLayers(*drawing);
    editBesideLayers(*drawing);
    QByteArray saved;
    try {
        saved = drawingBytes(*drawing);
    } catch (const OdError& error) {
        drawing_fuzz::require(!error.description().isEmpty(), "an error has no sentence");
        return;
    }
    const std::unique_ptr<OdDbDatabase> again = drawing_fuzz::read(saved, refusal);
    drawing_fuzz::require(bool(again), "what was saved cannot be opened:", refusal);
    const auto* written = dynamic_cast<const DwgObjectSource*>(again->source());
    drawing_fuzz::require(written && written->faults().isEmpty(), "what was saved has faults");
    drawing_fuzz::compareLayers(*drawing, *again);
    compareBesideLayers(*drawing, *again);
}

/// A made drawing of the version that the first byte chooses, with bits of its records turned as
/// the others say: part, two bytes of the place in it, bits. Sums are right, so that it may be
/// saved.
QByteArray damaged(const std::uint8_t* data, std::size_t size)
{
    constexpr std::size_t kEdit = 4;
    constexpr std::size_t kMostEdits = 64;
    const MadeDrawing drawing =
        MadeDrawing::sample(MadeDrawing::kVersions[data[0] % std::size(MadeDrawing::kVersions)]);
    DwgMaker maker(drawing);
    const std::size_t end = std::min(size, 1 + kMostEdits * kEdit);
    for (std::size_t at = 1; at + kEdit <= end; at += kEdit)
        maker.damage(data[at], std::size_t(data[at + 1]) << 8 | data[at + 2], data[at + 3]);
    return maker.bytes();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size == 0)
        return 0;
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    exercise(bytes.startsWith("AC10") ? bytes : damaged(data, size));
    return 0;
}
