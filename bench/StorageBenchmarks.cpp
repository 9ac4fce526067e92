// Loading and saving recorded values through the module's hook for invoice items, against bare SQLite calls that run
// the same statements on a company of their own with the same content.
#include <string>

#include "bench/BareItemData.h"
#include "bench/BenchCompany.h"
#include "bench/Benchmarks.h"
#include "bench/Race.h"
#include "itemdata/ItemDataList.h"

namespace Bench {

namespace {

using Quillane::Plugin::ItemData::ItemDataList;

// What one unit row of an item records beside its quantity.
constexpr int kVariables = 3;

constexpr int kRows = 1000;

constexpr double kGoal = 1.5;

void save(benchmark::State& state, const BenchModule& module, Quillane::InvoiceItem* item) {
  module.getDB()->begin();
  module.getHook().save(item);
  if (!module.getDB()->commit()) state.SkipWithError(module.getDB()->getLastError().text());
}

void load(benchmark::State& state) {
  BenchCompany ourCompany("load", kRows, kVariables);
  BenchCompany bareCompany("load-bare", kRows, kVariables);
  ourCompany.record();
  bareCompany.record();
  BenchModule module(ourCompany);
  BareItemData bare(bareCompany.getFile());
  Race race(state, kGoal);
  for (auto _ : state) {
    const auto invoice = module.makeInvoice();
    race.ours([&] { module.getHook().load(invoice->getItems()[0]); });
    race.limit([&] { bare.load(BenchCompany::kItemId); });
  }
}

void fill(ItemDataList& list) {
  list.addRows(kRows);
  for (int i = 0; i < list.no(); ++i) {
    const int variable = list.at(i)->itemvariable;
    list.at(i)->value = variable < 0 ? "1" : ("SN-" + std::to_string(list.at(i)->row * 10 + variable)).c_str();
  }
}

void saveNew(benchmark::State& state) {
  BenchCompany ourCompany("save", kRows, kVariables);
  BenchCompany bareCompany("save-bare", kRows, kVariables);
  BenchModule module(ourCompany);
  BareItemData bare(bareCompany.getFile());
  bare.make(kRows, {-1, 1, 2, 3});
  Race race(state, kGoal);
  for (auto _ : state) {
    ourCompany.clear();
    bareCompany.clear();
    const auto invoice = module.makeInvoice();
    Quillane::InvoiceItem* item = invoice->getItems()[0];
    module.getHook().load(item);
    fill(*ItemDataList::of(*item));
    race.ours([&] { save(state, module, item); });
    race.limit([&] { bare.insert(BenchCompany::kItemId); });
  }
}

void saveUnchanged(benchmark::State& state) {
  BenchCompany ourCompany("update", kRows, kVariables);
  BenchCompany bareCompany("update-bare", kRows, kVariables);
  ourCompany.record();
  bareCompany.record();
  BenchModule module(ourCompany);
  BareItemData bare(bareCompany.getFile());
  const auto invoice = module.makeInvoice();
  Quillane::InvoiceItem* item = invoice->getItems()[0];
  module.getHook().load(item);
  bare.load(BenchCompany::kItemId);
  Race race(state, kGoal);
  for (auto _ : state) {
    race.ours([&] { save(state, module, item); });
    race.limit([&] { bare.update(BenchCompany::kItemId); });
  }
}

}  // namespace

void addStorageBenchmarks(Extent) {
  addRace("load 4,000 entries", load);
  addRace("save 4,000 new entries", saveNew);
  addRace("save 4,000 unchanged entries", saveUnchanged);
}

}  // namespace Bench
