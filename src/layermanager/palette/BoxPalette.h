#pragma once

#include <QPalette>

/// The colours for check boxes and radio buttons that stand on such a ground: on a dark one styles
/// leave hardly anything of an empty box to see.
QPalette boxPalette(const QPalette& ground);
