#pragma once

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <limits>
#include <string>

namespace Bench {

/// One figure: what our work costs against its limit, plain code that does the same without ours. Both take turns in
/// the iterations of one benchmark, first ours, then the limit; what counts is the least that either of them took,
/// since whatever else the machine does only adds to it.
class Race {
 public:
  /// The goal is the highest ratio of ours to the limit that is good enough.
  Race(benchmark::State& benchmarkState, double highestRatio) : state(benchmarkState), goal(highestRatio) {}

  /// Reports the figure.
  ~Race();

  /// Times our work. When it consists of equal pieces, the time of one piece counts.
  template <class Work>
  void ours(Work work, double pieces = 1) {
    iteration = time(work);
    oursLeast = std::min(oursLeast, iteration / pieces);
    state.SetIterationTime(iteration);
  }

  /// Times the limit, likewise.
  template <class Work>
  void limit(Work work, double pieces = 1) {
    const double seconds = time(work);
    limitLeast = std::min(limitLeast, seconds / pieces);
    state.SetIterationTime(iteration + seconds);
  }

  /// Compares amounts of something else than time, in this unit, such as bytes.
  void amounts(double oursAmount, double limitAmount, const std::string& amountUnit);

  Race(const Race&) = delete;
  Race& operator=(const Race&) = delete;

 private:
  template <class Work>
  static double time(Work& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
  }

  benchmark::State& state;
  double goal;
  double oursLeast = std::numeric_limits<double>::max();
  double limitLeast = std::numeric_limits<double>::max();
  double iteration = 0;    // seconds that ours took in this iteration
  std::string unit = "s";  // of ours and the limit
};

/// Registers a benchmark whose iterations are timed by a race. By default it runs until enough time has passed; where
/// that would take too long, the caller sets the number of iterations of the result.
template <class Function>
benchmark::internal::Benchmark* addRace(const std::string& name, Function function) {
  return benchmark::RegisterBenchmark(name.c_str(), function)->UseManualTime();
}

}  // namespace Bench
