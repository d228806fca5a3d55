#pragma once

#include "io/records/DrawingVersion.h"

#include <QByteArrayView>

/// Drawings without a version are of the oldest kind.
inline DrawingVersion dxfVersion(QByteArrayView variable)
{
    const QByteArrayView text = variable.trimmed();
    if (text.size() != 6 || !text.startsWith("AC"))
        return DrawingVersion::R12;
    const int number = text.sliced(2).toByteArray().toInt();
    return static_cast<DrawingVersion>(number > 0 ? number : static_cast<int>(DrawingVersion::R12));
}
