#pragma once

#include "layermanager/layers/grid/CLayerListCtrl.h"
#include "support/FakeHost.h"
#include "support/GuardedTest.h"
#include "support/RecordingPrompts.h"

#include <QLineEdit>
#include <QTest>

#include <memory>

/// A shown layer grid over a drawing of a few layers, in a host that lives as long as a test
/// function.
class GridFixture : public GuardedTest
{
    Q_OBJECT
protected:
    void prepare() override;
    void finish() override;

    /// Replaces the drawing and shows its layers.
    OdDbDatabase& openLayers(const QList<QByteArray>& names);
    OdDbDatabase& openDrawing(std::unique_ptr<OdDbDatabase> database);
    OdDbDatabase& db() const { return *m_database; }
    CLayerListCtrl& grid() const { return *m_grid; }
    FakeHost& host() const { return *m_host; }
    RecordingPrompts& prompts() const { return *m_prompts; }

    OdDbObjectId layer(const char* name) const;
    int row(const char* name) const;
    /// Names of the rows from top to bottom, with blanks between them.
    QString rows() const;
    /// Names of the selected rows.
    QString chosen() const;
    QString cell(const char* layerName, LayerColumn column) const;
    void click(const char* layerName, LayerColumn column,
               Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    void doubleClick(const char* layerName, LayerColumn column,
                     Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    void choose(const QList<const char*>& layerNames);
    /// Makes Sheet A current and its first viewport the active one.
    OdDbObjectId enterViewport();
    /// The open in-place editor; null without one.
    QLineEdit* editor() const;
    /// Types over what the editor holds, and ends the edit with Enter.
    void enter(const QString& text);
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    void clickHeader(LayerColumn column);
    /// Lets the timer that follows a burst of changes run out now; false when it is not running.
    bool flushRefresh();

private:
    std::unique_ptr<FakeHost> m_host;
    std::unique_ptr<RecordingPrompts> m_prompts;
    std::unique_ptr<CLayerListCtrl> m_grid;
    OdDbDatabase* m_database = nullptr;
    bool m_combined = true;
};
