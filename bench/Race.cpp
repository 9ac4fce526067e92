// The figures that a race reports; FigureTable shows them.
#include "bench/Race.h"

namespace Bench {

Race::~Race() {
  state.counters["ours"] = oursLeast;
  state.counters["limit"] = limitLeast;
  state.counters["ratio"] = oursLeast / limitLeast;
  state.counters["goal"] = goal;
  state.SetLabel(unit);
}

void Race::amounts(double oursAmount, double limitAmount, const std::string& amountUnit) {
  oursLeast = oursAmount;
  limitLeast = limitAmount;
  unit = amountUnit;
  state.SetIterationTime(1);
}

}  // namespace Bench
