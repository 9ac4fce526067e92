#pragma once

namespace Bench {

/// How much work there is to do.
enum class Extent {
  FULL,     ///< every size that people meet
  SMALLEST  ///< the smallest size of each work, to see whether it runs
};

/// Registers the benchmarks of one kind of work.
void addStorageBenchmarks(Extent extent);

}  // namespace Bench
