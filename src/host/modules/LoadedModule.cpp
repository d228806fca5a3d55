#include "host/modules/LoadedModule.h"

#include "database/values/OdError.h"
#include "database/values/OdRxModule.h"
#include "host/text/HostText.h"

#include <QFileInfo>
#include <QLibrary>
#include <QScopeGuard>

#include <array>

namespace {
using CreateModule = OdRxModule* (*)(void* instance);
using ApiVersion = void (*)(quint32* major, quint32* majorMinor, quint32* minor, quint32* build);

/// The interface version that this host offers to modules.
constexpr std::array<quint32, 4> kApiVersion{3, 9, 1, 0};

[[noreturn]] void refuse(const QString& path, const QString& why)
{
    throw OdError(OdResult::InvalidInput, HostText::tr("%1 is not loaded: %2").arg(path, why));
}

QString versionText(const std::array<quint32, 4>& v)
{
    return QStringLiteral("%1.%2.%3.%4").arg(v[0]).arg(v[1]).arg(v[2]).arg(v[3]);
}

QFunctionPointer resolve(QLibrary& library, const QString& path, const char* name)
{
    const QFunctionPointer found = library.resolve(name);
    if (!found) {
        refuse(path,
               HostText::tr("it has no entry point \"%1\" and is no module of this program.")
                   .arg(QLatin1String(name)));
    }
    return found;
}

void checkFile(const QString& path)
{
    const QFileInfo file(path);
    if (!file.exists())
        refuse(path, HostText::tr("there is no such file."));
    if (!file.isFile())
        refuse(path, HostText::tr("it is not a file."));
}

void checkVersion(ApiVersion apiVersion, const QString& path)
{
    std::array<quint32, 4> version{};
    apiVersion(&version[0], &version[1], &version[2], &version[3]);
    if (version != kApiVersion) {
        refuse(path,
               HostText::tr("it was built for interface version %1, this program offers %2.")
                   .arg(versionText(version), versionText(kApiVersion)));
    }
}
} // namespace

LoadedModule::LoadedModule(const QString& path)
    : m_path(QFileInfo(path).absoluteFilePath())
{
    checkFile(m_path);
    m_library = std::make_unique<QLibrary>(m_path);
    // Unresolved symbols are a reason to refuse now, not to fall over in the middle of a command.
    m_library->setLoadHints(QLibrary::ResolveAllSymbolsHint);
    if (!m_library->load())
        refuse(m_path,
               HostText::tr("it is no library that can be loaded (%1).")
                   .arg(m_library->errorString()));
    auto unloadOnError = qScopeGuard([this] { m_library->unload(); });
    const auto apiVersion =
        reinterpret_cast<ApiVersion>(resolve(*m_library, m_path, "odrxGetAPIVersion"));
    const auto create =
        reinterpret_cast<CreateModule>(resolve(*m_library, m_path, "odrxCreateModuleObject"));
    checkVersion(apiVersion, m_path);
    m_module = create(reinterpret_cast<void*>(create));
    if (!m_module)
        refuse(m_path, HostText::tr("it gives no module object."));
    m_module->addRef();
    try {
        m_module->initApp();
    } catch (...) {
        m_module->release();
        throw;
    }
    unloadOnError.dismiss();
}

LoadedModule::~LoadedModule()
{
    m_module->uninitApp();
    m_module->release();
    m_library->unload();
}
