#include "host/modules/ModuleLoader.h"

#include "database/values/OdError.h"
#include "host/modules/LoadedModule.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

#include <algorithm>

namespace {
#if defined(Q_OS_WIN)
const char* const kSuffix = ".dll";
#elif defined(Q_OS_MACOS)
const char* const kSuffix = ".dylib";
#else
const char* const kSuffix = ".so";
#endif
} // namespace

ModuleLoader::ModuleLoader() = default;

ModuleLoader::~ModuleLoader()
{
    unloadAll();
}

void ModuleLoader::load(const QString& path)
{
    const QFileInfo wanted(path);
    const bool isLoaded = std::any_of(m_modules.begin(), m_modules.end(), [&](const auto& module) {
        return QFileInfo(module->path()) == wanted;
    });
    if (!isLoaded)
        m_modules.push_back(std::make_unique<LoadedModule>(path));
}

QString ModuleLoader::loadLayerManager()
{
    const QString path = layerManagerPath();
    if (path.isEmpty())
        return {};
    try {
        load(path);
        return {};
    } catch (const OdError& error) {
        return error.description();
    }
}

void ModuleLoader::unloadAll()
{
    while (!m_modules.empty())
        m_modules.pop_back();
}

std::vector<QString> ModuleLoader::paths() const
{
    std::vector<QString> all;
    for (const auto& module : m_modules)
        all.push_back(module->path());
    return all;
}

QString ModuleLoader::layerManagerPath()
{
    const QString name = QStringLiteral("LayerManager") + QLatin1String(kSuffix);
    const QDir program(QCoreApplication::applicationDirPath());
    const QString relative[] = {name, QStringLiteral("../lib/kest/") + name,
                                QStringLiteral("../" KEST_LIBDIR "/kest/") + name};
    for (const QString& candidate : relative) {
        if (const QFileInfo file(program.filePath(candidate)); file.isFile())
            return QDir::cleanPath(file.absoluteFilePath());
    }
    return {};
}
