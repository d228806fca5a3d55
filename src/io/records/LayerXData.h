#pragma once

#include "database/tables/OdDbLayerTableRecord.h"

#include <QByteArray>

#include <algorithm>
#include <iterator>

/// Properties of layers that stand in the extended data of an application, in either format.
namespace LayerXData {

struct Property
{
    const char* application;
    bool (*differs)(const LayerState&, const LayerState&);
    bool (*isNeeded)(const LayerState&);
    int code;
    int number; ///< the first, second, ... group of that code holds the value
    QByteArray (*value)(const LayerState&); ///< UTF-8
    void (*take)(const QString& text, qint64 number, LayerState&); ///< the value as either
};
inline constexpr Property kProperties[] = {
    // The first string is of unknown use, and empty everywhere.
    {"AcAecLayerStandard",
     [](const LayerState& a, const LayerState& b) { return a.description != b.description; },
     [](const LayerState& layer) { return !layer.description.isEmpty(); }, 1000, 2,
     [](const LayerState& layer) { return layer.description.toUtf8(); },
     [](const QString& text, qint64, LayerState& layer) { layer.description = text; }},
    {"AcCmTransparency",
     [](const LayerState& a, const LayerState& b) { return a.transparency != b.transparency; },
     [](const LayerState& layer) { return layer.transparency != 0; }, 1071, 1,
     [](const LayerState& layer) { return QByteArray::number(layer.transparency); },
     [](const QString&, qint64 number, LayerState& layer) {
         layer.transparency = static_cast<quint32>(number);
     }},
};

/// Drawings saved to an old version have application names in upper case.
inline bool isSame(QByteArrayView name, QByteArrayView application)
{
    return name.trimmed().compare(application, Qt::CaseInsensitive) == 0;
}

/// The property that stands in the extended data of an application, or null.
inline const Property* propertyOf(QByteArrayView application)
{
    const auto* found =
        std::find_if(std::begin(kProperties), std::end(kProperties),
                     [&](const Property& known) { return isSame(application, known.application); });
    return found == std::end(kProperties) ? nullptr : found;
}

/// Finds the values among extended data. Where an application has them twice, the first ones count:
/// they are those that an edit changes.
class Finder
{
public:
    void startApplication(QByteArrayView name)
    {
        m_property = propertyOf(name);
        m_values = 0;
        if (!m_property)
            return;
        const unsigned bit = 1u << (m_property - std::begin(kProperties));
        if ((m_found & bit) != 0)
            m_property = nullptr;
        m_found |= bit;
    }
    /// The property that a group of that code, the next one, has the value of; or null.
    const Property* next(int code)
    {
        const bool counts = m_property && code == m_property->code;
        return counts && ++m_values == m_property->number ? m_property : nullptr;
    }

private:
    const Property* m_property = nullptr;
    unsigned m_found = 0; ///< by property
    int m_values = 0; ///< groups of its code
};

} // namespace LayerXData
