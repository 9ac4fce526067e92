// The start of the module as the host has it. The program start_race does the work, because this one has the module's
// own classes linked in.
#include <cstdio>
#include <string>

#include "bench/BenchCompany.h"
#include "bench/Benchmarks.h"
#include "bench/Race.h"

namespace Bench {

namespace {

constexpr double kGoal = 2;
constexpr int kRounds = 300;
constexpr int kFewRounds = 20;

void start(benchmark::State& state, int rounds) {
  const BenchCompany company("start", 1, 1);
  const std::string command = std::string("'" QUILLANE_START_RACE "' '" QUILLANE_MODULE_FILE "' '") +
                              company.getFile() + "' " + std::to_string(rounds);
  Race race(state, kGoal);
  for (auto _ : state) {
    double ours = 0;
    double limit = 0;
    std::FILE* output = popen(command.c_str(), "r");
    const bool read = output && std::fscanf(output, "%lf %lf", &ours, &limit) == 2;
    if (!output || pclose(output) != 0 || !read) return state.SkipWithError("start_race failed.");
    race.amounts(ours, limit, "s");
  }
}

}  // namespace

void addStartBenchmarks(Extent extent) {
  const int rounds = extent == Extent::FULL ? kRounds : kFewRounds;
  addRace("start the module in an up-to-date company", [rounds](benchmark::State& state) {
    start(state, rounds);
  })->Iterations(1);
}

}  // namespace Bench
