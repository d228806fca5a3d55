#pragma once

#include <QImage>
#include <QPixmap>
#include <QPoint>

class QWidget;

/// What somebody sees who sits before the program: the main window, and over it the dialogs, lists
/// and menus that are open, dialogs with a title bar as desktops draw one.
class WindowPicture
{
public:
    explicit WindowPicture(QWidget& window);

    /// What is dragged, with its upper left corner at a point of the screen.
    void addDragged(const QPixmap& pixmap, QPoint at);
    const QImage& image() const { return m_image; }

private:
    void add(QWidget& shown);

    QWidget& m_window;
    QImage m_image;
};
