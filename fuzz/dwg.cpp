// Any bytes, read as a DWG drawing: they are refused with a sentence, opened for reading only, or
// a drawing that keeps its bytes, whose edits are read again as they were made.

#include "io/dwg/read/DwgObjectSource.h"
#include "support/DrawingFuzz.h"

#include <cstddef>
#include <cstdint>

namespace {

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
    QByteArray saved;
    try {
        saved = drawingBytes(*drawing);
    } catch (const OdError& error) {
        drawing_fuzz::require(!error.description().isEmpty(), "an error has no sentence");
        return;
    }
    const std::unique_ptr<OdDbDatabase> again = drawing_fuzz::read(saved, refusal);
    drawing_fuzz::require(bool(again), "what was saved cannot be opened:", refusal);
    drawing_fuzz::compareLayers(*drawing, *again);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static constexpr const char* kVersions[] = {"AC1014", "AC1015", "AC1018",
                                                "AC1024", "AC1027", "AC1032"};
    if (size == 0)
        return 0;
    QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    if (!bytes.startsWith("AC10"))
        bytes.prepend(kVersions[data[0] % std::size(kVersions)]);
    exercise(bytes);
    return 0;
}
