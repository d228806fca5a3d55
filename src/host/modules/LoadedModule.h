#pragma once

#include <QString>

#include <memory>

class OdRxModule;
class QLibrary;

/// A module in its library: initialised on construction, taken down and unloaded on destruction.
class LoadedModule
{
public:
    /// Loads the library and initialises its module. Raises OdError with a sentence that names the
    /// file and says why it is refused.
    explicit LoadedModule(const QString& path);
    ~LoadedModule();
    LoadedModule(const LoadedModule&) = delete;
    LoadedModule& operator=(const LoadedModule&) = delete;

    const QString& path() const { return m_path; }
    OdRxModule& module() const { return *m_module; }

private:
    QString m_path;
    std::unique_ptr<QLibrary> m_library;
    OdRxModule* m_module = nullptr;
};
