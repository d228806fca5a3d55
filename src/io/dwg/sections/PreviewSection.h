#pragma once

#include <QByteArray>

/// The preview: pictures, each listed with its place in the file.
namespace PreviewSection {

/// The list moved by that many bytes, for a preview that begins so; nothing where it is not one.
QByteArray movedList(QByteArrayView preview, qint64 by);

} // namespace PreviewSection
