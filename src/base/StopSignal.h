#pragma once

/// While one lives, the first interrupt or request to terminate only sets a flag, so that a save
/// under way can be taken back cleanly; the second one ends the program at once. One at a
/// time. Signals that whoever started the program ignores, as nohup does, stay ignored.
class StopSignal
{
public:
    StopSignal();
    ~StopSignal();
    StopSignal(const StopSignal&) = delete;
    StopSignal& operator=(const StopSignal&) = delete;

    /// The number of the signal that came, or 0.
    static int number();
};
