#include "database/drawing/OdDbDatabase.h"
#include "database/tables/OdDbLayerTable.h"
#include "host/recovery/RecoveryFolder.h"
#include "host/support/WindowFixture.h"
#include "host/window/WindowSession.h"
#include "host/window/recovery/JournalKeeper.h"
#include "host/window/recovery/RecoverySession.h"
#include "io/DrawingFile.h"
#include "io/files/RecoveryJournal.h"
#include "support/drawings/DwgCopy.h"
#include "support/drawings/SharedDrawings.h"

#include <QDir>
#include <QFile>
#include <QTest>

namespace {
constexpr int kRecover = 101;
constexpr int kDiscard = 102;
constexpr int kLater = 103;
} // namespace

/// Unsaved edits: kept while there are any, offered at the next start.
class TestRecovery : public WindowFixture
{
    Q_OBJECT

protected:
    void prepare() override
    {
        WindowFixture::prepare();
        keeper = std::make_unique<JournalKeeper>(core->documents(), core->recovery(), *frontEnd);
    }
    void finish() override
    {
        core->shutDown();
        keeper.reset();
        WindowFixture::finish();
    }

private:
    QString recoveryFolder() const { return folder->filePath(QStringLiteral("recovery")); }
    QStringList files(const char* pattern) const
    {
        return QDir(recoveryFolder()).entryList({QString::fromLatin1(pattern)}, QDir::Files);
    }
    HostDocument& openPlan() { return open(TestDrawing().add({.name = "Wall"})); }
    void editPlan()
    {
        openPlan();
        typeLine("CLAYER Wall");
        keeper->flush();
    }
    /// Closes the drawing and leaves its journal as a process that was killed would.
    QString loseTheDrawing();
    static QByteArray contents(const QString& path);
    static void put(const QString& path, const QByteArray& bytes);
    void offer() { RecoverySession(core->recovery(), core->files(), *keeper, *frontEnd).offer(); }
    QString currentLayer() const { return variable("CLAYER"); }

    std::unique_ptr<JournalKeeper> keeper;

private slots:
    void keepsAJournalOnceEditsSettle();
    void dropsTheJournalWhenTheDrawingIsSaved();
    void dropsTheJournalWhenTheDrawingIsClosed();
    void dropsTheJournalWhenEverythingIsUndone();
    void keepsNoJournalOfADrawingWithoutEdits();
    void recoversADrawingWithItsEdits();
    void recoversADwgDrawingInItsVersion();
    void keepsNoJournalOfADrawingThatCannotBeSaved();
    void recoversADrawingThatHasNoFile();
    void recoversBeforeTheFilesOfTheStartAreOpened();
    void journalsWhatWasRecoveredAgain();
    void discardsWhatTheUserDoesNotWant();
    void asksLaterWhenTheUserSaysSo();
    void leavesTheJournalsOfLivingProcessesAlone();
    void offersAJournalInOneProcessAtATime();
    void keepsTheJournalWhenTheProgramEndsUnasked();
    void keepsAJournalAsideWhoseDrawingChanged();
    void keepsAJournalAsideWhoseDrawingIsGone();
    void keepsADamagedJournalAside();
    void tellsWhenEditsCannotBeKept();
};

QByteArray TestRecovery::contents(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void TestRecovery::put(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(bytes), bytes.size());
}

QString TestRecovery::loseTheDrawing()
{
    const QByteArray journal = contents(keeper->journalOf(*current()));
    typeLine("CLOSE No");
    const QString path = recoveryFolder() + QStringLiteral("/gone-1.journal");
    put(path, journal);
    return path;
}

void TestRecovery::keepsAJournalOnceEditsSettle()
{
    HostDocument& document = openPlan();
    QVERIFY(!keeper->timer().isActive());
    typeLine("CLAYER Wall");
    QVERIFY(keeper->timer().isActive());
    QVERIFY(keeper->timer().isSingleShot());
    QCOMPARE(keeper->journalOf(document), QString());
    keeper->flush();
    QVERIFY(!keeper->timer().isActive());
    const RecoveryJournal first = RecoveryJournal::load(keeper->journalOf(document));
    QCOMPARE(first.path, path("plan.dxf"));
    QCOMPARE(first.title, QStringLiteral("plan.dxf"));
    QVERIFY(first.fits(contents(path("plan.dxf"))));
    typeLine("LWDISPLAY 1");
    keeper->flush();
    QCOMPARE(files("*.journal").size(), 1);
    const RecoveryJournal second = RecoveryJournal::load(keeper->journalOf(document));
    QVERIFY(second.applyTo(contents(path("plan.dxf")))
            != first.applyTo(contents(path("plan.dxf"))));
}

