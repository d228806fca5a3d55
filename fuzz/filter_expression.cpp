// Filter expressions: any text gives the rows that a plain reading of the rules gives, and these
// rows, written and read again, are what the known losses make of them. The first character chooses
// the unit of lineweights: inches, millimetres, or none that can be read.

#include "host/text/LineweightText.h"
#include "io/DrawingFile.h"
#include "layermanager/filters/FilterExpression.h"
#include "support/FakeHost.h"
#include "support/drawings/DrawingText.h"
#include "support/reference/ForeseenFilterLoss.h"

#include <cstdio>
#include <cstdlib>

namespace {

const QString kUnits = QStringLiteral("LWUNITS");

void require(bool condition, const char* what, const QString& text)
{
    if (condition)
        return;
    std::fprintf(stderr, "%s: %s\n", what, qUtf8Printable(text));
    std::abort();
}

OdDbDatabase& drawing(FakeHost& host)
{
    return host.open(readDrawing(DrawingText::withLayers({{"Walls"}}), QStringLiteral("fuzz.dxf")));
}

LayerFilterRows parsed(const OdDbDatabase& database, const QString& text)
{
    LayerFilterRows rows;
    ParseFilterExpression(database, text, rows);
    return rows;
}

QString built(LayerFilterRows rows)
{
    rows.emplace_back();
    QStringList texts;
    QString expression;
    BuildFilterExpression(rows, texts, expression);
    return expression;
}

void setUnits(FakeHost& host, unsigned char choice)
{
    host.ints[kUnits] = choice == '0' ? 0 : 1;
    if (choice == '0' || choice == '1')
        host.unreadable.remove(kUnits);
    else
        host.unreadable.insert(kUnits);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, size_t size)
{
    static FakeHost host;
    static const OdDbDatabase& database = drawing(host);
    if (size == 0)
        return 0;
    setUnits(host, data[0]);
    const QString text = QString::fromUtf8(reinterpret_cast<const char*>(data + 1),
                                           static_cast<qsizetype>(size - 1));

    const bool readable = !host.unreadable.contains(kUnits);
    const int units = host.ints[kUnits];
    const ReferenceFilterParser reference(
        [](const QString& name) { return database.table(OdDbTableKind::Linetype).getAt(name); },
        readable ? std::optional(units) : std::nullopt);
    const LayerFilterRows rows = parsed(database, text);
    require(rows == reference.expression(text), "read otherwise than by the rules", text);

    const QString again = built(rows);
    const LayerFilterRows after = parsed(database, again);
    require(after == reference.expression(again), "read otherwise than by the rules", again);
    if (!ForeseenFilterLoss::isForeseeable(rows))
        return 0;
    const ForeseenFilterLoss foreseen(
        reference, [units](int weight) { return lineweightText(weight, units != 0); });
    require(after == foreseen(rows), "lost what was not foreseen", again);
    require(parsed(database, built(after)) == after, "lost more the second time", again);
    return 0;
}
