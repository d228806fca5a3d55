#pragma once

#include "database/values/OdDbObjectId.h"

#include <QString>

#include <vector>

class OdDbDatabase;

/// An external reference of a drawing and those that it refers to itself.
struct ExternalReference
{
    QString name;
    OdDbObjectId block;
    std::vector<ExternalReference> nested;
};

/// Name of the node that holds the external references.
QString externalReferencesName();

/// The drawing's external references in the order of the block table, each once: below the first
/// one whose block holds an insertion of it, at most 64 deep, else on top.
std::vector<ExternalReference> externalReferences(const OdDbDatabase& database);

/// The layers of one external reference, or of all of them for a null id, and the drawing's other
/// layers, in the order of the layer table.
void layersOfExternalReference(const OdDbDatabase& database, OdDbObjectId block,
                               std::vector<OdDbObjectId>& inLayers,
                               std::vector<OdDbObjectId>& otherLayers);
