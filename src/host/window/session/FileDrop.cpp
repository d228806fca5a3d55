#include "host/window/session/FileDrop.h"

#include <QFileInfo>
#include <QMimeData>
#include <QUrl>

QStringList droppedFiles(const QMimeData& data)
{
    QStringList files;
    for (const QUrl& url : data.urls()) {
        if (url.isLocalFile() && QFileInfo(url.toLocalFile()).isFile())
            files.append(url.toLocalFile());
    }
    return files;
}
