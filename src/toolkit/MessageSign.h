#pragma once

#include <QPixmap>

class QWidget;

/// The signs of message boxes, drawn alike on every desktop and readable on light and dark.
enum class MessageSign { Information, Warning, Error, Question };

/// The sign in the size and resolution that the widget's style gives to signs of message boxes.
QPixmap messageSign(MessageSign sign, const QWidget& widget);
