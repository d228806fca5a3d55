#include "host/resources/HostResources.h"

#include <QDir>
#include <QFile>

void registerHostResources()
{
    Q_INIT_RESOURCE(kest_host);
}

QByteArray newDrawingTemplate()
{
    registerHostResources();
    QFile file(QStringLiteral(":/kest/new_drawing.dxf"));
    const bool isOpen = file.open(QIODevice::ReadOnly);
    Q_ASSERT(isOpen);
    return isOpen ? file.readAll() : QByteArray();
}
