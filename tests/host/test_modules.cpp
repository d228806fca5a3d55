#include "host/support/HostFixture.h"
#include "sdk/commands/OdEdCommandStack.h"

#include <QDir>
#include <QFile>

namespace {
QString builtModule(const char* name)
{
    return QDir(QStringLiteral(KEST_TEST_MODULES))
        .filePath(QLatin1String(name) + QStringLiteral(KEST_MODULE_SUFFIX));
}
} // namespace

class Modules : public HostFixture
{
protected:
    /// The sentence with which a library is refused.
    std::string refusal(const QString& path)
    {
        try {
            core.modules().load(path);
        } catch (const OdError& error) {
            const std::string start = path.toStdString() + " is not loaded: ";
            const std::string sentence = error.what();
            EXPECT_EQ(0u, sentence.find(start)) << sentence;
            return sentence.substr(std::min(start.size(), sentence.size()));
        }
        ADD_FAILURE() << "The library was taken.";
        return {};
    }
};

TEST_F(Modules, AMissingFileIsRefused)
{
    EXPECT_EQ("there is no such file.", refusal(path("absent.so")));
}

TEST_F(Modules, AFolderIsRefused)
{
    EXPECT_EQ("it is not a file.", refusal(folder.path()));
}

TEST_F(Modules, AFileThatIsNoLibraryIsRefused)
{
    QFile file(path("text.so"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("This is no library.\n");
    file.close();
    EXPECT_EQ(0u, refusal(file.fileName()).find("it is no library that can be loaded ("));
}

TEST_F(Modules, ALibraryWithoutEntryPointsIsRefused)
{
    EXPECT_EQ("it has no entry point \"odrxGetAPIVersion\" and is no module of this program.",
              refusal(builtModule("module_no_entry_point")));
    EXPECT_EQ("it has no entry point \"odrxCreateModuleObject\" and is no module of this program.",
              refusal(builtModule("module_no_create")));
}

TEST_F(Modules, ALibraryForAnotherInterfaceVersionIsRefusedBeforeItsModuleIsMade)
{
    EXPECT_EQ("it was built for interface version 3.9.0.7, this program offers 3.9.1.0.",
              refusal(builtModule("module_wrong_version")));
}

TEST_F(Modules, ALibraryThatGivesNoModuleIsRefused)
{
    EXPECT_EQ("it gives no module object.", refusal(builtModule("module_no_object")));
}

TEST_F(Modules, AModuleIsInitialisedOnceAndTakenDownBeforeItGoes)
{
    qunsetenv("KEST_RECORDED_CALLS");
    core.modules().load(builtModule("module_recording"));
    core.modules().load(builtModule("module_recording"));
    EXPECT_EQ(1u, core.modules().paths().size());
    EXPECT_EQ("create init ", qgetenv("KEST_RECORDED_CALLS").toStdString());
    EXPECT_EQ("", run("RECORDED"));
    core.modules().unloadAll();
    EXPECT_EQ("create init uninit deleted ", qgetenv("KEST_RECORDED_CALLS").toStdString());
    EXPECT_FALSE(odedRegCmds()->hasGroup(QStringLiteral("RECORDING")));
    EXPECT_EQ("There is no command \"RECORDED\".", run("RECORDED"));
    qunsetenv("KEST_RECORDED_CALLS");
}

TEST_F(Modules, RefusedLibrariesLeaveTheHostWorking)
{
    refusal(builtModule("module_wrong_version"));
    EXPECT_TRUE(core.modules().paths().empty());
    EXPECT_EQ("", run("NEW"));
}
