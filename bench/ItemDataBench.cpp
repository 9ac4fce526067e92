// Loading and saving the item data of one item with 1,000 unit rows of a quantity and three values each, through the
// module's hook, against bare SQLite calls doing the same statements. The two take turns on companies of their own with
// the same content; "ratio" is the shortest time of the one over the shortest of the other.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <limits>
#include <string>

#include "bench/BareItemData.h"
#include "bench/BenchCompany.h"
#include "itemdata/ItemDataList.h"

namespace {

using Bench::BareItemData;
using Bench::BenchCompany;
using Bench::BenchModule;
using Quillane::Plugin::ItemData::ItemDataList;

constexpr int kRows = 1000;
constexpr int kVariables = 3;

/// Times the two sides and reports them.
class Race {
 public:
  explicit Race(benchmark::State& benchmarkState) : state(benchmarkState) {}

  ~Race() {
    state.counters["module_ms"] = moduleBest * 1e3;
    state.counters["bare_ms"] = bareBest * 1e3;
    state.counters["ratio"] = moduleBest / bareBest;
  }

  template <class Work>
  void module(Work work) {
    const double seconds = time(work);
    moduleBest = std::min(moduleBest, seconds);
    state.SetIterationTime(seconds);
  }

  template <class Work>
  void bare(Work work) {
    bareBest = std::min(bareBest, time(work));
  }

 private:
  template <class Work>
  static double time(Work work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
  }

  benchmark::State& state;
  double moduleBest = std::numeric_limits<double>::max();
  double bareBest = std::numeric_limits<double>::max();
};

void loadItem(benchmark::State& state) {
  BenchCompany moduleCompany("load-module", kRows, kVariables);
  BenchCompany bareCompany("load-bare", kRows, kVariables);
  moduleCompany.record();
  bareCompany.record();
  BenchModule module(moduleCompany);
  BareItemData bare(bareCompany.getFile());
  Race race(state);
  for (auto _ : state) {
    auto invoice = module.makeInvoice();
    race.module([&] { module.getHook().load(invoice->getItems()[0]); });
    race.bare([&] { bare.load(BenchCompany::kItemId); });
  }
}
BENCHMARK(loadItem)->UseManualTime()->Unit(benchmark::kMillisecond);

void saveNewItem(benchmark::State& state) {
  BenchCompany moduleCompany("save-module", kRows, kVariables);
  BenchCompany bareCompany("save-bare", kRows, kVariables);
  BenchModule module(moduleCompany);
  BareItemData bare(bareCompany.getFile());
  bare.make(kRows, {-1, 1, 2, 3});
  Race race(state);
  for (auto _ : state) {
    moduleCompany.clear();
    bareCompany.clear();
    auto invoice = module.makeInvoice();
    Quillane::InvoiceItem* item = invoice->getItems()[0];
    module.getHook().load(item);
    ItemDataList* list = ItemDataList::of(*item);
    list->addRows(kRows);
    for (int i = 0; i < list->no(); ++i) {
      const int variable = list->at(i)->itemvariable;
      list->at(i)->value = variable < 0 ? "1" : ("SN-" + std::to_string(list->at(i)->row * 10 + variable)).c_str();
    }
    race.module([&] {
      module.getDB()->begin();
      module.getHook().save(item);
      if (!module.getDB()->commit()) state.SkipWithError(module.getDB()->getLastError().text());
    });
    race.bare([&] { bare.insert(BenchCompany::kItemId); });
  }
}
BENCHMARK(saveNewItem)->UseManualTime()->Unit(benchmark::kMillisecond);

void saveStoredItem(benchmark::State& state) {
  BenchCompany moduleCompany("update-module", kRows, kVariables);
  BenchCompany bareCompany("update-bare", kRows, kVariables);
  moduleCompany.record();
  bareCompany.record();
  BenchModule module(moduleCompany);
  BareItemData bare(bareCompany.getFile());
  auto invoice = module.makeInvoice();
  Quillane::InvoiceItem* item = invoice->getItems()[0];
  module.getHook().load(item);
  bare.load(BenchCompany::kItemId);
  Race race(state);
  for (auto _ : state) {
    race.module([&] {
      module.getDB()->begin();
      module.getHook().save(item);
      if (!module.getDB()->commit()) state.SkipWithError(module.getDB()->getLastError().text());
    });
    race.bare([&] { bare.update(BenchCompany::kItemId); });
  }
}
BENCHMARK(saveStoredItem)->UseManualTime()->Unit(benchmark::kMillisecond);

}  // namespace
