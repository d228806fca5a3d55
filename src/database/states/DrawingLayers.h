#pragma once

#include "database/objects/OdDbEntity.h"
#include "database/states/stored/LayerInfoInLS.h"
#include "database/states/stored/StoredLayer.h"
#include "database/tables/OdDbLayerTableRecord.h"

#include <QHash>
#include <QSet>

#include <array>
#include <optional>

class OdDbDatabase;

/// What operations on layer states ask of a drawing, each thing looked up once. To be made for one
/// operation: it does not follow changes of plot styles, linetypes or the active viewport.
class DrawingLayers
{
public:
    explicit DrawingLayers(OdDbDatabase& drawing);

    OdDbDatabase& drawing() const { return m_drawing; }
    /// The layer or linetype that an entry names, by handle or by name; null where it is gone.
    OdDbObjectId layer(const StoredLayer& stored) const;
    /// Whether the layer was erased in this session: saving takes its entries out of all states.
    bool wasErased(const StoredLayer& stored) const;
    OdDbObjectId linetype(const StoredLayer& stored) const;
    /// Whether a layer has a plot style of its own; else styles follow the colour.
    bool hasNamedPlotStyles() const { return m_namedPlotStyles; }
    QString plotStyle(const OdDbLayerTableRecord& layer) const;
    bool hasPlotStyle(const QString& name) const;
    /// The active viewport of the current layout; null in model space.
    const OdDbViewportPtr& viewport() const { return m_viewport; }

    /// On, frozen and so on in the bits of the stored form.
    quint32 storedFlags(const OdDbLayerTableRecord& layer) const;
    /// The settings of a layer now. The name is left out: not every caller needs it.
    LayerInfoInLS settings(const OdDbLayerTableRecord& layer) const;
    /// The same, to be written over an entry that a state has of the layer.
    LayerInfoInLS settings(const OdDbLayerTableRecord& layer, const StoredLayer& before) const;
    /// An entry in the form that dialogs edit, name included.
    LayerInfoInLS info(const StoredLayer& stored) const;

private:
    using Styles = QHash<quint32, QString>;
    const Styles& styles() const;

    OdDbDatabase& m_drawing;
    bool m_namedPlotStyles;
    OdDbViewportPtr m_viewport;
    mutable std::array<QString, 257> m_colorStyles; ///< "Color_n" by index
    mutable std::optional<Styles> m_styles; ///< names by slot, of drawings with named styles
    mutable QSet<QString> m_styleKeys; ///< the same names folded
    mutable QHash<QByteArray, OdDbObjectId> m_linetypes; ///< by the name that an entry has
};

/// Values of an entry as layers have them.
namespace SavedValue {
/// Nothing where the entry has no colour, or none that a layer can take.
std::optional<OdCmColor> color(const StoredLayer& stored);
std::optional<qint16> lineWeight(const StoredLayer& stored);
/// Two of the stored forms mean opaque; this gives 0 for both.
quint32 comparableTransparency(quint32 stored);
} // namespace SavedValue
