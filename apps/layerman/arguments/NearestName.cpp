#include "layerman/arguments/NearestName.h"

#include <algorithm>
#include <numeric>
#include <vector>

namespace {
constexpr qsizetype kCompared = 64;
}

int nearest_name::distance(const QString& first, const QString& second)
{
    const QString a = first.left(kCompared).toCaseFolded();
    const QString b = second.left(kCompared).toCaseFolded();
    std::vector<int> row(static_cast<std::size_t>(b.size()) + 1);
    std::iota(row.begin(), row.end(), 0);
    for (qsizetype i = 0; i < a.size(); ++i) {
        int diagonal = row[0];
        row[0] = static_cast<int>(i) + 1;
        for (qsizetype j = 0; j < b.size(); ++j) {
            const auto at = static_cast<std::size_t>(j) + 1;
            const int replaced = diagonal + (a[i] == b[j] ? 0 : 1);
            diagonal = row[at];
            row[at] = std::min({replaced, row[at] + 1, row[at - 1] + 1});
        }
    }
    return row.back();
}

QStringList nearest_name::of(const QString& name, const QStringList& names, int most)
{
    std::vector<std::pair<int, qsizetype>> ranked;
    for (qsizetype i = 0; i < names.size(); ++i)
        ranked.emplace_back(distance(name, names[i]), i);
    std::sort(ranked.begin(), ranked.end());
    QStringList nearest;
    for (const auto& [far, i] : ranked) {
        if (nearest.size() == most)
            break;
        if (!nearest.contains(names[i]))
            nearest << names[i];
    }
    return nearest;
}
