#pragma once

#include "layermanager/LayerDrawing.h"
#include "layermanager/filter_editor/CDlgLayPropFilter.h"
#include "layermanager/filter_editor/CLayPropFilterEdCombo.h"
#include "layermanager/filter_editor/CLayPropFilterEdListCtrl.h"
#include "layermanager/filter_editor/CLayerPreviewList.h"
#include "support/FakeHost.h"
#include "support/GuardedTest.h"
#include "support/RecordingPrompts.h"
#include "toolkit/ControlRegistry.h"

#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QTest>

#include <memory>

/// The property filter dialog, shown over a drawing of a few layers.
class FilterEditorFixture : public GuardedTest
{
    Q_OBJECT
public:
    /// Columns of the filter table by what they are for.
    enum FilterTableColumn {
        kMark,
        kStatus,
        kName,
        kOn,
        kFreeze,
        kLocked,
        kColor,
        kLinetype,
        kLineweight,
        kPlotStyle,
        kPlot,
        kNewVpFreeze,
        kDescription,
        kVpFreeze,
        kVpColor,
        kVpLinetype,
        kVpLineweight,
        kVpPlotStyle,
    };

protected:
    void prepare() override;
    void finish() override;

    FakeHost& host() const { return *m_host; }
    RecordingPrompts& prompts() const { return *m_prompts; }
    OdDbDatabase& db() const { return *m_database; }
    /// Replaces the drawing.
    OdDbDatabase& open(std::unique_ptr<OdDbDatabase> drawing);
    void addToDrawing(const char* name, const char* expression);
    /// Makes Sheet A current and its first viewport the active one.
    OdDbObjectId enterViewport();

    /// Shows the dialog on a new filter, or on one as the drawing would hold it.
    void showNew();
    void showExisting(const char* name, const char* expression);
    void showDialog(const OdLyLayerFilterPtr& filter, bool existing);
    CDlgLayPropFilter& dialog() const { return *m_dialog; }
    void closeDialog() { m_dialog.reset(); }
    OdLyLayerFilter& filter() const { return *m_filter; }
    const QString& expression() const { return m_filter->filterExpression(); }
    template <class Control>
    Control* control(int id) const
    {
        return qobject_cast<Control*>(controlById(m_dialog.get(), id));
    }
    QLineEdit& nameEdit() const;
    CLayPropFilterEdListCtrl& table() const;
    CLayerPreviewList& preview() const;
    QString previewed() const;
    QString notice() const;

    int lines() const { return table().model()->rowCount(); }
    QModelIndex index(int row, int column) const { return table().model()->index(row, column); }
    QString cell(int row, int column) const { return index(row, column).data().toString(); }
    void click(int row, int column, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    CLayPropFilterEdCombo& combo() const;
    bool isListOpen() const;
    /// Clicks on a cell and on an item of its value list.
    void choose(int row, int column, int item);
    QLineEdit* editor() const
    {
        return table().findChild<QLineEdit*>(QStringLiteral("inPlaceEdit"));
    }
    /// Clicks on a cell, types over what it holds and presses Enter.
    void type(int row, int column, const QString& text);
    /// Lets what was put off to the event loop happen.
    static void settle() { QCoreApplication::processEvents(); }
    /// Sends a context menu event and triggers a command of the menu; 0 closes it. False where no
    /// menu came.
    bool menuCommand(int row, int column, int id);

private:
    std::unique_ptr<FakeHost> m_host;
    std::unique_ptr<RecordingPrompts> m_prompts;
    OdDbDatabase* m_database = nullptr;
    OdLyLayerFilterPtr m_root;
    OdLyLayerFilterPtr m_filter;
    std::unique_ptr<CDlgLayPropFilter> m_dialog;
};
