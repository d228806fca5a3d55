#pragma once

#include "database/drawing/OdDbDatabase.h"
#include "database/tables/OdDbLayerTable.h"
#include "database/tables/OdDbLayerTableRecord.h"
#include "io/DrawingFile.h"
#include "support/drawings/DrawingText.h"

/// Drawings with given layers, and their layers by name.
namespace layer_drawing {

inline std::unique_ptr<OdDbDatabase> make(const QList<DrawingText::Layer>& layers)
{
    return readDrawing(DrawingText::withLayers(layers), QStringLiteral("layers.dxf"));
}

/// `count` layers "L000001", "L000002", ... beside layer 0.
inline std::unique_ptr<OdDbDatabase> numbered(int count)
{
    QList<DrawingText::Layer> layers;
    for (int i = 1; i <= count; ++i)
        layers.append({"L" + QByteArray::number(i).rightJustified(6, '0')});
    return make(layers);
}

inline OdDbObjectId id(const OdDbDatabase& database, const char* name)
{
    return database.layerTable().getAt(QString::fromUtf8(name));
}

inline OdDbLayerTableRecordPtr read(const OdDbDatabase& database, const char* name)
{
    return id(database, name).safeOpenObject<OdDbLayerTableRecord>();
}

inline OdDbLayerTableRecordPtr write(const OdDbDatabase& database, const char* name)
{
    return id(database, name).safeOpenObject<OdDbLayerTableRecord>(OdDb::kForWrite);
}

inline QString name(OdDbObjectId layer)
{
    return layer.safeOpenObject<OdDbLayerTableRecord>(OdDb::kForRead, true)->getName();
}

template <class Layers>
QStringList names(const Layers& layers)
{
    QStringList all;
    for (const OdDbObjectId layer : layers)
        all.append(name(layer));
    return all;
}

} // namespace layer_drawing
