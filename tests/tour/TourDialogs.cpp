#include "TourDialogs.h"

#include "support/TestFailure.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QLineEdit>
#include <QMenu>
#include <QPointer>
#include <QTest>
#include <QTimer>

namespace {

constexpr int kPatience = 10000; // milliseconds

QString plain(QString text)
{
    return text.remove(QLatin1Char('&'));
}

/// Desktops give the keyboard to what opens, and back to the window that had it.
void giveKeyboardTo(const QPointer<QWidget>& window)
{
    if (!window || !window->isVisible() || QApplication::activeWindow() == window)
        return;
    window->activateWindow();
    const auto hasKeyboard = [&window] { return QApplication::activeWindow() == window; };
    if (!QTest::qWaitFor(hasKeyboard))
        reportTestFailure(QStringLiteral("A window does not become active again."));
}

/// Calls `visit` with the widget once `find` has one, while `open` runs or after it.
template <class Widget>
void whenThere(const std::function<void()>& open, const std::function<Widget*()>& find,
               const std::function<void(Widget&)>& visit)
{
    const QPointer<QWidget> active = QApplication::activeWindow();
    bool came = false;
    bool isOver = false;
    QTimer look;
    QObject::connect(&look, &QTimer::timeout, &look, [&] {
        Widget* found = find();
        if (!found)
            return;
        look.stop();
        came = true;
        visit(*found);
        giveKeyboardTo(active);
        isOver = true;
    });
    look.start(0);
    open();
    if (!QTest::qWaitFor([&] { return isOver; }, kPatience))
        reportTestFailure(came ? QStringLiteral("What was opened does not close.")
                               : QStringLiteral("Nothing was opened."));
    giveKeyboardTo(active);
}

} // namespace

void tour_dialogs::inDialog(const std::function<void()>& open,
                            const std::function<void(QDialog&)>& steps)
{
    const QWidget* before = QApplication::activeModalWidget();
    whenThere<QDialog>(
        open,
        [before]() -> QDialog* {
            auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            const bool isProgress =
                dialog && dialog->objectName() == QLatin1String("progressDialog");
            return dialog != before && !isProgress ? dialog : nullptr;
        },
        [&steps](QDialog& dialog) {
            const QPointer<QDialog> alive(&dialog);
            giveKeyboardTo(alive.data());
            steps(dialog);
            if (!alive || !alive->isVisible())
                return;
            reportTestFailure(QStringLiteral("The dialog \"%1\" is still open.")
                                  .arg(alive->windowTitle()));
            alive->reject();
        });
}

void tour_dialogs::inMenu(const std::function<void()>& open,
                          const std::function<void(QMenu&)>& steps)
{
    whenThere<QMenu>(
        open, [] { return qobject_cast<QMenu*>(QApplication::activePopupWidget()); },
        [&steps](QMenu& menu) {
            const QPointer<QMenu> alive(&menu);
            steps(menu);
            if (alive && alive->isVisible())
                alive->close();
        });
}

QMenu* tour_dialogs::pointAt(QMenu& menu, const QStringList& path)
{
    QMenu* place = &menu;
    for (const QString& text : path) {
        QAction* entry = nullptr;
        for (QAction* action : place->actions())
            entry = !action->isSeparator() && plain(action->text()) == text ? action : entry;
        if (!entry || !entry->isEnabled()) {
            reportTestFailure(QStringLiteral("The menu does not offer \"%1\".").arg(text));
            return nullptr;
        }
        const QPoint at = place->actionGeometry(entry).center();
        QTest::mouseMove(place, at);
        place->setActiveAction(entry);
        if (QMenu* submenu = entry->menu()) {
            QTest::mouseClick(place, Qt::LeftButton, {}, at);
            if (!QTest::qWaitFor([submenu] { return submenu->isVisible(); }))
                return nullptr;
            place = submenu;
        }
    }
    return place;
}

void tour_dialogs::choose(QMenu& menu, const QStringList& path)
{
    if (QMenu* place = pointAt(menu, path))
        QTest::mouseClick(place, Qt::LeftButton, {},
                          place->actionGeometry(place->activeAction()).center());
}

QAbstractButton* tour_dialogs::button(const QWidget& dialog, const QString& text)
{
    for (auto* candidate : dialog.findChildren<QAbstractButton*>()) {
        if (candidate->isVisible() && plain(candidate->text()) == text)
            return candidate;
    }
    return nullptr;
}

void tour_dialogs::press(const QWidget& dialog, const QString& text)
{
    QAbstractButton* found = button(dialog, text);
    if (!found || !found->isEnabled())
        return reportTestFailure(QStringLiteral("There is no button \"%1\" to press.").arg(text));
    // Check boxes and the like answer at their signs.
    const QPoint sign(8, found->height() / 2);
    QTest::mouseClick(found, Qt::LeftButton, {},
                      found->isCheckable() ? sign : found->rect().center());
}

void tour_dialogs::pickFile(QDialog& dialog, const QString& path)
{
    auto* name = dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
    if (!name)
        return reportTestFailure(QStringLiteral("The dialog asks for no file."));
    name->selectAll();
    name->insert(path); // as if pasted: letters that are typed bring up names to choose from
    press(dialog, button(dialog, QStringLiteral("Open")) ? QStringLiteral("Open")
                                                         : QStringLiteral("Save"));
}
