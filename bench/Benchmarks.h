#pragma once

namespace Bench {

/// How much work there is to do.
enum class Extent {
  FULL,     ///< every size that people meet
  SMALLEST  ///< the smallest size of each work, to see whether it runs
};

/// Registers the benchmarks of one kind of work.
void addMemoryBenchmarks(Extent extent);
void addStorageBenchmarks(Extent extent);
void addGrowthBenchmarks(Extent extent);
void addStatementBenchmarks(Extent extent);
void addOutputBenchmarks(Extent extent);
void addDeletionBenchmarks(Extent extent);
void addDecimalBenchmarks(Extent extent);
void addDialogBenchmarks(Extent extent);
void addStartBenchmarks(Extent extent);

}  // namespace Bench
