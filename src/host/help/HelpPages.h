#pragma once

#include <QString>

#include <vector>

/// The pages of the help in the order of the contents page.
class HelpPages
{
public:
    struct Page
    {
        QString file; ///< "palette.md"
        QString title;
        QString text; ///< in lower case, to be searched
    };

    /// Reads the pages of that folder that its contents page links to.
    explicit HelpPages(const QString& folder);

    const std::vector<Page>& pages() const { return m_pages; }
    /// Pages in which every word of the text occurs; all for an empty text.
    std::vector<const Page*> find(const QString& text) const;

private:
    void add(const QString& folder, const QString& file);

    std::vector<Page> m_pages;
};
