#pragma once

#include "sdk/KestHost.h"

#include <memory>

class OdDbDatabase;

/// The host that the plug-in's core finds in this program: the variables of one drawing at a time,
/// texts of lineweights, and nobody to ask. In force while it lives.
class CompanionHost
{
public:
    /// Lineweights are told in millimetres or in inches. Expressions are read in millimetres either
    /// way: how a list looks must not decide which layers are in it.
    explicit CompanionHost(bool millimetres);
    ~CompanionHost();
    CompanionHost(const CompanionHost&) = delete;
    CompanionHost& operator=(const CompanionHost&) = delete;

    /// The drawing whose variables are read; null for none.
    void setDrawing(OdDbDatabase* drawing);

private:
    class Variables;
    class Services;

    std::unique_ptr<Variables> m_variables;
    std::unique_ptr<Services> m_services;
    KestHost m_before;
};
