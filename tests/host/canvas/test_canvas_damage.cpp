#include "database/objects/OdDbLayout.h"
#include "database/values/OdError.h"
#include "host/canvas/CanvasContents.h"
#include "host/canvas/support/CanvasFixture.h"
#include "host/canvas/support/DamagedDrawing.h"
#include "io/DrawingFile.h"
#include "support/drawings/SharedDrawings.h"

#include <QElapsedTimer>
#include <QFileInfo>
#include <QTest>

/// Damaged drawings are painted as far as they make sense: nothing crashes, hangs or fills the
/// memory. KEST_DAMAGED_COPIES says how many copies are tried.
class CanvasDamage : public CanvasFixture
{
    Q_OBJECT

    static constexpr int kSlowestPicture = 20000; ///< milliseconds, on a busy machine

    static int copies(int usual)
    {
        return qEnvironmentVariableIsSet("KEST_DAMAGED_COPIES")
            ? qEnvironmentVariableIntValue("KEST_DAMAGED_COPIES")
            : usual;
    }

    /// One of every kind of entity, with the groups that matter.
    static QByteArray everything()
    {
        return CanvasDrawing()
            .linetype("DASH", "10 -5 0 -5")
            .layerWith("A", 1, "6=DASH 370=50")
            .layer("B", 3, 4, "B2")
            .textStyle("2=Roman 3=arial.ttf 40=0 41=1")
            .paper("Sheet", "40=5 41=5 42=5 43=5 44=210 45=297 46=0 47=0 72=1 142=1 143=1 73=1")
            .variable("$LTSCALE", "40=2")
            .variable("$LWDISPLAY", "290=1")
            .block("X", 1, 2,
                   "LINE 8=0 62=0 6=BYBLOCK 370=-2 10=0 20=0 11=10 21=0\n"
                   "ATTDEF 8=0 10=0 20=0 40=2 1=a 2=T 3=p 70=0\nXLINE 8=A 10=0 20=0 11=1 21=1")
            .block("Y", 0, 0, "INSERT 8=A 2=X 10=3 20=4 41=2 42=-2 50=30\nPOINT 8=B 10=0 20=0")
            .add(
                "LINE 8=A 48=2 10=-50 20=0 11=50 21=0\nCIRCLE 8=A 10=0 20=0 40=30\n"
                "ARC 8=B 10=0 20=0 40=20 50=10 51=200 210=0 220=0 230=-1\n"
                "ELLIPSE 8=A 10=0 20=0 11=40 21=0 40=0.5 41=0 42=5\n"
                "LWPOLYLINE 8=A 90=4 70=129 43=0 10=0 20=0 42=0.5 10=20 20=0 40=3 41=1 10=20 20=20 "
                "10=0 20=20\n"
                "POLYLINE 8=A 66=1 70=128 40=1 41=1\nVERTEX 8=A 10=0 20=0 42=1\nVERTEX 8=A 10=30 "
                "20=10\nSEQEND 8=A\n"
                "POLYLINE 8=A 66=1 70=16 71=2 72=2\nVERTEX 8=A 70=64 10=0 20=0\nVERTEX 8=A 70=64 "
                "10=5 20=0\nVERTEX 8=A 70=64 10=0 20=5\nVERTEX 8=A 70=64 10=5 20=5\nSEQEND 8=A\n"
                "SPLINE 8=A 70=8 71=3 72=8 73=4 40=0 40=0 40=0 40=0 40=1 40=1 40=1 40=1 "
                "10=-45 20=0 10=-15 20=30 10=15 20=-30 10=45 20=0 41=1 41=2 41=1 41=1\n"
                "SPLINE 8=A 70=0 71=3 74=3 11=0 21=0 11=10 21=10 11=20 21=0\n"
                "POINT 8=A 10=1 20=1\nSOLID 8=A 440=33554560 10=0 20=0 11=9 21=0 12=0 22=9 13=9 "
                "23=9\n"
                "3DFACE 8=A 10=0 20=0 30=0 11=9 21=0 31=0 12=9 22=9 32=0 13=0 23=9 33=0 70=1\n"
                "RAY 8=A 10=0 20=0 11=1 21=1\nXLINE 8=A 10=0 20=0 11=0 21=1\n"
                "TEXT 8=A 7=Roman 10=0 20=0 40=5 41=1 50=30 51=10 1=Kw%%d 72=5 11=30 21=10 73=0\n"
                "MTEXT 8=A 10=0 20=0 40=5 41=30 44=1 71=5 72=1 11=1 21=0 1=a\\Pb\\fArial;c~d~e\n"
                "INSERT 8=A 66=1 2=Y 10=0 20=0 41=1 42=1 70=3 71=2 44=20 45=20\nATTRIB 8=B 10=0 "
                "20=0 40=3 1=v 2=T 70=0 74=2 72=1 11=4 21=4\nSEQEND 8=A\n"
                "HATCH 8=A 10=0 20=0 30=0 2=P 70=0 71=0 91=2 92=3 72=1 73=1 93=3 10=-40 20=-40 "
                "42=0.2 10=40 20=-40 42=0 10=0 20=40 42=0 97=0 92=1 93=3 72=2 10=0 20=0 40=5 50=0 "
                "51=180 73=1 72=3 10=0 20=0 11=5 21=0 40=0.5 50=180 51=360 73=0 72=4 94=2 73=0 "
                "74=0 95=6 96=3 40=0 40=0 40=0 40=1 40=1 40=1 10=0 20=0 10=3 20=5 10=6 20=0 97=0 "
                "75=0 76=1 52=0 41=1 77=0 78=2 53=45 43=0 44=0 45=-2 46=2 79=2 49=3 49=-1 53=0 "
                "43=0 "
                "44=0 45=0 46=3 79=0 98=0\n"
                "HATCH 8=A 2=SOLID 70=1 71=0 91=1 92=3 72=0 73=1 93=3 10=0 20=0 10=9 20=0 10=9 "
                "20=9 97=0 75=0 76=1 450=1 451=0 460=0 461=0 452=0 453=2 463=0 63=5 421=255 463=1 "
                "63=2 421=65280 470=LINEAR\n"
                "DIMENSION 8=A 2=X 10=0 20=0 11=1 21=1 70=0\n"
                "LEADER 8=A 71=1 72=1 73=3 76=3 10=0 20=0 10=20 20=20 10=30 20=20\n"
                "MLINE 8=A 2=STANDARD 40=1 70=0 71=1 72=2 73=2 10=0 20=0 11=0 21=0 12=1 22=0 13=0 "
                "23=1 74=2 41=0.5 41=0 75=0 74=2 41=-0.5 41=0 75=0 11=20 21=0 12=1 22=0 13=0 23=1 "
                "74=2 41=0.5 41=0 75=0 74=2 41=-0.5 41=0 75=0\n"
                "MULTILEADER 8=A 300=CONTEXT_DATA{ 40=1 10=0 20=0 41=4 140=4 171=1 304=text 12=30 "
                "22=30 13=1 23=0 43=20 302=LEADER{ 10=20 20=20 11=1 21=0 40=5 304=LEADER_LINE{ "
                "10=0 20=0 10=10 20=5 305=} 303=} 301=}\n"
                "IMAGE 8=A 10=0 20=0 11=1 21=0 12=0 22=1 13=20 23=10 280=1 71=2 91=3 14=0 24=0 "
                "14=9 24=0 14=9 24=9\n"
                "WIPEOUT 8=A 10=0 20=0 11=9 21=0 12=0 22=9 13=1 23=1 280=1 71=1 91=2 14=-0.5 "
                "24=-0.5 14=0.5 24=0.5\n"
                "VIEWPORT 5=C1 67=1 8=0 10=0 20=0 40=200 41=150 68=1 69=1 12=0 22=0 36=1 45=150\n"
                "VIEWPORT 5=C2 67=1 8=A 10=50 20=90 40=100 41=80 68=2 69=2 12=0 22=0 16=0 26=0 "
                "36=1 "
                "17=0 27=0 45=120 51=30 90=65536 340=E1\n"
                "LWPOLYLINE 5=E1 67=1 8=A 90=3 70=1 10=10 20=60 42=0.3 10=90 20=60 42=0 10=50 "
                "20=120 42=0\n"
                "TEXT 67=1 8=A 10=20 20=20 40=8 1=Sheet")
            .bytes();
    }

