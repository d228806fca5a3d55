#include "host/window/commandline/HistoryHighlighter.h"

#include <QPalette>

HistoryHighlighter::HistoryHighlighter(QTextDocument* document, const QPalette& palette)
    : QSyntaxHighlighter(document)
    , m_input(palette.color(QPalette::PlaceholderText))
    , m_failure(failureColor(palette))
{ }

QColor HistoryHighlighter::failureColor(const QPalette& palette)
{
    const bool isDark = palette.color(QPalette::Base).lightnessF() < 0.5F;
    return QColor::fromHslF(0.0F, 0.75F, isDark ? 0.70F : 0.40F);
}

void HistoryHighlighter::setPalette(const QPalette& palette)
{
    m_input = palette.color(QPalette::PlaceholderText);
    m_failure = failureColor(palette);
    rehighlight();
}

void HistoryHighlighter::highlightBlock(const QString& text)
{
    const auto kind = currentBlockState();
    if (kind == Input || kind == Failure)
        setFormat(0, static_cast<int>(text.size()), kind == Input ? m_input : m_failure);
}
