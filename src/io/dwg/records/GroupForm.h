#pragma once

#include <QtGlobal>

/// How a record of free groups has a group in this format.
enum class GroupForm : quint8 {
    Text,
    Point, ///< three coordinates, which are three groups in DXF
    Real,
    Int8,
    Int16,
    Int32,
    Int64,
    Handle, ///< 8 bytes
    Chunk,
    Unknown,
};
GroupForm groupForm(int code);
