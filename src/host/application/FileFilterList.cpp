#include "host/application/FileFilterList.h"

#include "host/text/HostText.h"

#include <QFileInfo>

#include <algorithm>

namespace {
constexpr qsizetype kMostFilters = 100;
constexpr qsizetype kLongestExtension = 16;

/// The extension without dot or wildcard; empty where it could not be one.
QString usableExtension(const QString& text)
{
    QString extension = text.trimmed();
    for (const char* start : {"*", "."}) {
        if (extension.startsWith(QLatin1String(start)))
            extension.remove(0, 1);
    }
    const bool isUsable = std::all_of(extension.cbegin(), extension.cend(), [](QChar c) {
        return c.isLetterOrNumber() || c == QLatin1Char('_') || c == QLatin1Char('-');
    });
    return isUsable && extension.size() <= kLongestExtension ? extension : QString();
}

/// A dialog takes the last brackets of a filter for its patterns, so a description that ends in
/// brackets ("Layer State file(*.las)") goes without them.
QString withoutBrackets(const QString& text)
{
    const QString description = text.trimmed();
    const qsizetype bracket = description.indexOf(QLatin1Char('('));
    return bracket < 0 ? description : description.left(bracket).trimmed();
}

bool hasExtension(const QString& path)
{
    const QString suffix = QFileInfo(path).suffix();
    return std::any_of(suffix.cbegin(), suffix.cend(), [](QChar c) { return c.isLetter(); });
}

QString patterns(const QString& extension)
{
    if (extension.isEmpty())
        return QStringLiteral("*");
    const QString lower = extension.toLower();
    const QString upper = extension.toUpper();
    return lower == upper ? QStringLiteral("*.") + lower
                          : QStringLiteral("*.%1 *.%2").arg(lower, upper);
}
} // namespace

FileFilterList::FileFilterList(const QString& list)
{
    for (const QString& pair : list.split(QLatin1Char(',')).mid(0, kMostFilters)) {
        const qsizetype bar = pair.indexOf(QLatin1Char('|'));
        const QString extension = bar < 0 ? QString() : usableExtension(pair.mid(bar + 1));
        QString description = withoutBrackets(bar < 0 ? pair : pair.left(bar));
        if (description.isEmpty() && extension.isEmpty())
            continue;
        if (description.isEmpty())
            description = HostText::tr("%1 files").arg(extension.toUpper());
        m_filters.push_back({description, extension});
    }
}

QString FileFilterList::forDialog() const
{
    QStringList all;
    for (const Filter& filter : m_filters)
        all << QStringLiteral("%1 (%2)").arg(filter.description, patterns(filter.extension));
    if (all.isEmpty())
        all << HostText::tr("All files (*)");
    return all.join(QStringLiteral(";;"));
}

int FileFilterList::validIndex(int index) const
{
    return index >= 0 && index < static_cast<int>(m_filters.size()) ? index : -1;
}

QString FileFilterList::withExtension(const QString& path, int index) const
{
    if (path.isEmpty() || m_filters.empty() || hasExtension(path))
        return path;
    const Filter& filter = m_filters[static_cast<std::size_t>(std::max(validIndex(index), 0))];
    return filter.extension.isEmpty() ? path : path + QLatin1Char('.') + filter.extension;
}
