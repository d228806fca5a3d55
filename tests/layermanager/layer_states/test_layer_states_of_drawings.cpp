#include "StateDialogFixture.h"
#include "database/states/LayerStateDictionary.h"
#include "database/tables/OdDbLayerTable.h"
#include "database/tables/OdDbLayerTableRecord.h"
#include "io/DrawingFile.h"
#include "layermanager/layer_states/CEdLayStateDlg.h"
#include "layermanager/layer_states/parts/CEdLayStateListCtrl.h"
#include "support/drawings/SharedDrawings.h"

/// The layer states of drawings that other programs made, in the manager's list.
class TestLayerStatesOfDrawings : public StateDialogFixture
{
    Q_OBJECT

private slots:
    void theListShowsWhatTheRecordsSay();

private:
    struct RawState
    {
        int mask = 0;
        QString description;
        int layers = 0; ///< that the drawing has, without those of programs
    };
    static RawState rawState(OdDbDatabase& drawing, const GroupList& groups);
};

TestLayerStatesOfDrawings::RawState TestLayerStatesOfDrawings::rawState(OdDbDatabase& drawing,
                                                                        const GroupList& groups)
{
    RawState state;
    for (const auto& [code, value] : groups) {
        const QString text = QString::fromUtf8(value);
        OdDbObjectId layer;
        if (code == 91)
            state.mask = text.toInt();
        else if (code == 301)
            state.description = text;
        else if (code == 330)
            layer = drawing.getOdDbObjectId(OdDbHandle(text.toULongLong(nullptr, 16)));
        else if (code == 8)
            layer = drawing.layerTable().getAt(text);
        const auto record = layer.openObject<OdDbLayerTableRecord>();
        state.layers += record && !record->getName().contains(QLatin1Char('*')) ? 1 : 0;
    }
    return state;
}

void TestLayerStatesOfDrawings::theListShowsWhatTheRecordsSay()
{
    KEST_QTEST_NEEDS_DRAWINGS();
    int seen = 0;
    SharedDrawings::eachReadable([&](const QString& path, std::unique_ptr<OdDbDatabase> drawing) {
        const auto dictionary = LayerStateDictionary(*drawing).open();
        if (!dictionary || dictionary->entries().empty())
            return;
        const auto entries = dictionary->entries();
        OdDbDatabase& opened = openDrawing(std::move(drawing));
        openManager();
        int listed = 0;
        for (const DictionaryEntry& entry : entries) {
            const auto record = entry.value.openObject<OdDbXrecord>();
            const RawState raw = record ? rawState(opened, record->groups()) : RawState();
            const int row = states().rowOf(entry.key);
            if (row < 0) {
                QVERIFY2(!record || raw.mask & 0x8000
                             || entry.key.startsWith(QLatin1String("ACAD_VIEWS_"))
                             || entry.key.startsWith(QLatin1String("_LAYISO_STATE"))
                             || entry.key.startsWith(QLatin1String("ARGON_LAYERP_")),
                         qPrintable(path + QLatin1Char(' ') + entry.key));
                continue;
            }
            ++listed;
            QCOMPARE(states().entry(row).name, entry.key);
            QCOMPARE(states().entry(row).description, raw.description);
            if (!record)
                continue;
            clickRow(row);
            QCOMPARE(manager().restoreMask(), raw.mask & 0x7FF);
            const CEdLayStateDlg layers(entry.key);
            QCOMPARE(layers.list().layerModel().rowCount(), raw.layers);
            ++seen;
        }
        QCOMPARE(states().rowCount(), listed);
        closeManager();
        host().close(opened);
    });
    qInfo("%d states of drawings", seen);
    QVERIFY2(seen >= 2, "most drawings have none that users see");
}

QTEST_MAIN(TestLayerStatesOfDrawings)
#include "test_layer_states_of_drawings.moc"
