#pragma once

#include <QStringList>

class QMimeData;

/// The files among what is being dragged, as local paths; folders and other addresses are left out.
QStringList droppedFiles(const QMimeData& data);
