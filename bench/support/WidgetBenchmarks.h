#pragma once

#include <QApplication>

#include <benchmark/benchmark.h>

/// main() of a benchmark program that shows widgets: offscreen, unless the environment says else.
inline int runWidgetBenchmarks(int argc, char** argv)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
