#pragma once

#include "database/GroupCursor.h"
#include "database/ObjectStore.h"
#include "database/OdDbDatabase.h"
#include "database/OdDbLayerTable.h"
#include "database/OdDbLayerTableRecord.h"
#include "io/DrawingFile.h"

#include <QByteArray>

#include <cstdio>
#include <cstdlib>

/// What must hold for any bytes whatever: they are refused in words, or they are a drawing that
/// stands every audit, keeps its bytes, and saves what is edited.
namespace drawing_fuzz {

inline void require(bool holds, const char* what, const QString& detail = {})
{
    if (holds)
        return;
    std::fprintf(stderr, "broken: %s %s\n", what, qUtf8Printable(detail));
    std::abort();
}

/// Null where the bytes are refused.
inline std::unique_ptr<OdDbDatabase> read(const QByteArray& bytes)
{
    try {
        return readDrawing(bytes, QStringLiteral("fuzz.dxf"));
    } catch (const OdError& error) {
        require(!error.description().isEmpty(), "an error has no sentence");
        return nullptr;
    }
}

inline void visitRecords(const OdDbDatabase& database)
{
    const std::unique_ptr<GroupCursor> groups = database.makeCursor();
    qsizetype seen = 0;
    for (quint32 slot = 0; slot < database.store().fileRecords(); ++slot) {
        for (groups->open(slot); groups->next();)
            seen += groups->text().size() + groups->bytes().size() + (groups->real() > 1)
                + (groups->integer() > 1) + (groups->handle() > 1);
        (void)database.idOfSlot(slot).openObject();
    }
    static volatile qsizetype sink; // else the visit could be optimised away
    sink = seen;
    (void)database.layouts();
    database.layerTable().generateUsageData();
}

inline OdCmColor colourOf(std::size_t number)
{
    return number % 2 == 0 ? OdCmColor::fromIndex(3) : OdCmColor::fromRgb(1, 2, 3);
}

inline void editLayers(OdDbDatabase& database)
{
    std::size_t number = 0;
    for (const OdDbObjectId id : database.layerTable().records()) {
        const auto layer = id.safeOpenObject<OdDbLayerTableRecord>(OdDb::kForWrite);
        layer->setIsFrozen(!layer->isFrozen());
        layer->setColor(colourOf(number++));
    }
}

inline void compareLayers(const OdDbDatabase& wanted, const OdDbDatabase& found)
{
    for (const OdDbObjectId id : wanted.layerTable().records()) {
        const auto layer = id.safeOpenObject<OdDbLayerTableRecord>();
        // Of layers that share a name the first one is found by it.
        if (wanted.layerTable().getAt(layer->getName()) != id)
            continue;
        const auto there =
            found.layerTable().getAt(layer->getName()).openObject<OdDbLayerTableRecord>();
        require(bool(there), "a layer is lost:", layer->getName());
        require(there->isFrozen() == layer->isFrozen(), "a flag is lost:", layer->getName());
        require(there->color() == layer->color(), "a colour is lost:", layer->getName());
    }
}

inline void exercise(const QByteArray& bytes)
{
    const std::unique_ptr<OdDbDatabase> database = read(bytes);
    if (!database)
        return;
    visitRecords(*database);
    const QStringList findings = database->audit();
    require(findings.isEmpty(), "the audit found", findings.join(QLatin1Char(' ')));
    require(drawingBytes(*database) == bytes, "an unedited drawing changed");
    editLayers(*database);
    QByteArray saved;
    try {
        saved = drawingBytes(*database);
    } catch (const OdError& error) {
        require(!error.description().isEmpty(), "an error has no sentence");
        return;
    }
    const std::unique_ptr<OdDbDatabase> again = read(saved);
    require(bool(again), "what was saved cannot be opened");
    require(again->audit().isEmpty(), "what was saved fails the audit");
    compareLayers(*database, *again);
}

} // namespace drawing_fuzz
