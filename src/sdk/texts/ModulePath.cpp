#include "sdk/texts/ModulePath.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#ifdef Q_OS_WIN
#include <qt_windows.h>
#else
#include <dlfcn.h>
#endif

namespace {

#ifdef Q_OS_WIN
QString libraryOf(void* address)
{
    constexpr DWORD kLongestPath = 32768;
    HMODULE module = nullptr;
    const DWORD flags =
        GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT;
    if (!GetModuleHandleExW(flags, static_cast<LPCWSTR>(address), &module))
        return {};
    QString path(int(kLongestPath), Qt::Uninitialized);
    const DWORD length =
        GetModuleFileNameW(module, reinterpret_cast<wchar_t*>(path.data()), kLongestPath);
    path.truncate(int(length));
    return QDir::fromNativeSeparators(path);
}
#else
QString libraryOf(void* address)
{
    Dl_info info;
    if (!dladdr(address, &info) || !info.dli_fname)
        return {};
    return QFile::decodeName(info.dli_fname);
}
#endif

} // namespace

QString modulePathOf(void* address)
{
    const QString library = address ? libraryOf(address) : QString();
    if (library.isEmpty())
        return QCoreApplication::applicationFilePath();
    // The loader keeps the name it was given, which may be relative to where the program started.
    return QFileInfo(library).absoluteFilePath();
}
