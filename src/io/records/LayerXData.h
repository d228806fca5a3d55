#pragma once

#include "database/tables/OdDbLayerTableRecord.h"

#include <QByteArray>

/// Properties of layers that stand in the extended data of an application, in either format.
namespace LayerXData {

inline constexpr const char* kDescription = "AcAecLayerStandard";
inline constexpr const char* kTransparency = "AcCmTransparency";

struct Property
{
    const char* application;
    bool (*differs)(const LayerState&, const LayerState&);
    bool (*isNeeded)(const LayerState&);
    int code;
    int number; ///< the first, second, ... group of that code holds the value
    QByteArray (*value)(const LayerState&); ///< UTF-8
};
inline constexpr Property kProperties[] = {
    {kDescription,
     [](const LayerState& a, const LayerState& b) { return a.description != b.description; },
     [](const LayerState& layer) { return !layer.description.isEmpty(); }, 1000, 2,
     [](const LayerState& layer) { return layer.description.toUtf8(); }},
    {kTransparency,
     [](const LayerState& a, const LayerState& b) { return a.transparency != b.transparency; },
     [](const LayerState& layer) { return layer.transparency != 0; }, 1071, 1,
     [](const LayerState& layer) { return QByteArray::number(layer.transparency); }},
};

/// Drawings saved to an old version have application names in upper case.
inline bool isSame(QByteArrayView name, QByteArrayView application)
{
    return name.trimmed().compare(application, Qt::CaseInsensitive) == 0;
}

} // namespace LayerXData
