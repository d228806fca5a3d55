#pragma once

/// Small questions about the host's state.
class CSECommonUtil
{
public:
    /// The system variable TOOLTIPS: 0 while tooltips are not wanted. 1 where a host has no such
    /// variable.
    static int GetToolTipsSysVar();
};
