#pragma once

#include "toolkit/tooltips/ToolTipElement.h"

#include <QXmlStreamReader>

#include <optional>

/// Reads the mark-up of rich tooltips: StackPanel, TextBlock, Border and Image with the attributes
/// of ToolTipElement. Attributes that are not known, or whose values make no sense, are passed
/// over.
class ToolTipMarkup
{
public:
    /// Nothing for a text that is no such mark-up: malformed, with other elements, with a document
    /// type, or larger or deeper than any tooltip.
    static std::optional<ToolTipElement> parse(const QString& text);
    /// One wrapped text block that shows the text as it stands.
    static ToolTipElement plain(const QString& text);

private:
    explicit ToolTipMarkup(const QString& text)
        : m_reader(text)
    { }
    bool readElement(ToolTipElement& element, int depth);
    void readAttributes(ToolTipElement& element) const;

    QXmlStreamReader m_reader;
    int m_elements = 0;
};
