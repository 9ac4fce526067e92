// Work on long lists in memory: what one row or text costs may not grow with the length of the list. "per_row" and
// "per_text" are times.
#include <benchmark/benchmark.h>

#include <memory>

#include "itemdata/ItemDataList.h"
#include "itemdata/ItemDataStringEntry.h"
#include "plugin/contract/Invoice.h"
#include "plugin/contract/Message.h"

namespace {

using Quillane::Invoice;
using Quillane::InvoiceItem;
using Quillane::ListOfMessage;
using Quillane::Plugin::ItemData::ItemDataEntry;
using Quillane::Plugin::ItemData::ItemDataList;
using Quillane::Plugin::ItemData::ItemDataStringEntry;

/// A closed document (no quantities are compared) with one item.
std::unique_ptr<Invoice> makeInvoice() {
  auto invoice = std::make_unique<Invoice>();
  invoice->setStatus(151, true);
  invoice->appendItem(new InvoiceItem);
  return invoice;
}

void appendEntry(ItemDataList& list, InvoiceItem* item, int type, int row, const FX::FXString& value) {
  auto* entry = new ItemDataStringEntry(item);
  entry->type = type;
  entry->row = row;
  entry->value = value;
  list.append(entry);
}

void deleteEveryRow(benchmark::State& state) {
  const auto invoice = makeInvoice();
  InvoiceItem* item = invoice->getItems()[0];
  const int rows = static_cast<int>(state.range(0));
  for (auto _ : state) {
    state.PauseTiming();
    auto list = std::make_unique<ItemDataList>(item, nullptr);
    for (int row = 1; row <= rows; ++row) {
      appendEntry(*list, item, ItemDataEntry::TYPE_QUANTITY, row, "1");
      appendEntry(*list, item, ItemDataEntry::TYPE_TEXT, row, "SN");
    }
    // Stored rows are marked, which is what people delete by the thousand.
    for (int i = 0; i < list->no(); ++i) list->at(i)->pk = i + 1;
    state.ResumeTiming();
    for (int row = 1; row <= rows; ++row) list->markRowForDelete(row);
    ListOfMessage messages;
    list->check(1, messages, "BENCH");
    state.PauseTiming();
    list.reset();
    state.ResumeTiming();
  }
  state.counters["per_row"] =
      benchmark::Counter(rows, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}
BENCHMARK(deleteEveryRow)->Arg(1000)->Arg(10000)->Unit(benchmark::kMicrosecond);

void printDistinctTexts(benchmark::State& state) {
  const auto invoice = makeInvoice();
  InvoiceItem* item = invoice->getItems()[0];
  const int texts = static_cast<int>(state.range(0));
  ItemDataList list(item, nullptr);
  for (int i = 0; i < texts; ++i) appendEntry(list, item, ItemDataEntry::TYPE_TEXT, 0, FX::FXStringVal(i));
  for (auto _ : state) benchmark::DoNotOptimize(list.getPrintableText());
  state.counters["per_text"] =
      benchmark::Counter(texts, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}
BENCHMARK(printDistinctTexts)->Arg(4000)->Arg(40000)->Unit(benchmark::kMicrosecond);

}  // namespace
