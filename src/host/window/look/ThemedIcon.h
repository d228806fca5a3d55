#pragma once

#include <QIcon>

/// The host's icon of that name (":/kest/icons/NAME.svg"), drawn in the colours of the palette in
/// force: what the file draws in black takes the colour of button texts, what it draws in blue the
/// highlight's. It follows a change of the palette.
QIcon themedIcon(const QString& name);
