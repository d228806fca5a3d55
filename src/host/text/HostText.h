#pragma once

#include <QCoreApplication>

/// Translation context of everything that the host says outside of its widgets.
class HostText
{
    Q_DECLARE_TR_FUNCTIONS(Host)
};
