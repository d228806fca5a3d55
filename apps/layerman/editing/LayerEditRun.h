#pragma once

#include "layerman/editing/PropertyTable.h"
#include "layermanager/layers/operations/LayerEdits.h"

#include <QString>

#include <vector>

class OdDbDatabase;
class Output;

struct LayerEditOptions
{
    bool keepsCurrentOn = false;
    bool tellsChanges = false; ///< a line for every change: what a dry run is for
};

/// Gives properties to the chosen layers of one drawing, in memory, and tells what is refused.
class LayerEditRun
{
public:
    /// Raises OdError for a linetype or plot style that the drawing has not; nothing is changed
    /// then.
    LayerEditRun(OdDbDatabase& drawing, const QString& file,
                 const std::vector<PropertyEdit>& edits);

    void apply(const std::vector<OdDbObjectId>& layers, const LayerEditOptions& options,
               Output& output);

    /// Layers with a change, and with a refusal; one layer may be among both. A property that was
    /// refused without a layer counts as one.
    int changed() const { return m_changed; }
    int refused() const { return m_refused; }

private:
    struct Layer
    {
        OdDbObjectId id;
        QString name; ///< before it was renamed
        bool isChanged = false;
        bool isRefused = false;
    };
    using Layers = std::vector<Layer>;

    void requireValue(PropertyEdit& edit);
    void applyOne(const PropertyEdit& edit, Layers& layers);
    /// Why the property cannot be given to any of the layers; empty where it can.
    QString refusalForAll(const PropertyEdit& edit, const Layers& layers) const;
    void giveToAll(const PropertyEdit& edit, Layers& layers);
    void giveToEach(const PropertyEdit& edit, Layers& layers);
    LayerEditOutcome give(const PropertyEdit& edit, Layer& layer);
    /// Whether the current layer is to stay on; tells what becomes of it.
    bool keepsOn(const PropertyEdit& edit, const Layer& layer);
    QString textOf(const PropertyEdit& edit, const Layer& layer) const;
    void tellChanges(const PropertyEdit& edit, const Layers& layers, const QStringList& before);

    OdDbDatabase& m_drawing;
    QString m_file;
    std::vector<PropertyEdit> m_edits;
    LayerCellContext m_context;
    LayerEditOptions m_options;
    Output* m_output = nullptr;
    bool m_hasRefusal = false;
    int m_changed = 0;
    int m_refused = 0;
};
