#pragma once

#include <benchmark/benchmark.h>

namespace Bench {

/// Prints the figures of the races as a table: the work, ours, the limit, their ratio and the goal.
class FigureTable : public benchmark::BenchmarkReporter {
 public:
  bool ReportContext(const Context& context) override;
  void ReportRuns(const std::vector<Run>& runs) override;

  /// Whether a benchmark could not do its work.
  bool hasFailed() const { return failed; }

 private:
  bool failed = false;
};

}  // namespace Bench
