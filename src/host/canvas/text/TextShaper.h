#pragma once

#include "host/canvas/display/TextPool.h"

#include <QFont>
#include <QPainterPath>

#include <memory>
#include <vector>

/// Outlines of the texts of a scene: made when a text is first painted large enough to be read, and
/// forgotten together when they take too much memory.
class TextShaper
{
public:
    /// Outline of a text, in heights of a capital letter, y up, (0, 0) at its alignment point.
    const QPainterPath& outline(const TextPool& pool, quint32 text);

private:
    QPainterPath shape(const TextSpec& spec) const;
    static QStringList wrapped(const TextSpec& spec, const QFont& font, double unit);

    std::vector<std::unique_ptr<QPainterPath>> m_outlines;
    qint64 m_elements = 0;
};
