#pragma once

#include <QtGlobal>

/// A handle as a record spells it: absolute, or as a distance from the handle of the record.
struct DwgHandle
{
    quint8 code = 0;
    quint64 value = 0;

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
