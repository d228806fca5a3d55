#pragma once

#include "database/values/OdDbObjectId.h"

#include <QString>

#include <vector>

/// One row of criteria of a property filter. A layer passes when it meets all that are set. The
/// default value of each field means "not set".
struct LayerFilterRow
{
    static constexpr qint32 kNoColor = -5;
    static constexpr qint32 kNoLineweight = -5;

    /// 1 in use, 2 not in use, both without viewport overrides; 3 in use, 4 not in use, both with.
    qint32 m_nUsed = 0;
    qint32 m_nOn = 0; ///< 1 on, 2 off
    qint32 m_nFrozen = 0; ///< 1 frozen, 2 thawed
    qint32 m_nLocked = 0; ///< 1 locked, 2 unlocked
    qint32 m_nPlottable = 0; ///< 1 plottable, 2 not
    qint32 m_nNewVpFrozen = 0; ///< 1 frozen in new viewports, 2 not
    qint32 m_nVpFrozen = 0; ///< 1 frozen in the current viewport, 2 not
    qint32 m_nColor = kNoColor; ///< colour index
    qint32 m_nVpColor = kNoColor; ///< colour index in the current viewport
    QString m_strName; ///< wildcard pattern
    QString m_strDesc; ///< the whole description, case included
    OdDbObjectId m_idLinetype;
    OdDbObjectId m_idVpLinetype;
    /// -1 by layer, -2 by block, -3 default, else hundredths of a millimetre.
    qint32 m_nLineweight = kNoLineweight;
    qint32 m_nVpLineweight = kNoLineweight;

    bool operator==(const LayerFilterRow&) const = default;
    bool isEmpty() const { return *this == LayerFilterRow{}; }
};

using LayerFilterRows = std::vector<LayerFilterRow>;
