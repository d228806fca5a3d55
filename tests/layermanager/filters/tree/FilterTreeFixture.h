#pragma once

#include "layermanager/LayerDrawing.h"
#include "layermanager/PaletteFixture.h"
#include "layermanager/filters/tree/FilterEdits.h"
#include "layermanager/filters/view/CLayerTreeVw.h"

/// The palette with its filter tree over a drawing with filters that tests add.
class FilterTreeFixture : public PaletteFixture
{
    Q_OBJECT
protected:
    static FilterKey all() { return {QStringLiteral("All")}; }
    static FilterKey key(const char* name) { return {QString::fromUtf8(name)}; }

    /// Adds filters to the drawing as another command would.
    FilterKey addProperty(const char* name, const char* expression,
                          const FilterKey& parent = all());
    FilterKey addGroup(const char* name, std::initializer_list<const char*> layers,
                       const FilterKey& parent = all());
    QStringList layersOf(const char* group) const;
    /// A drawing with layers "plan|Walls" and "Own", the former of external reference "plan".
    OdDbDatabase& openWithReference();

    /// The nodes that the tree shows, a dot for each level in front.
    QStringList shown() const;
    QModelIndex node(const char* name) const;
    /// Clicks on a node.
    void click(const char* name);
    QStringList listed() const { return layer_drawing::names(grid().layerModel().layers()); }
    QString currentFilter() const { return FilterTreeEdit(db()).current()->name(); }
    /// Lets what was put off to the event loop happen.
    void settle();
    /// The editor of a label, or null.
    QLineEdit* labelEditor() const;
    /// Types into the label's editor and presses Enter.
    void typeLabel(const char* text);

private:
    FilterKey add(const OdLyLayerFilterPtr& filter, const FilterKey& parent);
};
