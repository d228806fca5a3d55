#pragma once

#include <QString>

/// The manual page layerman(1) as roff source.
QString manPage();
