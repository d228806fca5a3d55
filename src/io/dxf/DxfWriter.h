#pragma once

#include "io/DrawingCodec.h"
#include "io/dxf/LayerGroups.h"

class DxfObjectSource;

/// Writes a drawing back over the image it was read from: every byte that was not edited is copied.
class DxfWriter
{
public:
    DxfWriter(const DxfObjectSource& source, const OdDbDatabase& database);
    DrawingPieces run();

private:
    void patchLayer(quint32 slot);
    void patchHeader();
    void patchVariable(const QString& name, const QByteArray& value);
    void refuseUnsavable(quint32 slot) const;

    const DxfObjectSource& m_source;
    const OdDbDatabase& m_database;
    std::vector<LayerGroups::Patch> m_patches;
    SaveReport m_report;
};
