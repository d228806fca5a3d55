#pragma once

#include "database/OdDbObjectId.h"

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

/// What to ask for. An empty prompt is the host's own.
struct KestSelectionRequest
{
    QString prompt;
    std::optional<QString> secondPrompt;
    std::optional<QPointF> point; ///< pick there instead of asking
    QStringList filter; ///< DXF types to choose from; empty: all
    /// The host's seven yes/no switches of a selection, in its order.
    std::array<bool, 7> switches{};
    bool* outFlag = nullptr; ///< where wanted: set when the user ended by a keyword
};

/// Lets the user select entities of the current drawing. Answers kest::kNormal, kest::kNone
/// (nothing selected), kest::kCancel, or kest::kError where the host cannot ask.
int KestSSGet(const KestSelectionRequest& request, KestSelectionSet& selection);
