#include "host/support/HostFixture.h"

#include <QRandomGenerator>

/// Lines made at random: whatever they did, undo leads back to the file byte for byte, and redo to
/// what was saved before.
class RandomCommands : public HostFixture, public testing::WithParamInterface<quint32>
{
protected:
    QString oneOf(const QStringList& texts)
    {
        return texts[m_dice.bounded(static_cast<int>(texts.size()))];
    }
    QString number() { return QString::number(m_dice.bounded(1, 9)); }
    QString point() { return number() + QLatin1Char(',') + number(); }
    QString layers()
    {
        return oneOf({QStringLiteral("0"), QStringLiteral("A"), QStringLiteral("Wall"),
                      QStringLiteral("*"), QStringLiteral("~W*"), QStringLiteral("N?"),
                      QStringLiteral("\"\"")});
    }
    /// Of a pattern: %1 becomes a digit, %2 a point, %3 layers.
    QString line()
    {
        static const QStringList kPatterns{
            QStringLiteral("-LAYER New N%1 OFF %3"),
            QStringLiteral("-LAYER Make N%1 Color %1 %3 LWeight 0.%1 %3"),
            QStringLiteral("-LAYER Freeze %3 LOck %3 Description d%1 %3"),
            QStringLiteral("-LAYER Color 1,2,%1 %3 TRansparency %1 %3 Thaw %3"),
            QStringLiteral("-LAYER Rename %3 R%1"),
            QStringLiteral("-LAYER DELete %3"),
            QStringLiteral("-LAYER stAte Save S%1 A Restore S%1"),
            QStringLiteral("LINE %2 %2 %2"),
            QStringLiteral("CIRCLE %2 %1"),
            QStringLiteral("TEXT %2 %1 0 Text%1"),
            QStringLiteral("ERASE Last"),
            QStringLiteral("ERASE Crossing %2 %2"),
            QStringLiteral("ERASE LAyer %3"),
            QStringLiteral("TILEMODE 0"),
            QStringLiteral("MODEL"),
            QStringLiteral("MSPACE"),
            QStringLiteral("CLAYER %3"),
            QStringLiteral("LTSCALE %1"),
            QStringLiteral("CECOLOR %1"),
            QStringLiteral("LAYERNOTIFY %1"),
            QStringLiteral("U"),
            QStringLiteral("UNDO %1"),
            QStringLiteral("REDO"),
            QStringLiteral("UNDO BEgin"),
            QStringLiteral("UNDO End"),
            QStringLiteral("UNDO Mark"),
            QStringLiteral("UNDO Back"),
        };
        QString text = oneOf(kPatterns);
        for (qsizetype at = text.indexOf(u'%'); at >= 0; at = text.indexOf(u'%')) {
            const QChar kind = text[at + 1];
            text.replace(at, 2, kind == u'1' ? number() : kind == u'2' ? point() : layers());
        }
        return text;
    }
    QByteArray savedAs(const char* name)
    {
        EXPECT_EQ("", run(("SAVEAS \"" + path(name).toStdString() + '"').c_str()));
        QFile file(path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    QRandomGenerator m_dice{GetParam()};
};

TEST_P(RandomCommands, AreUndoneToTheFileAndRedoneToWhatWasSaved)
{
    TestDrawing drawing;
    drawing.add({.name = "Wall"}).add({.name = "A", .flags = 4}).addLine("Wall").addViewport(5, 5);
    const QByteArray file = drawing.bytes();
    const OdDbDatabase& database = *open(drawing).database();
    QStringList lines;
    for (int i = 0; i < 40; ++i) {
        lines << line();
        run(lines.last().toUtf8().constData());
        ASSERT_TRUE(database.audit().isEmpty()) << lines.join(u'\n').toStdString();
    }
    run("UNDO End");
    EXPECT_EQ("", run("INSUNITS 13")); // nothing to redo from here on
    const QByteArray edited = savedAs("edited.dxf");
    EXPECT_NE(file, edited);
    EXPECT_EQ("", run("UNDO 100000"));
    EXPECT_EQ(file, savedAs("back.dxf")) << lines.join(u'\n').toStdString();
    EXPECT_EQ("", run("REDO 100000"));
    EXPECT_EQ(edited, savedAs("redone.dxf")) << lines.join(u'\n').toStdString();
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomCommands, testing::Range(quint32(1), quint32(25)));
