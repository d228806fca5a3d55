#pragma once

#include <QString>

/// Path of the shared library or program that contains the address; of the program for null and for
/// an address that no module contains.
QString modulePathOf(void* address);
