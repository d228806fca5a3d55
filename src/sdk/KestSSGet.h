#pragma once

#include "database/values/OdDbObjectId.h"

#include <QPointF>
#include <QString>
#include <QStringList>

#include <array>
#include <optional>
#include <vector>

/// Entities that the user selected, each once.
struct KestSelectionSet
{
    std::vector<OdDbObjectId> entities;
};

/// What a selection may do; the places of these in KestSelectionRequest::switches. All of them on
/// are the common selection.
enum class KestSelectionSwitch {
    Many, ///< goes on until an empty answer; off: the first find ends it, and is one entity
    Keywords, ///< Window, Crossing, All, Last, Layer, Previous, Remove, Add and Undo are understood
    Rectangles, ///< a point with nothing there begins a rectangle
    PickSet, ///< takes what was selected before, if the running command keeps that
    Locked, ///< takes entities on locked layers; off: tells how many it left out
    Counts, ///< tells how many were found
    Remember, ///< Previous finds these entities from now on
};

/// What to ask for. An empty prompt is the host's own.
struct KestSelectionRequest
{
    QString prompt;
    std::optional<QString> secondPrompt; ///< while entities are taken away again
    std::optional<QPointF> point; ///< pick there instead of asking
    QStringList filter; ///< DXF types to choose from; empty: all
    std::array<bool, 7> switches{}; ///< by KestSelectionSwitch
    bool* outFlag = nullptr; ///< where wanted: set when a keyword found what ended the selection
};

/// Lets the user select entities of the current drawing, or reads them from the rest of the
/// command's line: keywords, points, corners, until an empty answer or the end of the line. Answers
/// kest::kNormal, kest::kNone (nothing selected), kest::kCancel, or kest::kError where the host
/// cannot ask.
int KestSSGet(const KestSelectionRequest& request, KestSelectionSet& selection);
