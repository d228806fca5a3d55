#pragma once

#include <QList>
#include <QString>

/// Topics of the help by number, and their pages.
namespace help_topics {

constexpr int kContents = 1;
constexpr int kPropertyFilter = 704; ///< the property filter dialog
constexpr int kLayerStates = 706; ///< the dialogs of layer states
constexpr int kPalette = 1000; ///< like the palette's docking pane
constexpr int kLayerSettings = 1001; ///< the palette's settings
constexpr int kCommandLine = 2000; ///< like the command line's docking pane
constexpr int kCanvas = 2001;
constexpr int kFiles = 2002;
constexpr int kPanes = 2003;
constexpr int kColour = 3001;
constexpr int kLinetype = 3101;
constexpr int kLineweight = 3201;
constexpr int kPlotStyle = 3301;

/// "palette.md"; the contents page where the topic is not known.
QString page(int topic);
/// Every topic that has a page.
QList<int> all();

} // namespace help_topics
