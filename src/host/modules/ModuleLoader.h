#pragma once

#include <QString>

#include <memory>
#include <vector>

class LoadedModule;

/// The loaded modules, each once.
class ModuleLoader
{
public:
    ModuleLoader();
    ~ModuleLoader();

    /// Raises OdError when the module is refused. A module that is loaded already is left alone.
    void load(const QString& path);
    /// Loads the layer palette where it is found. What kept it from loading, or an empty text.
    QString loadLayerManager();
    /// Takes the modules down, the last loaded first.
    void unloadAll();
    std::vector<QString> paths() const;

private:
    /// Where the layer palette's library is: beside the program, else where it is installed. Empty
    /// when it is at neither place.
    static QString layerManagerPath();

    std::vector<std::unique_ptr<LoadedModule>> m_modules;
};
