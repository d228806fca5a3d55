#pragma once

#include "database/values/OdDbObjectId.h"

#include <QString>

#include <vector>

struct LayerRefusal
{
    OdDbObjectId layer;
    QString why; ///< as a message tells it
};

/// What an operation did. Layers stand in the order in which they were given, each once.
struct LayerOutcome
{
    std::vector<OdDbObjectId> changed; ///< layers that differ now, made or erased ones included
    std::vector<LayerRefusal> refused; ///< layers that stay as they are, though they should not
    QString message; ///< to be shown once; empty where nothing is to be said

    bool isEmpty() const { return changed.empty(); }
    void refuse(OdDbObjectId layer, const QString& why) { refused.push_back({layer, why}); }
};
