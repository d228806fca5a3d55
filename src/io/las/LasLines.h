#pragma once

#include <QString>

#include <optional>

/// Steps through the groups of a layer-state file: a line with the code, a line with the value.
class LasLines
{
public:
    struct Group
    {
        int code = 0;
        QStringView value;
    };

    /// `text` must outlive this object.
    LasLines(QStringView text, const QString& file);

    /// The next group, or nothing at the end of the file. Raises OdError_InvalidDrawing.
    std::optional<Group> next();
    /// Number of the line that holds the value of the last group.
    qint64 line() const { return m_line; }
    /// Raises OdError_InvalidDrawing for the line of the last value.
    [[noreturn]] void fail(const QString& sentence) const;

private:
    QStringView takeLine();

    QStringView m_rest;
    const QChar* m_lastGroupEnd; ///< only blanks and an end-of-file character follow
    const QString& m_file;
    qint64 m_line = 0;
};
