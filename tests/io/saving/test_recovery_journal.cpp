#include "SavingFixture.h"
#include "database/tables/OdDbLayerTable.h"
#include "database/tables/OdDbLayerTableRecord.h"
#include "io/DrawingCodec.h"
#include "io/DrawingFile.h"
#include "io/files/ContentHash.h"
#include "io/files/JournalWriter.h"
#include "io/files/RecoveryJournal.h"
#include "support/drawings/DrawingText.h"

namespace {

class Recovery : public SavingFixture
{
protected:
    static QByteArray drawing() { return DrawingText::withLayers({{"Walls"}, {"Doors"}}); }
    static FileLayout layoutOf(const OdDbDatabase& database)
    {
        const FileImage& image = DrawingSource::of(database).image();
        return FileLayout::of(image, {true, image.size(), 17, 1, 1});
    }
    static RecoveryJournal journalOf(const OdDbDatabase& database)
    {
        RecoveryJournal journal = RecoveryJournal::of(database, layoutOf(database));
        journal.path = QStringLiteral("/plans/plän.dxf");
        journal.title = QStringLiteral("plän.dxf");
        return journal;
    }
    static QByteArray literals(const RecoveryJournal& journal)
    {
        QByteArray bytes;
        for (const auto& piece : journal.pieces)
            bytes += piece.bytes;
        return bytes;
    }
    /// The sentence with which bytes are refused as a journal; empty when they are one.
    static std::string refusal(const QByteArray& bytes)
    {
        try {
            RecoveryJournal::fromBytes(bytes);
        } catch (const OdError_FileAccess& error) {
            return error.what();
        }
        return {};
    }
    /// A journal of one piece whose sum is right, whatever else is not.
    static QByteArray made(quint64 size, quint64 count, quint64 begin, quint64 end,
                           const QByteArray& bytes)
    {
        JournalWriter out;
        out.putNumber(0x314C4E524A54534Bu);
        out.putBytes("/plans/plan.dxf");
        out.putBytes("plan.dxf");
        for (const quint64 number : {quint64(1), size, quint64(2), quint64(3), count, begin, end})
            out.putNumber(number);
        out.putBytes(bytes);
        out.putNumber(ContentHash::of(out.bytes()));
        return out.bytes();
    }
};

TEST_F(Recovery, AJournalGivesTheEditedDrawingBack)
{
    const auto database = edited(drawing());
    const RecoveryJournal journal = RecoveryJournal::fromBytes(journalOf(*database).toBytes());
    EXPECT_TRUE(journal.fits(drawing()));
    EXPECT_EQ(journal.applyTo(drawing()), drawingBytes(*database));
    EXPECT_EQ(journal.path, QStringLiteral("/plans/plän.dxf"));
    EXPECT_EQ(journal.title, QStringLiteral("plän.dxf"));
    EXPECT_EQ(journal.fileSize, static_cast<quint64>(drawing().size()));
    EXPECT_EQ(journal.fileModified, 17);
    EXPECT_GT(journal.written, 0);
}

TEST_F(Recovery, AJournalHoldsTheEditsAndNotTheDrawing)
{
    const QByteArray big = generated(100, 5000);
    const auto database = edited(big);
    EXPECT_GT(big.size(), 1000000);
    EXPECT_LT(journalOf(*database).toBytes().size(), 10000);
}

TEST_F(Recovery, AfterASaveTheJournalRefersToTheFileAsItIsThen)
{
    const QByteArray before = generated(20, 500);
    const auto database = edited(before);
    const SaveReport report = writeDrawing(*database, path("plan.dxf"));
    database->startUndoRecord();
    for (const OdDbObjectId id : database->layerTable().records())
        id.safeOpenObject<OdDbLayerTableRecord>(OdDb::kForWrite)->setVPDFLT(true);
    const RecoveryJournal journal = RecoveryJournal::of(*database, report.file);
    const QByteArray saved = contents(path("plan.dxf"));
    ASSERT_NE(saved, before);
    EXPECT_TRUE(journal.fits(saved));
    EXPECT_FALSE(journal.fits(before));
    EXPECT_EQ(journal.applyTo(saved), drawingBytes(*database));
    EXPECT_LT(literals(journal).size(), 2000);
    // What was saved may be taken back, too.
    while (database->undo()) {
    }
    const RecoveryJournal undone = RecoveryJournal::of(*database, report.file);
    EXPECT_EQ(undone.applyTo(saved), before);
    EXPECT_LT(literals(undone).size(), 2000);
}

TEST_F(Recovery, ARecoveredDrawingIsJournaledAgainstItsFile)
{
    const QByteArray before = generated(20, 500);
    const RecoveryJournal first = RecoveryJournal::of(*edited(before), layoutOf(*edited(before)));
    const auto recovered = readDrawing(first.applyTo(before), QStringLiteral("plan.dxf"));
    const FileLayout file{FileIdentity{true, first.fileSize, 17, 1, 1}, first.fileHash,
                          first.runs()};
    const RecoveryJournal second = RecoveryJournal::of(*recovered, file);
    EXPECT_TRUE(second.fits(before));
    EXPECT_EQ(second.applyTo(before), drawingBytes(*recovered));
    EXPECT_EQ(second.pieces, first.pieces);
}

TEST_F(Recovery, ADrawingWithoutAFileIsJournaledWhole)
{
    const auto database = edited(drawing());
    const RecoveryJournal journal = RecoveryJournal::of(*database, {});
    EXPECT_EQ(journal.applyTo({}), drawingBytes(*database));
}

TEST_F(Recovery, AJournalFitsNoOtherFile)
{
    const RecoveryJournal journal = journalOf(*edited(drawing()));
    QByteArray other = drawing();
    other[other.size() / 2] = static_cast<char>(other[other.size() / 2] ^ 1);
    EXPECT_FALSE(journal.fits(other));
    EXPECT_FALSE(journal.fits(drawing() + ' '));
    EXPECT_FALSE(journal.fits({}));
}

TEST_F(Recovery, DamageAtAnyByteIsFound)
{
    const QByteArray whole = journalOf(*edited(drawing())).toBytes();
    EXPECT_EQ(refusal(whole), "");
    for (qsizetype place = 0; place < whole.size(); ++place) {
        for (const int change : {1, 0x80, 0xFF}) {
            QByteArray damaged = whole;
            damaged[place] = static_cast<char>(damaged[place] ^ change);
            ASSERT_EQ(refusal(damaged), "The recovery file is damaged.") << place;
        }
    }
    for (qsizetype size = 0; size < whole.size(); ++size)
        ASSERT_EQ(refusal(whole.first(size)), "The recovery file is damaged.") << size;
    EXPECT_EQ(refusal(whole + '\0'), "The recovery file is damaged.");
}

TEST_F(Recovery, JournalsThatWereMadeUpAreBoundedByTheirFile)
{
    constexpr quint64 kHuge = ~quint64(0);
    EXPECT_EQ(refusal(made(100, 1, 10, 20, {})), "");
    EXPECT_EQ(refusal(made(100, 1, 0, 0, "new")), "");
    const std::string damaged = "The recovery file is damaged.";
    EXPECT_EQ(refusal(made(100, kHuge, 10, 20, {})), damaged);
    EXPECT_EQ(refusal(made(100, 2, 10, 20, {})), damaged);
    EXPECT_EQ(refusal(made(100, 0, 10, 20, {})), damaged);
    EXPECT_EQ(refusal(made(100, 1, 20, 10, {})), damaged);
    EXPECT_EQ(refusal(made(100, 1, 10, 101, {})), damaged);
    EXPECT_EQ(refusal(made(100, 1, kHuge, kHuge, {})), damaged);
    EXPECT_EQ(refusal(made(100, 1, 10, 20, "both")), damaged);
}

TEST_F(Recovery, ARangeIsNotTakenTwiceWithoutEnd)
{
    RecoveryJournal journal;
    journal.fileSize = 100;
    journal.pieces = {{0, 60, {}}, {40, 80, {}}};
    EXPECT_EQ(refusal(journal.toBytes()), "");
    journal.pieces.push_back({0, 1, {}});
    EXPECT_EQ(refusal(journal.toBytes()), "The recovery file is damaged.");
}

TEST_F(Recovery, AnotherKindOfFileIsToldAsSuch)
{
    JournalWriter out;
    out.putNumber(1);
    out.putNumber(ContentHash::of(out.bytes()));
    EXPECT_EQ(refusal(out.bytes()),
              "The recovery file is of a kind that this program does not know.");
    EXPECT_THROW(RecoveryJournal::load(path("absent")), OdError_FileAccess);
    EXPECT_THROW(RecoveryJournal::load(folder()), OdError_FileAccess);
}

} // namespace
