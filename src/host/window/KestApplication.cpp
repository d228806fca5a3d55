#include "host/window/KestApplication.h"

#include "database/values/OdError.h"
#include "host/window/look/ThemedIcon.h"
#include "sdk/KestSharedGlobals.h"
#include "toolkit/Prompts.h"

#include <QScopedValueRollback>

KestApplication::KestApplication(int& argc, char** argv)
    : QApplication(argc, argv)
{
    setApplicationDisplayName(QStringLiteral("kest"));
    setDesktopFileName(QStringLiteral("kest"));
    setWindowIcon(QIcon::fromTheme(QStringLiteral("kest"), themedIcon(QStringLiteral("layers"))));
}

bool KestApplication::notify(QObject* receiver, QEvent* event)
{
    try {
        return QApplication::notify(receiver, event);
    } catch (const OdError& error) {
        show(error.description());
    } catch (const std::exception& error) {
        show(tr("Something went wrong: %1").arg(QString::fromLocal8Bit(error.what())));
    } catch (...) {
        // A module may raise anything.
        show(tr("Something went wrong."));
    }
    return false;
}

void KestApplication::show(const QString& sentence)
{
    // An error while one is shown would pile up messages that nobody can close.
    if (m_isShowing)
        return;
    const QScopedValueRollback showing(m_isShowing, true);
    Prompts::current().message(KestSharedGlobals::GetCMainWindow(), sentence, Prompts::Icon::Error);
}
