#include "host/text/TextTable.h"

#include <QChar>

#include <algorithm>

namespace {
/// As wide as names can be. One endless cell must not widen every row.
constexpr int kWidestColumn = 255;

struct Range
{
    char32_t first;
    char32_t last;
};

// The blocks whose characters terminals draw two columns wide.
constexpr Range kWide[] = {{0x1100, 0x115F},   {0x2E80, 0x303E},  {0x3041, 0xA4CF},
                           {0xA960, 0xA97C},   {0xAC00, 0xD7A3},  {0xF900, 0xFAFF},
                           {0xFE30, 0xFE6F},   {0xFF00, 0xFF60},  {0xFFE0, 0xFFE6},
                           {0x1F300, 0x1FAFF}, {0x20000, 0x3FFFD}};

int characterWidth(char32_t character)
{
    const auto category = QChar::category(character);
    if (category == QChar::Mark_NonSpacing || category == QChar::Mark_Enclosing
        || category == QChar::Other_Format)
        return 0;
    return std::any_of(std::begin(kWide), std::end(kWide),
                       [&](Range r) { return character >= r.first && character <= r.last; })
        ? 2
        : 1;
}

/// Characters of most names: one column each, and nothing that has to be replaced.
bool isPlain(QStringView text)
{
    return std::all_of(text.begin(), text.end(),
                       [](QChar c) { return c.unicode() >= 0x20 && c.unicode() < 0x7F; });
}

// A line break or an escape inside a cell would break the table, or the terminal.
QString printable(QString text)
{
    if (isPlain(text))
        return text;
    for (QChar& c : text) {
        if (c.category() == QChar::Other_Control)
            c = QChar::ReplacementCharacter;
    }
    return text;
}
} // namespace

TextTable::TextTable(QStringList titles)
    : m_widths(static_cast<std::size_t>(titles.size()), 0)
{
    addRow(std::move(titles));
}

void TextTable::addRow(QStringList cells)
{
    cells.resize(static_cast<qsizetype>(m_widths.size()));
    for (std::size_t i = 0; i < m_widths.size(); ++i) {
        QString& cell = cells[static_cast<qsizetype>(i)];
        cell = printable(std::move(cell));
        m_widths[i] = std::clamp(displayWidth(cell), m_widths[i], kWidestColumn);
    }
    m_rows.push_back(std::move(cells));
}

int TextTable::displayWidth(QStringView text)
{
    if (isPlain(text))
        return static_cast<int>(text.size());
    int width = 0;
    for (const char32_t character : text.toUcs4())
        width += characterWidth(character);
    return width;
}

QString TextTable::toString() const
{
    QString result;
    const auto addLine = [&](const auto& cellAt) {
        QString line;
        for (std::size_t i = 0; i < m_widths.size(); ++i) {
            const QString cell = cellAt(i);
            line += cell;
            const int missing = std::max(0, m_widths[i] - displayWidth(cell));
            line.resize(line.size() + missing + 2, QLatin1Char(' '));
        }
        while (line.endsWith(QLatin1Char(' ')))
            line.chop(1);
        result += line + QLatin1Char('\n');
    };
    for (std::size_t row = 0; row < m_rows.size(); ++row) {
        addLine([&](std::size_t i) { return m_rows[row].at(static_cast<qsizetype>(i)); });
        if (row == 0)
            addLine([&](std::size_t i) { return QString(m_widths[i], QLatin1Char('-')); });
    }
    return result;
}