void TestRecovery::dropsTheJournalWhenTheDrawingIsSaved()
{
    editPlan();
    QCOMPARE(files("*.journal").size(), 1);
    typeLine("SAVE");
    QCOMPARE(files("*.journal").size(), 0);
    // Edits after a save are told apart from the file as it is now.
    typeLine("LWDISPLAY 1");
    keeper->flush();
    QVERIFY(RecoveryJournal::load(keeper->journalOf(*current())).fits(contents(path("plan.dxf"))));
}

void TestRecovery::dropsTheJournalWhenTheDrawingIsClosed()
{
    editPlan();
    QCOMPARE(files("*.journal").size(), 1);
    typeLine("CLOSE No");
    QCOMPARE(files("*.journal").size(), 0);
}

void TestRecovery::dropsTheJournalWhenEverythingIsUndone()
{
    editPlan();
    QCOMPARE(files("*.journal").size(), 1);
    typeLine("U");
    QCOMPARE(files("*.journal").size(), 0);
    typeLine("REDO");
    keeper->flush();
    QCOMPARE(files("*.journal").size(), 1);
}

void TestRecovery::keepsNoJournalOfADrawingWithoutEdits()
{
    openPlan();
    keeper->flush();
    QVERIFY(!QDir(recoveryFolder()).exists());
}

void TestRecovery::recoversADrawingWithItsEdits()
{
    editPlan();
    const QByteArray before = contents(path("plan.dxf"));
    const QString journal = loseTheDrawing();
    prompts->willChoose(kRecover);
    offer();
    QCOMPARE(prompts->asked().first().text,
             QStringLiteral("Recover the unsaved edits of %1?").arg(path("plan.dxf")));
    QCOMPARE(current()->fileName(), path("plan.dxf"));
    QCOMPARE(currentLayer(), QStringLiteral("Wall"));
    QVERIFY(current()->isModified());
    QVERIFY(!current()->database()->hasUndo());
    QVERIFY(QFile::exists(path(".plan.dxf.lock")));
    QCOMPARE(contents(path("plan.dxf")), before);
    QVERIFY(!QFile::exists(journal));
    typeLine("SAVE");
    QVERIFY(contents(path("plan.dxf")) != before);
    QCOMPARE(contents(path("plan.dxf~")), before);
    QVERIFY(!current()->isModified());
    QCOMPARE(files("*.journal").size(), 0);
}

void TestRecovery::recoversADwgDrawingInItsVersion()
{
    KEST_QTEST_NEEDS_DRAWINGS();
    for (const char* drawing :
         {DwgCopy::kVersion2000, DwgCopy::kVersion2004, DwgCopy::kVersion2018}) {
        const QString file = DwgCopy::make(drawing, path("plan.dwg"));
        const QByteArray before = contents(file);
        core->files().open(file);
        typeLine("-LAYER New Probe \"\"");
        keeper->flush();
        loseTheDrawing();
        prompts->willChoose(kRecover);
        offer();
        QCOMPARE(current()->fileName(), file);
        QVERIFY(current()->isModified());
        QVERIFY(!current()->isReadOnly());
        QVERIFY(QFile::exists(path(".plan.dwg.lock")));
        QCOMPARE(contents(file), before);
        typeLine("SAVE");
        QCOMPARE(contents(file).left(6), before.left(6));
        QVERIFY(readDrawing(file)->layerTable().has(QStringLiteral("Probe")));
        QCOMPARE(files("*.journal").size(), 0);
        typeLine("CLOSE");
    }
}

void TestRecovery::keepsNoJournalOfADrawingThatCannotBeSaved()
{
    KEST_QTEST_NEEDS_DRAWINGS();
    for (const char* drawing : {DwgCopy::kVersionR14, DwgCopy::kVersion2007}) {
        core->files().open(DwgCopy::make(drawing, path("plan.dwg")));
        typeLine("-LAYER New Probe \"\"");
        QVERIFY(current()->isModified());
        keeper->flush();
        QCOMPARE(files("*.journal").size(), 0);
        typeLine("CLOSE No");
    }
    QVERIFY(!history().contains(QStringLiteral("recovery")));
}

void TestRecovery::recoversADrawingThatHasNoFile()
{
    typeLine("NEW");
    typeLine("LWDISPLAY 1");
    keeper->flush();
    loseTheDrawing();
    prompts->willChoose(kRecover);
    offer();
    QCOMPARE(prompts->asked().first().text,
             QStringLiteral("Recover the unsaved edits of Drawing1?"));
    QVERIFY(!current()->hasFile());
    QVERIFY(current()->isModified());
    QCOMPARE(variable("LWDISPLAY"), QStringLiteral("1"));
}

void TestRecovery::recoversBeforeTheFilesOfTheStartAreOpened()
{
    editPlan();
    loseTheDrawing();
    prompts->willChoose(kRecover);
    WindowSession session(*core, *window);
    session.setJournals(*keeper);
    session.start({path("plan.dxf")});
    QCOMPARE(core->documents().documentCount(), 1);
    QCOMPARE(currentLayer(), QStringLiteral("Wall"));
}

