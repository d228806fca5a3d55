#pragma once

#include <QSyntaxHighlighter>

/// Colours of the command history, from the palette of its view: what the user typed stands back,
/// what failed stands out. A block's kind is its user state.
class HistoryHighlighter : public QSyntaxHighlighter
{
    Q_OBJECT
public:
    enum Kind { Answer = 0, Input = 1, Failure = 2 };

    HistoryHighlighter(QTextDocument* document, const QPalette& palette);
    void setPalette(const QPalette& palette);
    /// The colour of failures on that palette: red, light or dark as the background asks.
    static QColor failureColor(const QPalette& palette);

protected:
    void highlightBlock(const QString& text) override;

private:
    QColor m_input;
    QColor m_failure;
};
