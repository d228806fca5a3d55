#pragma once

#include <QStringList>

/// What names of drawings end in, without dots: the files that a shell offers.
inline QStringList drawingSuffixes()
{
    return {QStringLiteral("dxf"), QStringLiteral("dwg"), QStringLiteral("dwt"),
            QStringLiteral("dws")};
}
