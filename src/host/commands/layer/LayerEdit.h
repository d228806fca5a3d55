#pragma once

#include "database/tables/OdDbLayerTableRecord.h"
#include "host/commands/HostCommand.h"
#include "host/commands/layer/LayerChoice.h"

#include <functional>

/// One run of the layer command: asks for layers, changes them, tells what came of it. What is
/// refused is told at once; in a script a layer that was named and not matched by a pattern makes
/// the command fail once the rest is done.
class LayerEdit
{
public:
    /// Why the layer must not be changed, or nothing.
    using Rule = std::function<QString(const OdDbLayerTableRecord&)>;
    /// Changes a layer that is open for write. Raises OdError for a value that the drawing refuses.
    using Change = std::function<void(OdDbLayerTableRecord&)>;

    explicit LayerEdit(const HostCommandRun& run);

    const HostCommandRun& run() const { return m_run; }
    OdDbDatabase& drawing() const { return m_drawing; }
    OdDbObjectId current() const;

    /// Asks for layers; names and patterns that fit none are told. An empty answer is the current
    /// layer where `orCurrent`, else no layer.
    LayerChoice layers(const QString& prompt, bool orCurrent = false);
    /// Asks for a name; raises OdError with InvalidInput for an empty one.
    QString name(const QString& prompt) const;

    /// Changes the layers that differ afterwards.
    void change(const LayerChoice& choice, const Change& change, const Rule& rule = {});
    /// As above for what is no property of the layer itself; the change tells whether it did
    /// anything.
    void apply(const LayerChoice& choice, const std::function<bool(OdDbObjectId)>& change,
               const Rule& rule);
    /// Tells a refusal.
    void refuse(const QString& sentence, bool isNamed);
    /// Raises what was refused to a script.
    void finish() const;

private:
    void tellRefusals(const QStringList& sentences, int count);

    const HostCommandRun& m_run;
    OdDbDatabase& m_drawing;
    QStringList m_failures;
};
