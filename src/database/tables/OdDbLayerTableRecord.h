#pragma once

#include "database/tables/OdDbSymbolTable.h"
#include "database/values/OdCmColor.h"

#include <map>
#include <optional>

/// Lineweights in hundredths of a millimetre; negative values have names.
namespace OdDb {
enum LineWeight : qint16 {
    kLnWtByLayer = -1,
    kLnWtByBlock = -2,
    kLnWtByLwDefault = -3,
};
}

/// What a layer looks like in one viewport, as far as it differs.
struct LayerOverride
{
    std::optional<OdCmColor> color;
    std::optional<OdDbObjectId> linetype;
    std::optional<qint16> lineWeight;
    std::optional<OdDbObjectId> plotStyle;
    std::optional<quint32> transparency;
    bool operator==(const LayerOverride&) const = default;
};

struct LayerState
{
    QString name;
    bool off = false;
    bool frozen = false;
    bool locked = false;
    bool plottable = true;
    bool frozenInNewViewports = false;
    bool dependent = false;
    OdCmColor color;
    OdDbObjectId linetype;
    qint16 lineWeight = OdDb::kLnWtByLwDefault;
    OdDbObjectId plotStyle; ///< the plot-style placeholder, null in old drawings
    QString description;
    quint32 transparency = 0; ///< as stored: 0, or 0x02000000 + alpha
    std::optional<bool> reconciled; ///< nothing stored, or the stored flag
    std::map<quint32, LayerOverride> overrides; ///< by slot of the viewport
    bool operator==(const LayerState&) const = default;
};

/// A layer. Getters answer from the record, setters need it open for write. With a viewport id,
/// getters give the override there, else the layer's own value, and setters write the override.
class OdDbLayerTableRecord : public OdDbStateful<OdDbSymbolTableRecord, LayerState>
{
public:
    static constexpr const char* kClassName = "OdDbLayerTableRecord";
    static bool isKind(OdDbObjectKind kind) { return kind == OdDbObjectKind::Layer; }

    OdDbObjectKind kind() const override { return OdDbObjectKind::Layer; }
    QString getName() const override { return m_state.name; }
    bool isDependent() const override { return m_state.dependent; }
    /// Raises OdError with InvalidKey (empty name), DuplicateKey, or NotApplicable (layer 0,
    /// xref-dependent).
    void setName(const QString& name);

    bool isOff() const { return m_state.off; }
    bool isFrozen() const { return m_state.frozen; }
    bool isLocked() const { return m_state.locked; }
    bool isPlottable() const { return m_state.plottable; }
    /// Frozen by default in new viewports.
    bool VPDFLT() const { return m_state.frozenInNewViewports; }
    void setIsOff(bool off) { assign(&LayerState::off, off); }
    void setIsFrozen(bool frozen) { assign(&LayerState::frozen, frozen); }
    void setIsLocked(bool locked) { assign(&LayerState::locked, locked); }
    void setIsPlottable(bool plottable) { assign(&LayerState::plottable, plottable); }
    void setVPDFLT(bool frozen) { assign(&LayerState::frozenInNewViewports, frozen); }

    OdCmColor color(OdDbObjectId viewport = {}) const;
    OdDbObjectId linetypeObjectId(OdDbObjectId viewport = {}) const;
    qint16 lineWeight(OdDbObjectId viewport = {}) const;
    /// "Color_n" in colour-dependent drawings, the style's name in named ones, empty where there is
    /// none.
    QString plotStyleName(OdDbObjectId viewport = {}) const;
    /// 0, or 0x02000000 + alpha (255 opaque); see transparencyPercent().
    quint32 transparency(OdDbObjectId viewport = {}) const;
    void setColor(const OdCmColor& color, OdDbObjectId viewport = {});
    void setLinetypeObjectId(OdDbObjectId linetype, OdDbObjectId viewport = {});
    void setLineWeight(qint16 weight, OdDbObjectId viewport = {});
    /// Raises OdError with NotApplicable in colour-dependent drawings, KeyNotFound for a style
    /// that the drawing has not.
    void setPlotStyleName(const QString& name, OdDbObjectId viewport = {});
    void setTransparency(quint32 transparency, OdDbObjectId viewport = {});

    /// Conversions of stored transparencies; percent is 0 (opaque) to 90.
    static int transparencyPercent(quint32 stored);
    static quint32 transparencyFromPercent(int percent);

    const QString& description() const { return m_state.description; }
    void setDescription(const QString& text) { assign(&LayerState::description, text); }

    /// False for a layer that came after the layers were last reviewed. Raises OdError with
    /// WasErased.
    bool isReconciled() const;
    void setIsReconciled(bool reconciled = true);

    /// Whether anything lies on the layer; counted by the table's generateUsageData().
    bool isInUse() const;
    /// The block of the external reference that the layer comes from, or a null id.
    OdDbObjectId externalReference() const;

    bool hasOverrides(OdDbObjectId viewport) const { return overrideIn(viewport) != nullptr; }
    bool hasAnyOverrides() const { return !m_state.overrides.empty(); }
    /// The override in that viewport, or null.
    const LayerOverride* overrideIn(OdDbObjectId viewport) const;
    void removeColorOverride(OdDbObjectId viewport);
    void removeLinetypeOverride(OdDbObjectId viewport);
    void removeLineWeightOverride(OdDbObjectId viewport);
    void removePlotStyleOverride(OdDbObjectId viewport);
    void removeTransparencyOverride(OdDbObjectId viewport);
    void removeViewportOverrides(OdDbObjectId viewport);
    void removeAllOverrides();

protected:
    void swapImage(OdDbObjectImage& image) override;
    void imageSwapped() override;

private:
    template <class Value>
    Value overridden(std::optional<Value> LayerOverride::*member, const Value& own,
                     OdDbObjectId viewport) const;
    template <class Value>
    void assignOverride(std::optional<Value> LayerOverride::*member,
                        const std::optional<Value>& value, OdDbObjectId viewport);
    void requireViewport(OdDbObjectId viewport) const;
};

using OdDbLayerTableRecordPtr = OdSmartPtr<OdDbLayerTableRecord>;
