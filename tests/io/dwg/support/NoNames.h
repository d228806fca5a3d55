#pragma once

#include "io/dwg/groups/GroupContext.h"

/// What handles stand for where no drawing is at hand.
class NoNames : public RecordNames
{
    int viewportNumber(quint64) const override { return 1; }
    OdCmColor bookColor(quint64) const override { return {}; }
};
