// The benchmarks run with the heap the talven program gives its commands.
#include "engine/HugePages.h"

#include <benchmark/benchmark.h>

int main(int argc, char** argv) {
    host::restartWithHugePageHeap(argv);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
