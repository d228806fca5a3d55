#include "io/dwg/support/DwgFiles.h"

#include "database/drawing/OdDbDatabase.h"
#include "io/dwg/bits/DwgVersion.h"
#include "io/dwg/read/DwgObjectSource.h"
#include "io/dwg/support/DwgMaker.h"
#include "support/drawings/SharedDrawings.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>

namespace {

const QLatin1String kMadeMark("made ");

} // namespace

bool DwgFiles::isMade(const QString& name)
{
    return name.startsWith(kMadeMark);
}

QByteArray DwgFiles::bytes(const QString& name)
{
    if (isMade(name))
        return DwgMaker::sample(dwgVersion(name.mid(kMadeMark.size()).toLatin1()).value());
    QFile file(SharedDrawings::file(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QStringList DwgFiles::readable()
{
    QStringList paths = SharedDrawings::files({QStringLiteral("*.dwg"), QStringLiteral("*.dwt")});
    // One that is older than those this program reads, and one of 2007, which is never written; it
    // has tests of its own.
    paths.removeIf([](const QString& path) {
        return path.endsWith(QLatin1String("entities-2d.dwg"))
            || path.endsWith(QLatin1String("example_2007.dwg"));
    });
    return paths;
}

QStringList DwgFiles::faults(const OdDbDatabase& database)
{
    const auto* source = dynamic_cast<const DwgObjectSource*>(database.source());
    return source ? source->faults() : QStringList{QStringLiteral("no DWG drawing")};
}

std::string DwgFiles::testName(const QString& file)
{
    std::string name = QFileInfo(file).completeBaseName().toStdString();
    std::replace_if(
        name.begin(), name.end(), [](unsigned char c) { return std::isalnum(c) == 0; }, '_');
    return name;
}
