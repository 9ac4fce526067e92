// The table that a run of the benchmarks prints.
#include "bench/FigureTable.h"

#include <cstdio>
#include <string>

namespace Bench {

namespace {

constexpr const char* kRow = "%-66s %12s %12s %8s %8s  %s\n";

std::string format(const char* pattern, double number, const char* unit = "") {
  char text[64];
  std::snprintf(text, sizeof text, pattern, number, unit);
  return text;
}

// Times in the unit that needs no zeros; other amounts as they are.
std::string amount(double number, const std::string& unit) {
  if (unit != "s") return format("%.0f %s", number, unit.c_str());
  if (number >= 1) return format("%.2f %s", number, "s");
  if (number >= 1e-3) return format("%.2f %s", number * 1e3, "ms");
  if (number >= 1e-6) return format("%.2f %s", number * 1e6, "us");
  return format("%.2f %s", number * 1e9, "ns");
}

// The name that the benchmark was registered under; the library adds how it was run.
std::string workOf(const benchmark::BenchmarkReporter::Run& run) { return run.run_name.function_name; }

}  // namespace

bool FigureTable::ReportContext(const Context&) {
  std::printf(kRow, "Work", "ours", "limit", "ratio", "goal", "");
  return true;
}

void FigureTable::ReportRuns(const std::vector<Run>& runs) {
  for (const Run& run : runs) {
    if (run.error_occurred) {
      failed = true;
      std::printf("%-66s %s\n", workOf(run).c_str(), run.error_message.c_str());
      continue;
    }
    const double ratio = run.counters.at("ratio");
    const double goal = run.counters.at("goal");
    const std::string& unit = run.report_label;
    std::printf(kRow, workOf(run).c_str(), amount(run.counters.at("ours"), unit).c_str(),
                amount(run.counters.at("limit"), unit).c_str(), format("%.2f", ratio).c_str(),
                format("%.2f", goal).c_str(), ratio <= goal ? "" : "missed");
  }
  std::fflush(stdout);
}

}  // namespace Bench
