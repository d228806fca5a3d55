#pragma once

#include <QList>
#include <QString>

class QWidget;

/// A text that a user sees or hears, and where it stands.
struct WidgetText
{
    QString text;
    QString place; ///< "CLayerSettingsDlg / control_1021: text"
};

/// The texts of a window or pane and of all that is visible in it: titles, labels, buttons,
/// headers, tooltips, menus, names and descriptions for assistive programs. What is the user's own
/// data is left out: typed texts, the cells of lists but for what assistive programs say about
/// icons, and buttons whose texts are Qt's.
QList<WidgetText> widgetTexts(const QWidget& root);

/// Texts that are wider or higher than the control that shows them, as the style measures it, and
/// controls that stick out of what they stand in. Cells and headers of lists are left out: their
/// columns are as wide as the user wants, and tooltips show them whole.
QStringList cutOffTexts(const QWidget& root);

/// Keys after "&" that two controls of a window, or two actions of a menu, have both.
QStringList clashingKeys(const QWidget& root);
