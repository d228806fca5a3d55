#pragma once

#include <QStringList>

#include <vector>

/// Rows of cells printed in aligned columns, two blanks between them and none at line ends. A cell
/// wider than 255 stands out of its column.
class TextTable
{
public:
    explicit TextTable(QStringList titles);

    void addRow(QStringList cells);
    /// The titles, a line of dashes and the rows; every line ends with a line feed.
    QString toString() const;

    /// Columns that a text takes on a terminal: combining marks take none, East Asian wide
    /// characters two.
    static int displayWidth(QStringView text);

private:
    std::vector<QStringList> m_rows;
    std::vector<int> m_widths;
};
