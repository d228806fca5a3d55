#pragma once

#include <QtGlobal>

/// A handle as a record spells it: absolute, or as a distance from the handle of the record.
struct DwgHandle
{
    quint8 code = 0;
    quint64 value = 0;

    /// A soft pointer as other programs spell an owner or a neighbour: as a distance where that is
    /// the smaller number.
    static DwgHandle shortest(quint64 own, quint64 target)
    {
        const quint64 distance = target > own ? target - own : own - target;
        if (target == 0 || distance >= target)
            return {0x4, target};
        if (distance == 1)
            return {quint8(target > own ? 0x6 : 0x8), 0};
        return {quint8(target > own ? 0xA : 0xC), distance};
    }

    /// The handle it means in the record with the handle `own`.
    quint64 resolved(quint64 own) const
    {
        switch (code) {
        case 0x6:
            return own + 1;
        case 0x8:
            return own - 1;
        case 0xA:
            return own + value;
        case 0xC:
            return own - value;
        default:
            return value;
        }
    }
};

/// What a reference says about the object it names, as its code.
enum class DwgReference : quint8 {
    Own = 0,
    SoftOwner = 2,
    HardOwner = 3,
    SoftPointer = 4,
    HardPointer = 5,
};
