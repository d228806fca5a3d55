#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

#include <functional>
#include <vector>

class OdDbDatabase;

/// One kind of edit of a drawing.
struct LayerEdit
{
    const char* name;
    std::function<void(OdDbDatabase&)> edit;
    QList<QByteArray> types = {}; ///< of the records that it may change, add or remove
    int records = -1; ///< how many, where that is known
    bool needsTrueColours = false; ///< the version of the file must have them
};

/// Edits that any drawing takes which has a layer beside 0.
std::vector<LayerEdit> layerEdits();

/// Everything that `undoingEdits` takes away again: what is named after "Proof".
void addProofs(OdDbDatabase& drawing);
/// Edits that take away what addProofs() added, or change it.
std::vector<LayerEdit> undoingEdits();
