#pragma once

#include "database/drawing/OdDbDatabase.h"
#include "database/tables/OdDbLayerTableRecord.h"
#include "host/canvas/CCanvas.h"
#include "host/canvas/support/CanvasDrawing.h"
#include "host/canvas/support/CanvasPicture.h"
#include "support/GuardedTest.h"

#include <memory>

/// Base of canvas tests: a canvas over a drawing that the test writes itself.
class CanvasFixture : public GuardedTest
{
    Q_OBJECT
protected:
    void prepare() override;
    void finish() override;

    /// Reads the drawing and shows it: -100 to 100 across, -75 to 75 upwards, 4 pixels a unit.
    void show(const CanvasDrawing& text);
    void showBytes(const QByteArray& bytes);
    /// Looks at another part of the drawing.
    void look(Vec2 centre, double scale);

    OdDbDatabase& database() { return *m_database; }
    CCanvas& canvas() { return *m_canvas; }
    CanvasPicture picture() { return CanvasPicture(*m_canvas); }
    /// Changes a layer, as an edit of its own.
    template <class Change>
    void changeLayer(const char* name, Change change)
    {
        m_database->startUndoRecord();
        change(*layer(name).safeOpenObject<OdDbLayerTableRecord>(OdDb::kForWrite));
    }
    OdDbObjectId layer(const char* name) const;
    OdDbObjectId byHandle(quint64 handle) const;
    void setDark(bool dark);
    /// Gives the running test function a row "path" for each drawing of other programs.
    static void addRowsOfDrawings();

    std::unique_ptr<OdDbDatabase> m_database;
    std::unique_ptr<CCanvas> m_canvas;
};
