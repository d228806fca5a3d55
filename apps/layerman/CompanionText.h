#pragma once

#include <QCoreApplication>

/// Translation context of everything that layerman says.
class CompanionText
{
    Q_DECLARE_TR_FUNCTIONS(layerman)
};
