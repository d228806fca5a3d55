#pragma once

/// User preferences that modules read. The host fills them from its settings.
class CKestPreferenceManager
{
public:
    static CKestPreferenceManager& instance();

    /// Successive palette edits join one undo step.
    bool CombineLayerPropPreference = false;
    static bool s_Layer_FilterViolationPrompt;
    static bool s_bApplyLayerFiltertoLayerToolbar;
    static bool s_bNotifyPresentLayer;
    int m_iDontListinXref = 0;
    int m_iOffNotfoundLayer = 0;
};
