#include "LayerStatesFixture.h"

namespace {

/// States in drawings that are saved and read again.
class SavedLayerStates : public LayerStatesFixture
{
protected:
    /// The drawing as a file holds it.
    QByteArray saved() const { return drawingBytes(*m_drawing); }
    static std::unique_ptr<OdDbDatabase> reread(const QByteArray& bytes)
    {
        return readDrawing(bytes, QStringLiteral("again.dxf"));
    }
    /// The record of the first state, trimmed: "code value" by line.
    static QByteArrayList recordIn(const QByteArray& bytes)
    {
        const QList<QByteArray> lines = bytes.split('\n');
        QByteArrayList record;
        for (qsizetype i = 0; i + 1 < lines.size(); i += 2) {
            const QByteArray code = lines[i].trimmed();
            if (code == "0") {
                if (!record.isEmpty())
                    return record;
                if (lines[i + 1].trimmed() != "XRECORD")
                    continue;
            }
            if (code == "0" || !record.isEmpty())
                record.append(code + ' ' + lines[i + 1].trimmed());
        }
        return record;
    }
};

TEST_F(SavedLayerStates, AreRecordsOfTheShapeThatOtherProgramsRead)
{
    m_drawing = readDrawing(DrawingText::withLayers({{"M-DUCT"}}), QStringLiteral("duct.dxf"));
    write("0")->setIsOff(true);
    const auto duct = write("M-DUCT");
    duct->setColor(OdCmColor::fromRgb(255, 127, 0));
    duct->setLineWeight(35);
    duct->setTransparency(33554559);
    LayerStates(*m_drawing).add(QStringLiteral("ducts"), QStringLiteral("ducts only"));
    const auto record = LayerStateDictionary(*m_drawing).state(QStringLiteral("ducts"));
    const QByteArray own = QByteArray::number(record->getDbHandle().value(), 16).toUpper();
    const QByteArray owner =
        QByteArray::number(record->ownerId().getHandle().value(), 16).toUpper();
    EXPECT_EQ(recordIn(saved()),
              (QByteArrayList{"0 XRECORD",
                              "5 " + own,
                              "102 {ACAD_REACTORS",
                              "330 " + owner,
                              "102 }",
                              "330 " + owner,
                              "100 AcDbXrecord",
                              "280 1",
                              "91 2047",
                              "301 ducts only",
                              "290 0",
                              "302 0",
                              "330 31",
                              "90 8",
                              "62 30",
                              "370 35",
                              "331 22",
                              "1 Color_30",
                              "440 33554559",
                              "92 -1023443200",
                              "330 30",
                              "90 9",
                              "62 7",
                              "370 -3",
                              "331 22",
                              "1 Color_7",
                              "440 0"}));
}

TEST_F(SavedLayerStates, AreReadBackAsTheyWere)
{
    m_drawing->setCTAB(QStringLiteral("Sheet A"));
    write("Roof")->setColor(OdCmColor::fromRgb(4, 5, 6, QStringLiteral("BOOK$4-5-6")));
    const QString odd = QStringLiteral("Gr\u00fcn \u4e2d <?>");
    m_states.add(odd, QStringLiteral("\u4e2d\nzwei ^ drei"));
    restore(odd);
    m_states.add(m_plan, {});
    const auto again = reread(saved());
    LayerStates states(*again);
    EXPECT_EQ(states.list(), m_states.list());
    EXPECT_TRUE(states.list().front().inLayout);
    EXPECT_EQ(states.exported(odd), m_states.exported(odd));
    EXPECT_TRUE(LayerStateDictionary(*again).state(odd)->groups() == groups(odd));
    EXPECT_EQ(again->audit(), QStringList());
}

TEST_F(SavedLayerStates, LeaveNothingBehindWhenTakenBack)
{
    const QByteArray before = saved();
    m_drawing->startUndoRecord();
    m_states.add(m_plan, {});
    m_drawing->undo();
    EXPECT_EQ(saved(), before);
}

TEST_F(SavedLayerStates, BringNewLayersAndLinetypesAlong)
{
    PortableLayerState state{m_plan,
                             {{91, "2047"}, {8, "New"}, {90, "8"}, {62, "5"}, {6, "WAVES"}},
                             {{QStringLiteral("WAVES"), QStringLiteral("~~"), {1.5, -0.5}}}};
    m_states.take(state);
    m_drawing = reread(saved());
    EXPECT_EQ(read("New")->linetypeObjectId(), linetype("WAVES"));
    EXPECT_FALSE(linetype("WAVES").isNull());
    EXPECT_EQ(LayerStates(*m_drawing).exported(m_plan).linetypes, state.linetypes);
    EXPECT_EQ(m_drawing->audit(), QStringList());
}

} // namespace
