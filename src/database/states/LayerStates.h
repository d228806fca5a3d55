#pragma once

#include "database/states/LayerStateRestore.h"
#include "database/states/PortableLayerState.h"
#include "database/states/stored/LayerInfoInLS.h"

#include <vector>

class OdDbDatabase;

/// A state as lists show it.
struct LayerStateSummary
{
    QString name;
    QString description;
    bool inLayout = false; ///< saved while a layout was current
    bool sameAsDrawing = false;
    bool external = false; ///< of an external reference: a name without settings

    bool operator==(const LayerStateSummary&) const = default;
};

/// The named layer states of a drawing: snapshots of the settings of its layers. Names compare
/// without case. What is asked of a state that is not there raises OdError with KeyNotFound; a
/// state of an external reference raises NotApplicable. Every change is undoable and joins the undo
/// record that is open.
class LayerStates
{
public:
    explicit LayerStates(OdDbDatabase& drawing)
        : m_drawing(drawing)
    { }

    /// In the order of the drawing, without those that programs keep for themselves.
    std::vector<LayerStateSummary> list(bool withExternal = true) const;
    bool has(const QString& name) const;

    /// A new state of all layers as they are; its mask names everything. Raises OdError with
    /// InvalidKey (empty name) or DuplicateKey.
    void add(const QString& name, const QString& description);
    /// Replaces the settings and the mask of a state, which keeps its description.
    void save(const QString& name, int mask);
    void restore(const QString& name, const LayerStateRestore::Options& options);
    /// Raises OdError with InvalidKey or DuplicateKey.
    void rename(const QString& name, const QString& newName);
    void remove(const QString& name);

    /// The bits of LayerStateMask::kAll that the state has.
    int restoreMask(const QString& name) const;
    QString description(const QString& name) const;
    void setDescription(const QString& name, const QString& description);

    std::vector<LayerInfoInLS> layers(const QString& name) const;
    /// Writes the layers of a state back, in this order.
    void setLayers(const QString& name, const std::vector<LayerInfoInLS>& layers);
    /// The settings of a layer as it is, name included. Raises OdError with KeyNotFound.
    LayerInfoInLS layerNow(const QString& layerName) const;
    /// Whether these settings are those of the drawing, see LayerStateComparison.
    bool matchesDrawing(const std::vector<LayerInfoInLS>& layers, int mask) const;

    PortableLayerState exported(const QString& name) const;
    /// Takes a state in; see LayerStateExchange. Raises OdError with DuplicateKey before anything
    /// is changed.
    void take(const PortableLayerState& state);

private:
    QString currentLayerName() const;
    /// The layers as they are. Layers that `before` has come first, in its order and over its
    /// entries, so that what other programs wrote there stays.
    void appendLayersNow(GroupList& groups, const GroupList& before = {}) const;
    void markLastRestored(const QString& name);

    OdDbDatabase& m_drawing;
};
