#pragma once

#include <QPointF>
#include <QString>
#include <QStringList>

#include <optional>

/// What a command asks. Every answer is text, wherever it comes from: a point that was picked in
/// the drawing is answered as "x,y" with all its digits.
struct HostQuestion
{
    enum class Wants : quint8 {
        Text,
        Point, ///< may be picked in the drawing
        Objects, ///< may be picked in the drawing, one by one or with a rectangle
    };

    HostQuestion(const QString& text) // NOLINT: a prompt alone is a question for text
        : prompt(text)
    { }

    QString prompt;
    QStringList keywords; ///< answers that are offered, spelled with the capitals that suffice
    Wants wants = Wants::Text;
    std::optional<QPointF> from; ///< a line from here to the cursor is shown
    bool isCorner = false; ///< of a rectangle that begins at `from`, shown in place of the line
};
