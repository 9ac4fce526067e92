// Loading and saving recorded values through the module's hook for invoice items, against bare SQLite calls that run
// the same statements on a company of their own with the same content.
#include <string>
#include <vector>

#include "bench/BareItemData.h"
#include "bench/BenchCompany.h"
#include "bench/Benchmarks.h"
#include "bench/Race.h"
#include "itemdata/ItemDataList.h"

namespace Bench {

namespace {

using Quillane::InvoiceItem;
using Quillane::Plugin::ItemData::ItemDataEntry;
using Quillane::Plugin::ItemData::ItemDataList;

// What one unit row of an item records beside its quantity.
constexpr int kVariables = 3;

constexpr double kGoal = 1.5;

// A company and its like for the bare calls.
struct Pair {
  Pair(const std::string& name, int rows) : ours(name, rows, kVariables), bare(name + "-bare", rows, kVariables) {}

  void record() {
    ours.record();
    bare.record();
  }

  void clear() {
    ours.clear();
    bare.clear();
  }

  BenchCompany ours;
  BenchCompany bare;
};

bool isSame(const ItemDataEntry& ours, const BareItemData::Entry& bare) {
  return ours.type == bare.type && ours.pk == bare.key && ours.itemvariable == bare.variable &&
         ours.name == bare.name.c_str() && (ours.mandatory != 0) == bare.mandatory && ours.row == bare.row &&
         ours.value == bare.value.c_str();
}

bool areSame(const ItemDataList& ours, const std::vector<BareItemData::Entry>& bare) {
  if (ours.no() != static_cast<int>(bare.size())) return false;
  for (int i = 0; i < ours.no(); ++i)
    if (!isSame(*ours.at(i), bare[i])) return false;
  return true;
}

void load(benchmark::State& state, int rows) {
  Pair companies("load", rows);
  companies.record();
  const BenchModule module(companies.ours);
  BareItemData bare(companies.bare.getFile());
  Race race(state, kGoal);
  for (auto _ : state) {
    const auto invoice = module.makeInvoice();
    race.ours([&] { module.load(*invoice->getItems()[0]); });
    race.limit([&] { bare.load(BenchCompany::kItemId); });
    if (!areSame(*ItemDataList::of(*invoice->getItems()[0]), bare.getEntries()))
      state.SkipWithError("both loaded something else");
  }
}

void saveNew(benchmark::State& state, int rows) {
  Pair companies("save", rows);
  const BenchModule module(companies.ours);
  BareItemData bare(companies.bare.getFile());
  bare.make(rows, {-1, 1, 2, 3});
  Race race(state, kGoal);
  for (auto _ : state) {
    companies.clear();
    const auto invoice = module.makeInvoice();
    InvoiceItem& item = *invoice->getItems()[0];
    module.load(item);
    BenchModule::addRows(item, rows);
    race.ours([&] { module.save(item); });
    race.limit([&] { bare.insert(BenchCompany::kItemId); });
  }
}

void change(ItemDataList& list, int turn) {
  for (int i = 0; i < list.no(); ++i) {
    ItemDataEntry* entry = list.at(i);
    if (entry->itemvariable > 0) entry->value = BenchCompany::textOf(entry->row + turn, entry->itemvariable).c_str();
  }
}

void saveAgain(benchmark::State& state, int rows, bool changed) {
  Pair companies("update", rows);
  companies.record();
  const BenchModule module(companies.ours);
  BareItemData bare(companies.bare.getFile());
  const auto invoice = module.makeInvoice();
  InvoiceItem& item = *invoice->getItems()[0];
  module.load(item);
  bare.load(BenchCompany::kItemId);
  int turn = 0;
  Race race(state, kGoal);
  for (auto _ : state) {
    if (changed) {
      change(*ItemDataList::of(item), ++turn);
      bare.change(turn);
    }
    race.ours([&] { module.save(item); });
    race.limit([&] { bare.update(BenchCompany::kItemId); });
  }
}

}  // namespace

void addStorageBenchmarks(Extent extent) {
  const bool full = extent == Extent::FULL;
  const int rows = full ? 1000 : 100;
  const std::string entries = full ? "4,000" : "400";
  addRace("load " + entries + " entries", [=](benchmark::State& state) { load(state, rows); });
  addRace("save " + entries + " new entries", [=](benchmark::State& state) { saveNew(state, rows); });
  addRace("save " + entries + " unchanged entries", [=](benchmark::State& state) { saveAgain(state, rows, false); });
  addRace("save " + entries + " changed entries", [=](benchmark::State& state) { saveAgain(state, rows, true); });
}

}  // namespace Bench
