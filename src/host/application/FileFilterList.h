#pragma once

#include <QString>
#include <QStringList>

#include <vector>

/// The file types of a file dialog, from a list of pairs: description and extension, separated by
/// "|"; pairs separated by ",". A pair without a usable extension stands for all files, an empty
/// one for nothing.
class FileFilterList
{
public:
    struct Filter
    {
        QString description;
        QString extension; ///< without dot; empty: any
    };

    explicit FileFilterList(const QString& list);

    const std::vector<Filter>& filters() const { return m_filters; }
    /// As file dialogs spell it: "Layer states (*.las *.LAS)", filters separated by ";;".
    QString forDialog() const;
    /// The index where the list has it, else -1.
    int validIndex(int index) const;
    /// The path with the extension of that filter, where its file name has none; what is a number
    /// only, as in "floor 2.1", is none.
    QString withExtension(const QString& path, int index) const;

private:
    std::vector<Filter> m_filters;
};
