#pragma once

#include "io/dwg/groups/GroupContext.h"

/// Gives every handle the same name, where no drawing is at hand.
class NoNames : public RecordNames
{
    QString nameOf(quint64) const override { return QStringLiteral("name"); }
    int viewportNumber(quint64) const override { return 1; }
    OdCmColor bookColor(quint64) const override { return {}; }
};
