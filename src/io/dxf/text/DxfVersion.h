#pragma once

#include <QByteArrayView>

/// Versions of the format by the number in $ACADVER ("AC1015"), with what each can hold.
enum class DxfVersion : int {
    R12 = 1009,
    R13 = 1012,
    R14 = 1014,
    V2000 = 1015,
    V2004 = 1018,
    V2007 = 1021,
    V2010 = 1024,
    V2013 = 1027,
    V2018 = 1032,
};

/// Drawings without a version are of the oldest kind.
inline DxfVersion dxfVersion(QByteArrayView variable)
{
    const QByteArrayView text = variable.trimmed();
    if (text.size() != 6 || !text.startsWith("AC"))
        return DxfVersion::R12;
    const int number = text.sliced(2).toByteArray().toInt();
    return static_cast<DxfVersion>(number > 0 ? number : static_cast<int>(DxfVersion::R12));
}
