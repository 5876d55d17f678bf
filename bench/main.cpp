// What the fee center costs beside the floor and beside plain alternatives. scripts/bench builds this, runs it and
// makes docs/performance.md of what it prints. Every answer is checked before anything is timed.
//
//   fee_bench [--benchmark_OPTION...]   lookups, work on many entries and parts of lookups, by Google Benchmark
//   fee_bench --under-load ROUNDS       single lookups while a load runs
//   fee_bench --memory                  bytes for each entry
//   fee_bench --instructions            for callgrind (instructions.h)

#include <benchmark/benchmark.h>

#include <boost/version.hpp>
#include <cstdlib>
#include <cstring>
#include <iostream>

#include "bench/bulk.h"
#include "bench/instructions.h"
#include "bench/lookups.h"
#include "bench/memory.h"
#include "bench/parts.h"
#include "bench/under_load.h"
#include "bench/world.h"

namespace {

int runBenchmarks(int argc, char** argv) {
    bench::registerLookups();
    bench::registerBulks();
    bench::registerParts();
    benchmark::Initialize(&argc, argv);
    benchmark::AddCustomContext("boost", BOOST_LIB_VERSION);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return 2;
    }
    return benchmark::RunSpecifiedBenchmarks() != 0 ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
    bench::installWorld();
    if (argc == 3 && std::strcmp(argv[1], "--under-load") == 0) {
        bench::measureUnderLoad(std::atoi(argv[2]));
        return 0;
    }
    if (argc == 2 && std::strcmp(argv[1], "--memory") == 0) {
        bench::measureMemory();
        return 0;
    }
    if (argc == 2 && std::strcmp(argv[1], "--instructions") == 0) {
        bench::countInstructions();
        return 0;
    }
    return runBenchmarks(argc, argv);
}
