#pragma once

#include <benchmark/benchmark.h>

#include <QApplication>

// The main() of a benchmark of the editor's windows: on the offscreen
// platform unless another is asked for.
#define TESSELO_OFFSCREEN_BENCHMARK_MAIN()                                                                  \
    int main(int argc, char** argv)                                                                         \
    {                                                                                                       \
        if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");        \
        QApplication qt(argc, argv);                                                                        \
        benchmark::Initialize(&argc, argv);                                                                 \
        benchmark::RunSpecifiedBenchmarks();                                                                \
        benchmark::Shutdown();                                                                              \
        return 0;                                                                                           \
    }
