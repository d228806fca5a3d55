#include "database/OdRxModule.h"
#include "sdk/OdEdCommandStack.h"

namespace {
int s_inits = 0;
int s_uninits = 0;
int s_deleted = 0;

class RecordedCommand : public OdEdCommand
{
public:
    QString groupName() const override { return QStringLiteral("RECORDING"); }
    QString globalName() const override { return QStringLiteral("_RECORDED"); }
    QString localName() const override { return QStringLiteral("RECORDED"); }
    void execute(OdEdCommandContext*) override { }
    int flags() const override { return 0; }
    void undefine(bool) override { }
};

class RecordingModule : public OdRxWin32Module
{
public:
    using OdRxWin32Module::OdRxWin32Module;
    ~RecordingModule() override { ++s_deleted; }
    void initApp() override
    {
        ++s_inits;
        odedRegCmds()->addCommand(odrxCreate<RecordedCommand>());
    }
    void uninitApp() override
    {
        ++s_uninits;
        odedRegCmds()->removeGroup(QStringLiteral("RECORDING"));
    }
    QString moduleName() const override { return QStringLiteral("recording"); }
};
} // namespace

// A well-behaved module that counts what the host does to it.
extern "C" void odrxGetAPIVersion(quint32* major, quint32* majorMinor, quint32* minor,
                                  quint32* build)
{
    *major = 3;
    *majorMinor = 9;
    *minor = 1;
    *build = 0;
}

extern "C" OdRxModule* odrxCreateModuleObject(void* instance)
{
    return new RecordingModule(instance);
}

extern "C" int initCount()
{
    return s_inits;
}

extern "C" int uninitCount()
{
    return s_uninits;
}

extern "C" int deletedCount()
{
    return s_deleted;
}
