// How many statements the module runs, against the number that its work demands: nothing is read or written twice, and
// nothing is left out.
#include <map>
#include <string>

#include "bench/BenchCompany.h"
#include "bench/Benchmarks.h"
#include "bench/Race.h"
#include "itemdata/ItemDataList.h"
#include "plugin/contract/Database.h"

namespace Bench {

namespace {

using Quillane::InvoiceItem;
using Quillane::Plugin::ItemData::ItemDataEntry;
using Quillane::Plugin::ItemData::ItemDataList;

constexpr int kVariables = 3;
constexpr int kColumns = 1 + kVariables;

constexpr double kGoal = 1;

// Of so many rows one is deleted, or has a quantity that is not written.
constexpr int kSpecial = 10;

// Statements by their first word.
using Counts = std::map<std::string, int>;

class StatementCounter : public StatementObserver {
 public:
  explicit StatementCounter(TarnwellDatabase& watched) : database(watched) { database.setObserver(this); }
  ~StatementCounter() override { database.setObserver(nullptr); }

  void statementExecuted(const FX::FXString& sql, const std::vector<Binding>&) override {
    ++counts[sql.section(' ', 0).text()];
  }

  Counts counts;

 private:
  TarnwellDatabase& database;
};

int totalOf(const Counts& counts) {
  int total = 0;
  for (const auto& [word, count] : counts) total += count;
  return total;
}

// Compares what work runs on the item of the module's document with what is demanded.
template <class Work>
void compare(benchmark::State& state, const BenchModule& module, const Counts& demanded, Work work) {
  Race race(state, kGoal);
  for (auto _ : state) {
    StatementCounter counter(*module.getDB());
    work();
    race.amounts(totalOf(counter.counts), totalOf(demanded), "statements");
    if (counter.counts != demanded) state.SkipWithError("runs other statements than demanded");
  }
}

// The settings, the rows of the list, then every entry by itself.
void load(benchmark::State& state, int rows) {
  BenchCompany company("statements", rows, kVariables);
  company.record();
  const BenchModule module(company);
  const auto invoice = module.makeInvoice();
  compare(state, module, {{"select", 2 + rows * kColumns}}, [&] { module.load(*invoice->getItems()[0]); });
}

// Every entry but those that are "0", and variable 2 behind such a one.
void saveNew(benchmark::State& state, int rows) {
  const BenchCompany company("statements", rows, kVariables);
  const BenchModule module(company);
  const auto invoice = module.makeInvoice();
  InvoiceItem& item = *invoice->getItems()[0];
  module.load(item);
  BenchModule::addRows(item, rows);
  const ItemDataList& list = *ItemDataList::of(item);
  for (int i = 0; i < list.no(); ++i) {
    ItemDataEntry* entry = list.at(i);
    if (entry->itemvariable == ItemDataEntry::kQuantityVariable && entry->row % kSpecial == 0) entry->value = "0";
  }
  const int left = 2 * (rows / kSpecial);
  compare(state, module, {{"insert", rows * kColumns - left}}, [&] { module.save(item); });
}

void saveUnchanged(benchmark::State& state, int rows) {
  BenchCompany company("statements", rows, kVariables);
  company.record();
  const BenchModule module(company);
  const auto invoice = module.makeInvoice();
  InvoiceItem& item = *invoice->getItems()[0];
  module.load(item);
  compare(state, module, {{"update", rows * kColumns}}, [&] { module.save(item); });
}

// The entries of the deleted rows, one by one; the others as if unchanged.
void deleteRows(benchmark::State& state, int rows) {
  BenchCompany company("statements", rows, kVariables);
  company.record();
  const BenchModule module(company);
  const auto invoice = module.makeInvoice();
  InvoiceItem& item = *invoice->getItems()[0];
  module.load(item);
  for (int row = kSpecial; row <= rows; row += kSpecial) ItemDataList::of(item)->markRowForDelete(row);
  const int deleted = rows / kSpecial * kColumns;
  compare(state, module, {{"delete", deleted}, {"update", rows * kColumns - deleted}}, [&] { module.save(item); });
}

}  // namespace

void addStatementBenchmarks(Extent extent) {
  const bool full = extent == Extent::FULL;
  const int rows = full ? 1000 : 100;
  const std::string entries = full ? "4,000" : "400";
  const auto add = [rows](const std::string& name, void (*benchmark)(benchmark::State&, int)) {
    addRace(name, [=](benchmark::State& state) { benchmark(state, rows); })->Iterations(1);
  };
  add("statements to load " + entries + " entries", load);
  add("statements to save " + entries + " new entries, a few of them 0", saveNew);
  add("statements to save " + entries + " unchanged entries", saveUnchanged);
  add("statements to save " + entries + " entries, a tenth of them deleted", deleteRows);
}

}  // namespace Bench
