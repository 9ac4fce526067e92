// Runs the benchmarks: --smallest does the smallest size of each, anything else is for the benchmark library.
#include <benchmark/benchmark.h>
#include <malloc.h>

#include <algorithm>
#include <cstdio>
#include <limits>
#include <string_view>

#include "bench/Benchmarks.h"
#include "bench/FigureTable.h"

namespace {

// Removes the argument; whether it was there.
bool take(int& count, char** arguments, std::string_view wanted) {
  char** const end = std::remove(arguments + 1, arguments + count, wanted);
  const bool found = end != arguments + count;
  count = static_cast<int>(end - arguments);
  return found;
}

}  // namespace

int main(int argc, char** argv) {
  // Memory that the process has once stays with it. Else it depends on what ran before whether a figure includes the
  // page faults of getting it anew, on both sides, which can be more than the work.
  mallopt(M_MMAP_MAX, 0);
  mallopt(M_TRIM_THRESHOLD, std::numeric_limits<int>::max());
  const Bench::Extent extent = take(argc, argv, "--smallest") ? Bench::Extent::SMALLEST : Bench::Extent::FULL;
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 2;
  // First, because later ones would get the memory that earlier ones leave behind.
  Bench::addMemoryBenchmarks(extent);
  Bench::addStorageBenchmarks(extent);
  Bench::addGrowthBenchmarks(extent);
  Bench::addStatementBenchmarks(extent);
  Bench::addOutputBenchmarks(extent);
  Bench::addDeletionBenchmarks(extent);
  Bench::addDecimalBenchmarks(extent);
  Bench::addDialogBenchmarks(extent);
  Bench::addStartBenchmarks(extent);
  Bench::FigureTable table;
  benchmark::RunSpecifiedBenchmarks(&table);
  return table.hasFailed() ? 1 : 0;
}
