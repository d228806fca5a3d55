#pragma once

#include "database/values/OdRxModule.h"

/// The module object; there is one per process.
class LayerManagerModule : public OdRxWin32Module
{
public:
    /// The process's module object, made for `instance` when asked for the first time.
    static LayerManagerModule* getOrCreate(void* instance);
    ~LayerManagerModule() override;

    /// Registers the module's commands.
    void initApp() override;
    /// Takes them away again, all at once, since they share a group.
    void uninitApp() override;
    /// Full path of the module's file.
    QString moduleName() const override;

private:
    explicit LayerManagerModule(void* instance);

    static LayerManagerModule* s_module;
};
