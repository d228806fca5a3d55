#pragma once

#include <cstdint>

/// The most memory that the process had at once since the measurement began.
class PeakMemory
{
public:
    PeakMemory();

    /// False where the system does not let a process begin anew.
    bool isKnown() const { return m_isKnown; }
    /// Bytes that the process had more than at the beginning.
    std::int64_t grown() const;

private:
    std::int64_t m_before = 0;
    bool m_isKnown = false;
};
