#include "FilterTreeFixture.h"

#include "io/DrawingFile.h"

#include <QLineEdit>
#include <QTest>

namespace {

void describe(const QAbstractItemModel& model, const QModelIndex& index, const QString& indent,
              QStringList& lines)
{
    lines << indent + index.data().toString();
    for (int row = 0; row < model.rowCount(index); ++row)
        describe(model, model.index(row, 0, index), indent + QLatin1Char('.'), lines);
}

} // namespace

FilterKey FilterTreeFixture::add(const OdLyLayerFilterPtr& filter, const FilterKey& parent)
{
    FilterTreeEdit edit(db());
    edit.find(parent)->addNested(filter);
    edit.write();
    const FilterKey made = keyOfFilter(edit.root(), *filter);
    settle();
    return made;
}

FilterKey FilterTreeFixture::addProperty(const char* name, const char* expression,
                                         const FilterKey& parent)
{
    const auto filter = odrxCreate<OdLyLayerFilter>(QString::fromUtf8(name));
    filter->setFilterExpression(QString::fromUtf8(expression));
    return add(filter, parent);
}

FilterKey FilterTreeFixture::addGroup(const char* name, std::initializer_list<const char*> layers,
                                      const FilterKey& parent)
{
    const auto group = odrxCreate<OdLyLayerGroup>(QString::fromUtf8(name));
    for (const char* layer : layers)
        group->addLayerId(layer_drawing::id(db(), layer));
    return add(group, parent);
}

QStringList FilterTreeFixture::layersOf(const char* group) const
{
    const FilterTreeEdit edit(db());
    const OdLyLayerFilterPtr filter = edit.find(key(group));
    return filter && filter->isIdFilter()
        ? layer_drawing::names(static_cast<const OdLyLayerGroup&>(*filter).layerIds())
        : QStringList(QStringLiteral("no group"));
}

OdDbDatabase& FilterTreeFixture::openWithReference()
{
    QByteArray text = DrawingText::withLayers({{"plan|Walls", 48}, {"Own"}});
    text.replace("0\nENDTAB\n0\nENDSEC\n0\nSECTION\n2\nBLOCKS\n",
                 DrawingText::groups({"0", "BLOCK_RECORD", "5", "C0", "330", "1", "100",
                                      "AcDbSymbolTableRecord", "100", "AcDbBlockTableRecord", "2",
                                      "plan", "340", "0"})
                     + "0\nENDTAB\n0\nENDSEC\n0\nSECTION\n2\nBLOCKS\n"
                     + DrawingText::groups(
                         {"0",   "BLOCK",       "5",   "D0",         "330", "C0",
                          "100", "AcDbEntity",  "8",   "0",          "100", "AcDbBlockBegin",
                          "2",   "plan",        "70",  "36",         "10",  "0.0",
                          "20",  "0.0",         "30",  "0.0",        "3",   "plan",
                          "1",   "plan.dwg",    "0",   "ENDBLK",     "5",   "E0",
                          "330", "C0",          "100", "AcDbEntity", "8",   "0",
                          "100", "AcDbBlockEnd"}));
    return host().open(readDrawing(text, QStringLiteral("refs.dxf")));
}

QStringList FilterTreeFixture::shown() const
{
    QStringList lines;
    const QAbstractItemModel& model = *tree().model();
    for (int row = 0; row < model.rowCount(); ++row)
        describe(model, model.index(row, 0), QString(), lines);
    return lines;
}

QModelIndex FilterTreeFixture::node(const char* name) const
{
    const QModelIndexList found =
        tree().model()->match(tree().model()->index(0, 0), Qt::DisplayRole, QString::fromUtf8(name),
                              1, Qt::MatchFixedString | Qt::MatchRecursive);
    return found.value(0);
}

void FilterTreeFixture::click(const char* name)
{
    const QRect place = tree().visualRect(node(name));
    QVERIFY2(place.isValid(), name);
    QTest::mouseClick(tree().viewport(), Qt::LeftButton, {}, place.center());
}

void FilterTreeFixture::settle()
{
    QCoreApplication::processEvents();
}

QLineEdit* FilterTreeFixture::labelEditor() const
{
    for (auto* editor : tree().findChildren<QLineEdit*>(QStringLiteral("filterLabelEditor"))) {
        if (editor->isVisible()) // others only wait for being deleted
            return editor;
    }
    return nullptr;
}

void FilterTreeFixture::typeLabel(const char* text)
{
    QVERIFY(labelEditor());
    labelEditor()->selectAll();
    QTest::keyClicks(labelEditor(), QString::fromUtf8(text));
    QTest::keyClick(labelEditor(), Qt::Key_Return);
    settle();
}