    /// Paints all spaces, whole and close up; the longest time that one took.
    void paintAll(const QByteArray& bytes, const QString& name)
    {
        canvas().setDatabase(nullptr);
        try {
            m_database = readDrawing(bytes, QStringLiteral("damaged.dxf"));
        } catch (const OdError& error) {
            m_refusal = error.description();
            ++m_refused;
            return;
        }
        QElapsedTimer timer;
        timer.start();
        canvas().setDatabase(m_database.get());
        paint();
        for (const OdDbObjectId id : m_database->layouts()) {
            m_database->setCTAB(id.openObject<OdDbLayout>()->getLayoutName());
            paint();
        }
        QVERIFY2(timer.elapsed() < kSlowestPicture, qPrintable(name));
        ++m_painted;
    }
    void paint()
    {
        canvas().completeNow();
        canvas().zoomExtents();
        canvas().completeNow(true);
        ViewTransform closer = canvas().view();
        closer.zoomAbout(QPointF(70, 50), 1000);
        canvas().setView(closer);
        canvas().completeNow();
        QVERIFY(canvas().undrawnSummary().size() < 10'000);
    }

    int m_painted = 0;
    int m_refused = 0;
    QString m_refusal;

private slots:
    void theSoundDrawingHasEverything()
    {
        canvas().resize(160, 120);
        paintAll(everything(), QStringLiteral("sound"));
        QVERIFY2(m_painted == 1, qPrintable(m_refusal));
        m_database->setTILEMODE(true);
        canvas().completeNow();
        QCOMPARE(canvas().undrawnSummary(), QStringLiteral("1 IMAGE, 1 WIPEOUT not drawn"));
    }

    void damagedCopiesOfOneOfEverything()
    {
        canvas().resize(160, 120);
        for (const char* section : {"TABLES", "BLOCKS", "ENTITIES"}) {
            const DamagedDrawing damaged(everything(), section);
            m_painted = m_refused = 0;
            const int count = copies(60);
            for (int seed = 0; seed < count; ++seed)
                paintAll(damaged.copy(static_cast<unsigned>(seed)),
                         QStringLiteral("%1 %2").arg(QLatin1String(section)).arg(seed));
            // Most must have been worth the trouble.
            QVERIFY2(m_painted > count / 2, section);
            QCOMPARE(m_painted + m_refused, count);
        }
    }

    void damagedCopiesOfDrawingsOfOtherPrograms_data()
    {
        KEST_QTEST_NEEDS_DRAWINGS();
        QTest::addColumn<QString>("path");
        for (const QString& path : SharedDrawings::files()) {
            if (QFileInfo(path).size() < 700'000)
                QTest::newRow(qPrintable(QFileInfo(path).fileName())) << path;
        }
    }
    void damagedCopiesOfDrawingsOfOtherPrograms()
    {
        KEST_QTEST_NEEDS_DRAWINGS();
        QFETCH(QString, path);
        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QByteArray bytes = file.readAll();
        if (bytes.left(64).contains("Binary DXF"))
            QSKIP("a binary drawing");
        m_painted = m_refused = 0;
        canvas().resize(160, 120);
        const DamagedDrawing damaged(bytes, "BLOCKS");
        const int count = copies(2);
        for (int seed = 0; seed < count; ++seed)
            paintAll(damaged.copy(static_cast<unsigned>(seed)), QString::number(seed));
        QCOMPARE(m_painted + m_refused, count);
    }
};

QTEST_MAIN(CanvasDamage)
#include "test_canvas_damage.moc"
