#include "host/help/HelpPages.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>

#include <algorithm>

namespace {
QString readAll(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

/// The text of the first heading.
QString titleOf(const QString& markdown)
{
    for (const QString& line : markdown.split(QLatin1Char('\n'))) {
        if (line.startsWith(QLatin1String("# ")))
            return line.mid(2).trimmed();
    }
    return {};
}
} // namespace

HelpPages::HelpPages(const QString& folder)
{
    const QString contents = QStringLiteral("index.md");
    add(folder, contents);
    static const QRegularExpression link(QStringLiteral("\\]\\(([a-z-]+\\.md)\\)"));
    QRegularExpressionMatchIterator found =
        link.globalMatch(readAll(QDir(folder).filePath(contents)));
    while (found.hasNext())
        add(folder, found.next().captured(1));
}

void HelpPages::add(const QString& folder, const QString& file)
{
    const bool isKnown = std::any_of(m_pages.begin(), m_pages.end(),
                                     [&](const Page& page) { return page.file == file; });
    const QString text = readAll(QDir(folder).filePath(file));
    if (!isKnown && !text.isEmpty())
        m_pages.push_back({file, titleOf(text), text.toLower()});
}

std::vector<const HelpPages::Page*> HelpPages::find(const QString& text) const
{
    const QStringList words = text.toLower().split(QLatin1Char(' '), Qt::SkipEmptyParts);
    std::vector<const Page*> result;
    for (const Page& page : m_pages) {
        const bool holdsAll = std::all_of(words.begin(), words.end(), [&](const QString& word) {
            return page.text.contains(word);
        });
        if (holdsAll)
            result.push_back(&page);
    }
    return result;
}
