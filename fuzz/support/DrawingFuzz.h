#pragma once

#include "database/drawing/OdDbDatabase.h"
#include "database/store/HeaderVariables.h"
#include "database/store/ObjectStore.h"
#include "database/tables/OdDbLayerTable.h"
#include "database/tables/OdDbLayerTableRecord.h"
#include "database/values/GroupCursor.h"
#include "io/DrawingFile.h"
#include "io/dxf/text/DxfVersion.h"

#include <QByteArray>

#include <cstdio>
#include <cstdlib>
#include <utility>

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

/// Null where the bytes are refused, with the sentence.
inline std::unique_ptr<OdDbDatabase> read(const QByteArray& bytes, QString& refusal)
{
    try {
        return readDrawing(bytes, QStringLiteral("fuzz.dxf"));
    } catch (const OdError& error) {
        refusal = error.description();
        require(!refusal.isEmpty(), "an error has no sentence");
        return nullptr;
    }
}

inline void visitRecords(const OdDbDatabase& database)
{
    const std::unique_ptr<GroupCursor> groups = database.makeCursor();
    for (quint32 slot = 0; slot < database.store().fileRecords(); ++slot) {
        for (groups->open(slot); groups->next();) {
            (void)groups->text();
            (void)groups->bytes();
            (void)groups->real();
            (void)groups->integer();
            (void)groups->handle();
        }
        (void)database.idOfSlot(slot).openObject();
    }
    (void)database.layouts();
    database.layerTable().generateUsageData();
}

inline void editLayers(OdDbDatabase& database)
{
    // Older versions have no true colours.
    const QString version = database.header().value(QStringLiteral("$ACADVER"));
    const bool trueColours = dxfVersion(version.toLatin1()) >= DrawingVersion::V2004;
    bool odd = false;
    for (const OdDbObjectId id : database.layerTable().records()) {
        const auto layer = id.safeOpenObject<OdDbLayerTableRecord>(OdDb::kForWrite);
        layer->setIsFrozen(!layer->isFrozen());
        layer->setColor(std::exchange(odd, !odd) && trueColours ? OdCmColor::fromRgb(1, 2, 3)
                                                                : OdCmColor::fromIndex(3));
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
    QString refusal;
    const std::unique_ptr<OdDbDatabase> database = read(bytes, refusal);
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
    const std::unique_ptr<OdDbDatabase> again = read(saved, refusal);
    require(bool(again), "what was saved cannot be opened:", refusal);
    require(again->audit().isEmpty(), "what was saved fails the audit");
    compareLayers(*database, *again);
}

} // namespace drawing_fuzz
