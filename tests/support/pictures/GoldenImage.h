#pragma once

#include <QImage>
#include <QString>

class QWidget;

/// Compares with tests/golden/NAME.png and fails the test on a mismatch, leaving NAME.out.png and
/// NAME.diff.png in the folder "golden" of the build tree. A channel may differ by 16 of 255, and
/// one pixel in 2,000 by more. With KEST_UPDATE_GOLDEN=1 in the environment the image becomes the
/// golden file instead. Returns whether it agreed.
bool goldenImage(const QImage& image, const QString& name);

/// Shows the widget where it is hidden, lays it out and compares its picture. Set up a GoldenLook
/// first.
bool goldenImage(QWidget* widget, const QString& name);