void TestRecovery::journalsWhatWasRecoveredAgain()
{
    editPlan();
    loseTheDrawing();
    prompts->willChoose(kRecover);
    offer();
    // The program may be lost again before anything is saved, after one more edit.
    typeLine("LWDISPLAY 1");
    keeper->flush();
    loseTheDrawing();
    prompts->willChoose(kRecover);
    offer();
    QCOMPARE(currentLayer(), QStringLiteral("Wall"));
    QCOMPARE(variable("LWDISPLAY"), QStringLiteral("1"));
}

void TestRecovery::discardsWhatTheUserDoesNotWant()
{
    editPlan();
    const QString journal = loseTheDrawing();
    prompts->willChoose(kDiscard);
    offer();
    QVERIFY(!QFile::exists(journal));
    QCOMPARE(core->documents().documentCount(), 0);
}

void TestRecovery::asksLaterWhenTheUserSaysSo()
{
    editPlan();
    const QString journal = loseTheDrawing();
    prompts->willChoose(kLater);
    offer();
    prompts->willChoose(Prompts::kCancelled);
    offer();
    QVERIFY(QFile::exists(journal));
    QCOMPARE(core->documents().documentCount(), 0);
}

void TestRecovery::leavesTheJournalsOfLivingProcessesAlone()
{
    editPlan();
    const RecoveryFolder otherProcess(folder->path());
    QVERIFY(otherProcess.abandoned().empty());
    offer();
    QCOMPARE(files("*.journal").size(), 1);
}

void TestRecovery::offersAJournalInOneProcessAtATime()
{
    editPlan();
    const QString journal = loseTheDrawing();
    const RecoveryFolder otherProcess(folder->path());
    {
        const auto offered = otherProcess.abandoned();
        QCOMPARE(offered.size(), std::size_t(1));
        QCOMPARE(offered.front().path, journal);
        offer();
        QVERIFY(prompts->asked().isEmpty());
    }
    prompts->willChoose(kLater);
    offer();
}

void TestRecovery::keepsTheJournalWhenTheProgramEndsUnasked()
{
    editPlan();
    const QString journal = keeper->journalOf(*current());
    keeper.reset();
    core->shutDown();
    QVERIFY(QFile::exists(journal));
}

void TestRecovery::keepsAJournalAsideWhoseDrawingChanged()
{
    editPlan();
    const QString journal = loseTheDrawing();
    put(path("plan.dxf"), contents(path("plan.dxf")) + ' ');
    prompts->willChoose(kRecover);
    prompts->willCloseMessage();
    offer();
    QCOMPARE(prompts->texts().last(),
             path("plan.dxf")
                 + QStringLiteral(" is not the file any more that was edited; the unsaved edits do "
                                  "not fit it. The unsaved edits are kept in %1/gone-1.kept.")
                       .arg(recoveryFolder()));
    QVERIFY(!QFile::exists(journal));
    QCOMPARE(files("*.kept").size(), 1);
    QCOMPARE(core->documents().documentCount(), 0);
    QVERIFY(!QFile::exists(path(".plan.dxf.lock")));
    offer();
    QCOMPARE(prompts->asked().size(), 2);
}

void TestRecovery::keepsAJournalAsideWhoseDrawingIsGone()
{
    editPlan();
    loseTheDrawing();
    QVERIFY(QFile::remove(path("plan.dxf")));
    prompts->willChoose(kRecover);
    prompts->willCloseMessage();
    offer();
    QCOMPARE(prompts->texts().last(),
             path("plan.dxf")
                 + QStringLiteral(" does not exist. The unsaved edits are kept in %1/gone-1.kept.")
                       .arg(recoveryFolder()));
    QCOMPARE(files("*.kept").size(), 1);
}

void TestRecovery::keepsADamagedJournalAside()
{
    editPlan();
    const QString journal = loseTheDrawing();
    QByteArray bytes = contents(journal);
    bytes[bytes.size() / 2] = static_cast<char>(bytes[bytes.size() / 2] ^ 1);
    put(journal, bytes);
    prompts->willCloseMessage();
    offer();
    QCOMPARE(prompts->texts(),
             QStringList{QStringLiteral("The recovery file is damaged. The unsaved edits are kept "
                                        "in %1/gone-1.kept.")
                             .arg(recoveryFolder())});
    QCOMPARE(contents(recoveryFolder() + QStringLiteral("/gone-1.kept")), bytes);
}

void TestRecovery::tellsWhenEditsCannotBeKept()
{
    put(recoveryFolder(), "in the way");
    openPlan();
    typeLine("CLAYER Wall");
    keeper->flush();
    keeper->flush();
    const QString sentence =
        QStringLiteral("The unsaved edits of plan.dxf cannot be kept for recovery: ");
    QCOMPARE(history().count(sentence), 1);
}

QTEST_MAIN(TestRecovery)
#include "test_recovery.moc"
