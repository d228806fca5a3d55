#pragma once

#include "layermanager/filters/tree/FilterTreeFixture.h"
#include "layermanager/palette/CLayerPaneTBar.h"
#include "layermanager/palette/CLayerPaneView.h"
#include "layermanager/palette/pane/CLayerSearchBox.h"
#include "layermanager/palette/pane/PaneCommands.h"

#include <QAction>
#include <QCheckBox>

/// The palette, opened over a drawing with the layers 0, Doors, Roof, Walls and Walls-2.
class PaneFixture : public FilterTreeFixture
{
    Q_OBJECT
protected:
    void prepare() override;

    QWidget* control(int id) const;
    template <class Widget = QWidget>
    Widget* part(const char* name) const
    {
        return view()->findChild<Widget*>(QLatin1String(name));
    }
    /// The place of a part in the palette's own coordinates.
    QRect placeOf(const QWidget* part) const;
    CLayerSearchBox& box() const { return *view()->searchBox(); }
    QCheckBox& invert() const { return *view()->invertBox(); }
    QString currentLine() const;
    /// Clicks into the search box, which gives it the focus, and types.
    void search(const char* text);
    /// Clicks on "Invert filter".
    void clickInvert();
    /// Clicks on the button of a command.
    void clickTool(int id);
    QWidget* toolButton(int id) const;
    QAction* tool(int id) const;
    /// Adds a group filter to the drawing as another command would.
    void addGroup(const char* name, std::initializer_list<const char*> layers);
    void choose(std::initializer_list<const char*> layers);
    /// Adds the layers Spare-1 and Spare-2, which nothing lies on.
    void addSpareLayers();
    /// The drawing's layer, open for write.
    OdDbLayerTableRecordPtr layer(const char* name) const
    {
        return layer_drawing::write(*view()->database(), name);
    }
    /// Presses a key where the focus is.
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {});

    static QStringList texts(std::initializer_list<const char*> names);
};
