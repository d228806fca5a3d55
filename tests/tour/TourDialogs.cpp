#include "TourDialogs.h"

#include "support/TestFailure.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QFileDialog>
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

/// Calls each of `visits` once the one before is over and `visitNext` finds what it is for; while
/// `open` runs or after it.
void whileOpening(const std::function<void()>& open, std::size_t visits,
                  const std::function<bool(std::size_t visit)>& visitNext)
{
    const QPointer<QWidget> active = QApplication::activeWindow();
    std::size_t visit = 0;
    QTimer look;
    QObject::connect(&look, &QTimer::timeout, &look, [&] {
        // What opens meanwhile is none of this one's business.
        look.stop();
        visit += visitNext(visit) ? 1 : 0;
        if (visit < visits)
            look.start(0);
    });
    look.start(0);
    open();
    if (!QTest::qWaitFor([&] { return visit == visits; }, kPatience))
        reportTestFailure(QStringLiteral("What should open does not, or does not close."));
    giveKeyboardTo(active);
}

QDialog* openDialogOver(const QWidget* before)
{
    auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    if (!dialog || dialog == before || dialog->objectName() == QLatin1String("progressDialog"))
        return nullptr;
    return dialog;
}

} // namespace

void tour_dialogs::inDialog(const std::function<void()>& open, const Steps& steps)
{
    inDialogs(open, {steps});
}

void tour_dialogs::inDialogs(const std::function<void()>& open, const std::vector<Steps>& steps)
{
    const QWidget* before = QApplication::activeModalWidget();
    whileOpening(open, steps.size(), [&](std::size_t visit) {
        const QPointer<QDialog> dialog = openDialogOver(before);
        if (!dialog)
            return false;
        giveKeyboardTo(dialog.data());
        steps[visit](*dialog);
        if (dialog && dialog->isVisible()) {
            reportTestFailure(
                QStringLiteral("The dialog \"%1\" is still open.").arg(dialog->windowTitle()));
            dialog->reject();
        }
        return true;
    });
}

void tour_dialogs::inMenu(const std::function<void()>& open,
                          const std::function<void(QMenu&)>& steps)
{
    whileOpening(open, 1, [&](std::size_t) {
        const QPointer<QMenu> menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        if (!menu)
            return false;
        steps(*menu);
        if (menu && menu->isVisible())
            menu->close();
        return true;
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

void tour_dialogs::pickKind(const QDialog& dialog, const QString& beginning)
{
    auto* kinds = dialog.findChild<QComboBox*>(QStringLiteral("fileTypeCombo"));
    if (!kinds)
        return reportTestFailure(QStringLiteral("The dialog asks for no file."));
    QTest::keyClicks(kinds, beginning);
    if (!kinds->currentText().startsWith(beginning))
        reportTestFailure(QStringLiteral("There are no files of the kind %1.").arg(beginning));
}

void tour_dialogs::pickFile(const QDialog& dialog, const QString& path)
{
    auto* name = dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
    if (!name)
        return reportTestFailure(QStringLiteral("The dialog asks for no file."));
    const auto& files = static_cast<const QFileDialog&>(dialog);
    const QFileInfo file(path);
    const QAbstractButton* open = button(dialog, QStringLiteral("Open"));
    // As if pasted, for letters that are typed bring up names to choose from; and again until the
    // dialog has read its folder and knows the file.
    const auto isTaken = [&] {
        name->selectAll();
        name->insert(files.directory() == file.dir() ? file.fileName() : path);
        return !open || open->isEnabled();
    };
    if (!QTest::qWaitFor(isTaken))
        reportTestFailure(QStringLiteral("The dialog does not know the file %1.").arg(path));
    const bool isToSave = files.acceptMode() == QFileDialog::AcceptSave;
    press(dialog, isToSave ? QStringLiteral("Save") : QStringLiteral("Open"));
}
