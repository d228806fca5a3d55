#include "layermanager/layer_states/core/LasStateName.h"
#include "layermanager/layer_states/core/LayerStateControls.h"

#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

/// The beginning of a layer-state file, with these line ends.
QByteArray fileText(const QByteArray& name, const QByteArray& end = "\r\n")
{
    const QList<QByteArray> lines{
        "  0", "LAYERSTATEDICTIONARY", "  0", "LAYERSTATE", "  1", name, " 91", "2047"};
    return lines.join(end) + end;
}

class LasStateNames : public testing::Test
{
protected:
    QString nameIn(const QByteArray& bytes) const
    {
        QFile file(m_path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        file.close();
        return readStateName(m_path);
    }

    QTemporaryDir m_folder;
    QString m_path = m_folder.filePath(QStringLiteral("a.las"));
};

TEST_F(LasStateNames, AreTheLineAfterTheCodeWhateverTheLineEnds)
{
    EXPECT_EQ(nameIn(fileText("Plan")), QStringLiteral("Plan"));
    EXPECT_EQ(nameIn(fileText("Plan", "\n")), QStringLiteral("Plan"));
    EXPECT_EQ(nameIn(fileText("  Plan A/1 \t")), QStringLiteral("Plan A/1"));
    EXPECT_EQ(nameIn(fileText("LAYERSTATE")), QStringLiteral("LAYERSTATE"));
}

TEST_F(LasStateNames, AreReadInEveryEncodingThatTheServiceReads)
{
    const QString name = QString::fromUtf8("Gr\u00fcn");
    EXPECT_EQ(nameIn(fileText(name.toUtf8())), name);
    EXPECT_EQ(nameIn("\xEF\xBB\xBF" + fileText("Plan")), QStringLiteral("Plan"));
    EXPECT_EQ(nameIn(fileText(name.toLatin1())), name);
    EXPECT_EQ(nameIn(fileText("Gr\\U+00FCn")), name);
    const QString text = QString::fromLatin1(fileText("Plan"));
    const QByteArray wide = QByteArray("\xFF\xFE")
        + QByteArray(reinterpret_cast<const char*>(text.utf16()), text.size() * 2);
    EXPECT_EQ(nameIn(wide), QStringLiteral("Plan"));
}

TEST_F(LasStateNames, AreEmptyWhereTheFileEndsBeforeThem)
{
    const QByteArray whole = fileText("Plan");
    const qsizetype name = whole.indexOf("Plan");
    for (qsizetype length = 0; length <= name; ++length)
        EXPECT_EQ(nameIn(whole.first(length)), QString()) << length;
    EXPECT_EQ(nameIn(whole.first(name + 2)), QStringLiteral("Pl")) << "as far as it goes";
    EXPECT_EQ(nameIn(whole.first(name + 4)), QStringLiteral("Plan"));
    EXPECT_EQ(nameIn("  0\r\nLAYERSTATE\r\n  1\r\nPlan\r\n"), QString());
    EXPECT_EQ(readStateName(m_folder.filePath(QStringLiteral("absent.las"))), QString());
    EXPECT_EQ(readStateName(m_folder.path()), QString());
}

TEST_F(LasStateNames, AreSoughtInHugeNonsenseWithoutDelay)
{
    QByteArray nonsense(100 << 20, 'x');
    for (qsizetype i = 0; i < nonsense.size(); i += 97)
        nonsense[i] = i % 2 == 0 ? '\n' : '\xff';
    QElapsedTimer timer;
    timer.start();
    EXPECT_EQ(nameIn(nonsense), QString());
    EXPECT_EQ(nameIn("LAYERSTATEDICTIONARY" + nonsense), QString());
    EXPECT_LT(timer.elapsed(), 20'000);
    RecordProperty("milliseconds", static_cast<int>(timer.elapsed()));
}

TEST(LayerStateControls, AreEnabledByTheirRules)
{
    using namespace StateControl;
    const StateSpace model{true, false};
    const StateSpace sheet{false, true};
    const StateSpace viewport{false, false};
    for (const StateSpace space : {model, sheet, viewport}) {
        for (const int control : ruledStateControls())
            EXPECT_FALSE(isStateControlEnabled(control, 0, space)) << control;
        for (const int control : {kSave, kEdit, kRename, kExport, kSelectAll, kClearAll, kRestore})
        {
            EXPECT_TRUE(isStateControlEnabled(control, 1, space)) << control;
            EXPECT_FALSE(isStateControlEnabled(control, 2, space)) << control;
        }
        for (const int control : {kDelete, kTurnOffOthers}) {
            EXPECT_TRUE(isStateControlEnabled(control, 1, space)) << control;
            EXPECT_TRUE(isStateControlEnabled(control, 2, space)) << control;
        }
        EXPECT_TRUE(isStateControlEnabled(kAsOverrides, 2, space));
        for (const RestoreOption& option : restoreOptions())
            EXPECT_FALSE(isStateControlEnabled(option.control, 2, space));
        EXPECT_TRUE(isStateControlEnabled(kNew, 0, space));
    }
    EXPECT_FALSE(isStateControlEnabled(kAsOverrides, 1, model));
    EXPECT_FALSE(isStateControlEnabled(kAsOverrides, 1, viewport));
    EXPECT_TRUE(isStateControlEnabled(kAsOverrides, 1, sheet));
    EXPECT_FALSE(isStateControlEnabled(kViewportFrozen, 1, model));
    EXPECT_TRUE(isStateControlEnabled(kOn, 1, model));
    EXPECT_TRUE(isStateControlEnabled(kViewportFrozen, 1, sheet));
    EXPECT_FALSE(isStateControlEnabled(kOn, 1, sheet));
    EXPECT_FALSE(isStateControlEnabled(kFrozen, 1, viewport));
}

TEST(LayerStateControls, OptionsAreTheirBitsByAscendingControl)
{
    int control = 1024;
    int all = 0;
    for (const RestoreOption& option : restoreOptions()) {
        EXPECT_EQ(option.control, control++);
        EXPECT_EQ(all & option.bit, 0);
        all |= option.bit;
    }
    EXPECT_EQ(all, 0x3FF);
}

} // namespace
