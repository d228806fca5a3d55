// Layer-state files: any bytes are refused with a sentence or read; what was read survives being
// written and read again, and a drawing takes it, restores it and stays sound.

#include "database/drawing/OdDbDatabase.h"
#include "database/states/LayerStateMask.h"
#include "database/states/LayerStates.h"
#include "io/DrawingFile.h"
#include "io/las/LasReader.h"
#include "io/las/LasWriter.h"

#include <cstdlib>

namespace {

const char kDrawing[] =
    "0\nSECTION\n2\nTABLES\n0\nTABLE\n2\nLAYER\n70\n2\n0\nLAYER\n5\n10\n2\n0\n70\n0\n62\n7\n6\n"
    "CONTINUOUS\n0\nLAYER\n5\n11\n2\nWALLS\n70\n0\n62\n1\n6\nCONTINUOUS\n0\nENDTAB\n0\nENDSEC\n"
    "0\nEOF\n";

void require(bool condition)
{
    if (!condition)
        std::abort();
}

void bringIn(const std::vector<PortableLayerState>& states)
{
    const auto drawing = readDrawing(QByteArray(kDrawing), QStringLiteral("fuzz.dxf"));
    LayerStates service(*drawing);
    drawing->startUndoRecord();
    for (const PortableLayerState& state : states) {
        if (service.has(state.name))
            continue;
        service.take(state);
        service.restore(state.name, {LayerStateMask::kAll, true, false});
        service.setLayers(state.name, service.layers(state.name));
        service.exported(state.name);
    }
    require(drawing->audit().isEmpty());
    drawing->undo();
    require(drawing->audit().isEmpty());
    require(service.list().empty());
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    std::vector<PortableLayerState> states;
    try {
        states = LasReader::read(bytes, QStringLiteral("fuzz.las"));
    } catch (const OdError& error) {
        require(error.description().endsWith(QLatin1Char('.')));
        return 0;
    }
    require(LasReader::read(LasWriter::bytesWithLinetypes(states), QStringLiteral("again.las"))
            == states);
    bringIn(states);
    return 0;
}
