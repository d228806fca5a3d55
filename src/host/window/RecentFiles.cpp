#include "host/window/RecentFiles.h"

#include "host/sysvars/UserSettings.h"
#include "host/text/HostText.h"

#include <QDir>
#include <QFileInfo>

namespace {
QString key()
{
    return QStringLiteral("Files/Recent");
}
} // namespace

QStringList RecentFiles::files() const
{
    return m_settings.value(key()).toStringList();
}

void RecentFiles::add(const QString& path)
{
    QStringList all = files();
    all.removeAll(path);
    all.prepend(path);
    m_settings.setValue(key(), all.first(qMin<qsizetype>(all.size(), kMaxFiles)));
}

void RecentFiles::remove(const QString& path)
{
    QStringList all = files();
    all.removeAll(path);
    m_settings.setValue(key(), all);
}

QString RecentFiles::menuText(int position, const QString& path, bool exists)
{
    const QFileInfo file(path);
    QString name = file.fileName();
    QString folder = QDir::toNativeSeparators(file.path());
    name.replace(QLatin1Char('&'), QStringLiteral("&&"));
    folder.replace(QLatin1Char('&'), QStringLiteral("&&"));
    const QString number = position < 10 ? QStringLiteral("&%1 ").arg(position) : QString();
    const QString text = number + HostText::tr("%1 \u2013 %2").arg(name, folder);
    return exists ? text : HostText::tr("%1 (missing)").arg(text);
}
