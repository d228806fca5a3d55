#pragma once

#include <QString>

/// Fails the test that runs, whether GoogleTest or Qt Test runs it; the test goes on. For helpers
/// that notice a fault where no assertion macro can stand, such as destructors and message
/// handlers.
void reportTestFailure(const QString& sentence);
