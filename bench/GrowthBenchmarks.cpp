// What an entry costs when its item has many of them, and what an ordinary document costs in a company that has been at
// work for years.
#include <memory>
#include <string>

#include "bench/BenchCompany.h"
#include "bench/Benchmarks.h"
#include "bench/Race.h"
#include "host/document/DocumentStore.h"

namespace Bench {

namespace {

using Quillane::Invoice;
using Quillane::InvoiceItem;
using Quillane::Host::Document;
using Quillane::Host::DocumentStore;
using Quillane::Host::EntityHooks;

constexpr int kVariables = 3;
constexpr int kColumns = 1 + kVariables;

constexpr double kGoal = 1.3;

constexpr int kSmallestRows = 100;

// How often the smallest is measured for each time that the large one is.
constexpr int kSmallestTimes = 20;

constexpr int kLargeTimes = 4;

enum class Work { LOAD, SAVE_NEW, SAVE_AGAIN };

// Opens company and times one piece of work on its item, as often as asked for.
template <class Timer>
void measure(const BenchModule& module, BenchCompany& company, Work work, int times, const Timer& timer) {
  module.open(company);
  // The first one reads the file and prepares the statements, which is not what grows.
  std::unique_ptr<Invoice> invoice = module.makeInvoice();
  module.load(*invoice->getItems()[0]);
  for (int i = 0; i < times; ++i) {
    if (work == Work::SAVE_NEW) company.clear();
    if (work != Work::SAVE_AGAIN) invoice = module.makeInvoice();
    InvoiceItem& item = *invoice->getItems()[0];
    if (work == Work::LOAD) {
      timer([&] { module.load(item); });
      continue;
    }
    if (work == Work::SAVE_NEW) {
      module.load(item);
      BenchModule::addRows(item, company.getUnitRows());
    }
    timer([&] { module.save(item); });
  }
}

void grow(benchmark::State& state, Work work, int rows) {
  BenchCompany small("small", kSmallestRows, kVariables);
  BenchCompany large("large", rows, kVariables);
  if (work != Work::SAVE_NEW) {
    small.record();
    large.record();
  }
  const BenchModule module(small);
  Race race(state, kGoal);
  for (auto _ : state) {
    measure(module, large, work, 1, [&](const auto& timed) { race.ours(timed, rows * kColumns); });
    measure(module, small, work, kSmallestTimes,
            [&](const auto& timed) { race.limit(timed, kSmallestRows * kColumns); });
  }
}

// A document of ten items with five unit rows each, of which there are as many as asked for.
constexpr int kItems = 10;
constexpr int kUnitRows = 5;
constexpr int kValuesOfDocument = kItems * kUnitRows * kColumns;

void addDocuments(const BenchCompany& company, int count) {
  const auto numbers = [](const std::string& name, int most) {
    return name + "(n) as (select 1 union all select n+1 from " + name + " where n<" + std::to_string(most) + ")";
  };
  const std::string documents = numbers("document", count);
  const std::string items = numbers("item", kItems);
  const std::string rows = numbers("unit", kUnitRows);
  company.run("delete from t_invoiceitem");
  company.run("delete from t_invoice");
  company.run("with recursive " + documents +
              " insert into t_invoice (t_invoice_id, t_invoicestatus_1, statusgate, version) select n, 101, 1, 1 from "
              "document");
  company.run("with recursive " + documents + ", " + items +
              " insert into t_invoiceitem (t_invoice_1, position, articlekind, articleid, name, unit, quantity, price) "
              "select document.n, item.n, 1, 1, 'Mérőóra', 'db', '" +
              std::to_string(kUnitRows) + "', '100' from document, item order by document.n, item.n");
  company.run("with recursive " + rows +
              " insert into t_invoiceitemdata (t_itemvariable_1, t_invoiceitem_1, row, value) select "
              "t_itemvariable_id, t_invoiceitem_id, n, case when t_itemvariable_id<0 then '1' else 'SN-2024-' || "
              "(t_invoiceitem_id*100+n*10+t_itemvariable_id) end from t_invoiceitem, unit, t_itemvariable order by "
              "t_invoiceitem_id, n, t_itemvariable_id");
}

// The documents of a company that are worked on in turn.
class Documents {
 public:
  Documents(const BenchCompany& openedCompany, int documentCount) : company(openedCompany), count(documentCount) {}

  // Times loading or saving some of them, spread over the company.
  template <class Timer>
  void measure(benchmark::State& state, const BenchModule& module, bool saves, int times, const Timer& timer) {
    module.open(company);
    EntityHooks hooks;
    hooks.add(&module.getHook());
    const DocumentStore store(*module.getDB(), hooks);
    FX::FXString error;
    std::unique_ptr<Document> document = store.load(1, error);
    for (int i = 0; i < times; ++i) {
      next = (next + count / 7 + 1) % count;
      const auto load = [&] { document = store.load(next + 1, error); };
      if (saves) {
        load();
        if (document) timer([&] { store.save(*document, error); });
      } else {
        document.reset();
        timer(load);
      }
      if (!error.empty()) state.SkipWithError(error.text());
    }
  }

 private:
  const BenchCompany& company;
  int count;
  int next = 0;
};

void crowd(benchmark::State& state, int values, bool saves) {
  const BenchCompany small("one", 1, kVariables);
  const BenchCompany large("many", 1, kVariables);
  addDocuments(small, 1);
  addDocuments(large, values / kValuesOfDocument);
  const BenchModule module(small);
  Documents one(small, 1);
  Documents many(large, values / kValuesOfDocument);
  Race race(state, kGoal);
  for (auto _ : state) {
    many.measure(state, module, saves, kSmallestTimes, [&](const auto& timed) { race.ours(timed); });
    one.measure(state, module, saves, kSmallestTimes, [&](const auto& timed) { race.limit(timed); });
  }
}

}  // namespace

void addGrowthBenchmarks(Extent extent) {
  const bool full = extent == Extent::FULL;
  const auto addSize = [](int rows, const std::string& entries) {
    const auto add = [rows](const std::string& name, Work work) {
      addRace(name, [=](benchmark::State& state) { grow(state, work, rows); })->Iterations(kLargeTimes);
    };
    add("one of " + entries + " loaded entries, against one of 400", Work::LOAD);
    add("one of " + entries + " new entries saved, against one of 400", Work::SAVE_NEW);
    add("one of " + entries + " stored entries saved, against one of 400", Work::SAVE_AGAIN);
  };
  addSize(1000, "4,000");
  if (full) addSize(10000, "40,000");
  if (full) addSize(100000, "400,000");

  const int values = full ? 1000000 : 10000;
  const std::string company = full ? "1,000,000" : "10,000";
  addRace("load a document among " + company + " values, against alone", [=](benchmark::State& state) {
    crowd(state, values, false);
  })->Iterations(kLargeTimes);
  addRace("save a document among " + company + " values, against alone", [=](benchmark::State& state) {
    crowd(state, values, true);
  })->Iterations(kLargeTimes);
}

}  // namespace Bench
