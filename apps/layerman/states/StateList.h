#pragma once

#include <QString>

#include <vector>

class OdDbDatabase;

/// A layer state of a drawing, as it is listed.
struct ListedState
{
    enum class Space { Model, Layout, External };

    QString name;
    QString description;
    Space space; ///< External: of an external reference, a name without settings
    bool sameAsDrawing;
    int layers;
    int mask;
};

/// In the order of the drawing.
std::vector<ListedState> listedStates(OdDbDatabase& drawing);

/// As aligned columns.
QString stateTable(const std::vector<ListedState>& states);
/// The objects of the states, to stand in an array.
QString statesJson(const std::vector<ListedState>& states);
