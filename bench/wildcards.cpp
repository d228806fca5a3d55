// Matching names of layers with wildcard patterns, by number of names; beside it what the C library
// and regular expressions take for the same. fnmatch() gets the names as bytes, in the locale "C"
// that costs it least.

#include "base/WildcardPattern.h"

#include <QRegularExpression>
#include <QStringList>

#include <algorithm>
#include <benchmark/benchmark.h>
#include <random>
#include <string>

#if __has_include(<fnmatch.h>)
#include <fnmatch.h>
#endif

namespace {

constexpr const char* kPatterns[] = {"A-*-EX?T*", "*EX?T*", "*-WALL-*-DEMO-*", "S-BEAM*"};

template <std::size_t kCount>
QString anyOf(const char* const (&texts)[kCount], std::mt19937& random)
{
    return QString::fromUtf8(texts[random() % kCount]);
}

/// A name as offices make them: discipline, major, minor, status; in one of twenty as an external
/// reference brings it, beyond ASCII, in lower case, or with a number.
QString layerName(std::mt19937& random)
{
    static constexpr const char* kDisciplines[] = {"A", "S", "M", "E", "P", "C", "L", "FP"};
    static constexpr const char* kMajors[] = {"WALL", "DOOR", "BEAM", "COLS", "EXIT", "EXST",
                                              "LITE", "DUCT", "PIPE", "FURN", "ROOF", "GRID"};
    static constexpr const char* kMinors[] = {"FULL", "PRHT", "DEMO", "EXT1", "INTR",
                                              "PATT", "IDEN", "TEXT", "DIMS"};
    static constexpr const char* kStates[] = {"NEWW", "DEMO", "EXST", "TEMP", "1", "02", "N"};
    static constexpr const char* kPlaces[] = {"Größe", "Türen", "ÉTAGE", "ΘΥΡΑ", "СТЕНА"};
    const QString name = anyOf(kDisciplines, random) + QLatin1Char('-') + anyOf(kMajors, random)
        + QLatin1Char('-') + anyOf(kMinors, random) + QLatin1Char('-') + anyOf(kStates, random);
    switch (random() % 20) {
    case 0:
        return QStringLiteral("XREF%1|").arg(random() % 50) + name;
    case 1:
        return name + QLatin1Char('-') + anyOf(kPlaces, random);
    case 2:
        return name.toLower();
    case 3:
        return name + QString::number(random() % 10000);
    default:
        return name;
    }
}

QStringList layerNames(const benchmark::State& state)
{
    std::mt19937 random(1);
    QStringList names;
    for (auto count = state.range(1); count > 0; --count)
        names << layerName(random);
    return names;
}

void sizes(benchmark::internal::Benchmark* b)
{
    for (int pattern = 0; pattern < 4; ++pattern) {
        for (const int names : {1000, 10'000, 100'000})
            b->Args({pattern, names});
    }
}

/// Counts the matches over and over, and tells the time for a name.
template <class Names, class Matches>
void measure(benchmark::State& state, const Names& names, Matches matches)
{
    qsizetype matched = 0;
    for (auto _ : state) {
        matched = std::count_if(names.begin(), names.end(), matches);
        benchmark::DoNotOptimize(matched);
    }
    state.SetLabel(kPatterns[state.range(0)]);
    state.counters["matched"] = static_cast<double>(matched);
    state.counters["per_name"] = benchmark::Counter(static_cast<double>(names.size()),
                                                    benchmark::Counter::kIsIterationInvariantRate
                                                        | benchmark::Counter::kInvert);
}

void compiledPattern(benchmark::State& state, Qt::CaseSensitivity sensitivity)
{
    const WildcardPattern pattern(QString::fromUtf8(kPatterns[state.range(0)]), sensitivity);
    measure(state, layerNames(state), [&](const QString& name) { return pattern.matches(name); });
}
BENCHMARK_CAPTURE(compiledPattern, anyCase, Qt::CaseInsensitive)->Apply(sizes);
BENCHMARK_CAPTURE(compiledPattern, withCase, Qt::CaseSensitive)->Apply(sizes);

void regularExpression(benchmark::State& state)
{
    QString text = QRegularExpression::escape(QString::fromUtf8(kPatterns[state.range(0)]));
    text.replace(QLatin1String("\\*"), QLatin1String(".*"))
        .replace(QLatin1String("\\?"), QLatin1String("."));
    const QRegularExpression expression(QRegularExpression::anchoredPattern(text),
                                        QRegularExpression::CaseInsensitiveOption
                                            | QRegularExpression::DotMatchesEverythingOption);
    expression.optimize();
    measure(state, layerNames(state),
            [&](const QString& name) { return expression.match(name).hasMatch(); });
}
BENCHMARK(regularExpression)->Apply(sizes);

#ifdef FNM_CASEFOLD
void fnmatchOnBytes(benchmark::State& state)
{
    std::vector<std::string> names;
    for (const QString& name : layerNames(state))
        names.push_back(name.toStdString());
    const char* pattern = kPatterns[state.range(0)];
    measure(state, names, [pattern](const std::string& name) {
        return fnmatch(pattern, name.c_str(), FNM_CASEFOLD) == 0;
    });
}
BENCHMARK(fnmatchOnBytes)->Apply(sizes);
#endif

} // namespace
