#pragma once

#include <QString>

/// An entry of a dictionary as a file has it.
struct KeyedHandle
{
    QString key;
    quint64 handle = 0;

    bool operator==(const KeyedHandle&) const = default;
};
