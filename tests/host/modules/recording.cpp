#include "database/values/OdRxModule.h"
#include "sdk/commands/OdEdCommandStack.h"

namespace {
// The environment outlives the library.
void record(const char* call)
{
    qputenv("KEST_RECORDED_CALLS", qgetenv("KEST_RECORDED_CALLS") + call + ' ');
}

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
    ~RecordingModule() override { record("deleted"); }
    void initApp() override
    {
        record("init");
        odedRegCmds()->addCommand(odrxCreate<RecordedCommand>());
    }
    void uninitApp() override
    {
        record("uninit");
        odedRegCmds()->removeGroup(QStringLiteral("RECORDING"));
    }
    QString moduleName() const override { return QStringLiteral("recording"); }
};
} // namespace

// A well-behaved module that records what the host does to it.
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
    record("create");
    return new RecordingModule(instance);
}
