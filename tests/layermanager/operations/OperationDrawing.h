#pragma once

#include "layermanager/LayerDrawing.h"
#include "layermanager/layers/operations/LayerOutcome.h"
#include "sdk/CKestPreferenceManager.h"
#include "support/FakeHost.h"

#include <QScopedValueRollback>

#include <functional>
#include <initializer_list>

/// A drawing in a host with one layer of every kind:
/// - "0" and "Defpoints", the current layer "Current", "Frozen", "Locked", "Off", "x|Far" of an
///   external reference
/// - layers with one thing each: "Line" with an entity of the model, "InBlock" with one of a block,
///   "Attribute" with an attribute, "Border" with a viewport, "Framed" with the frame of a block
/// - "Unused" and "Spare" with nothing
/// and two sheets with viewports: A1 (the sheet's own), A2 and A3; B1 (the sheet's own), B2, which
/// is its active one, and B3. Layers have named plot styles, "Normal" and "Thin".
class OperationDrawing
{
public:
    OperationDrawing();

    OdDbDatabase& operator*() const { return m_database; }
    OdDbDatabase* operator->() const { return &m_database; }

    OdDbObjectId id(const char* layer) const { return layer_drawing::id(m_database, layer); }
    std::vector<OdDbObjectId> ids(std::initializer_list<const char*> layers) const;
    OdDbLayerTableRecordPtr layer(const char* name) const;
    /// Open for write.
    OdDbLayerTableRecordPtr edited(const char* name) const;
    OdDbObjectId viewport(quint64 handle) const;
    OdDbObjectId linetype(const char* name) const;
    bool isFrozenIn(quint64 viewport, const char* layer) const;

    /// Makes sheet A current, with the viewport A2 active.
    void enterSheet() const;
    /// Gives a layer its own colour, linetype, lineweight, plot style and transparency in a
    /// viewport.
    void override_(const char* layer, quint64 viewport) const;

    using Operation = std::function<LayerOutcome()>;
    /// Runs an operation that is to change the drawing: by one undo record, which taken back gives
    /// the bytes of before, and brought forward those of after.
    LayerOutcome changing(const Operation& operation);
    /// Runs an operation that is to change nothing and to leave no undo record.
    LayerOutcome idle(const Operation& operation);

    FakeHost host;

private:
    OdDbDatabase& m_database;
    QScopedValueRollback<bool> m_combine{
        CKestPreferenceManager::instance().CombineLayerPropPreference, false};
};

/// The layers that were refused, by name.
QStringList refusedNames(const LayerOutcome& outcome);
/// The layers that changed, by name.
QStringList changedNames(const LayerOutcome& outcome);
QStringList texts(std::initializer_list<const char*> utf8);
