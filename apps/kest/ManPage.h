#pragma once

#include <QString>

/// The program's manual page, from the tables of its command line.
QString hostManPage();
