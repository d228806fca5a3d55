#include "base/FlatName.h"

bool FlatName::foldBeyondAscii(Qt::CaseSensitivity sensitivity)
{
    for (qsizetype at = 0; at < m_size; ++at) {
        char16_t& unit = m_units[static_cast<std::size_t>(at)];
        if (QChar::isSurrogate(unit))
            return false;
        if (sensitivity == Qt::CaseInsensitive && unit >= 0x80)
            unit = static_cast<char16_t>(QChar::toCaseFolded(char32_t(unit)));
    }
    return true;
}
