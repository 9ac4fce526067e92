// Runs the benchmarks: --smallest does the smallest size of each, anything else is for the benchmark library.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
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
  const Bench::Extent extent = take(argc, argv, "--smallest") ? Bench::Extent::SMALLEST : Bench::Extent::FULL;
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 2;
  Bench::addStorageBenchmarks(extent);
  Bench::FigureTable table;
  benchmark::RunSpecifiedBenchmarks(&table);
  return table.hasFailed() ? 1 : 0;
}
