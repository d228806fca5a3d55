#pragma once

#include <benchmark/benchmark.h>

/// A benchmark by number of layers: 1,000, 10,000 and 100,000, in milliseconds of wall-clock time.
inline void byLayerCount(benchmark::internal::Benchmark* b)
{
    b->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond)->UseRealTime();
}
