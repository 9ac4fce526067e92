// The memory that a loaded entry takes, against the bytes of its fields and texts.
#include <malloc.h>

#include <cstddef>
#include <string>

#include "bench/BenchCompany.h"
#include "bench/Benchmarks.h"
#include "bench/Race.h"
#include "itemdata/ItemDataList.h"
#include "itemdata/ItemDataStringEntry.h"

namespace Bench {

namespace {

using Quillane::Plugin::ItemData::ItemDataEntry;
using Quillane::Plugin::ItemData::ItemDataList;
using Quillane::Plugin::ItemData::ItemDataStringEntry;

constexpr int kVariables = 3;
constexpr double kGoal = 1.5;

// What is in use of all memory, with what the allocator adds to every piece.
std::size_t usedMemory() {
  const struct mallinfo2 info = mallinfo2();
  return info.uordblks + info.hblkhd;
}

// A text with the byte that ends it; an empty one takes nothing.
std::size_t sizeOf(const FX::FXString& text) { return text.empty() ? 0 : static_cast<std::size_t>(text.length()) + 1; }

std::size_t sizeOf(const ItemDataEntry& entry) {
  return sizeof(ItemDataStringEntry) + sizeOf(entry.name) + sizeOf(entry.vvalue) + sizeOf(entry.value);
}

void memory(benchmark::State& state, int rows) {
  BenchCompany company("memory", rows, kVariables);
  company.record();
  const BenchModule module(company);
  // What the database keeps from the first time is not the entries'. These stay, or the next would get their memory.
  const auto first = module.makeInvoice();
  module.load(*first->getItems()[0]);
  Race race(state, kGoal);
  for (auto _ : state) {
    const auto invoice = module.makeInvoice();
    const std::size_t before = usedMemory();
    module.load(*invoice->getItems()[0]);
    const std::size_t used = usedMemory() - before;
    const ItemDataList& list = *ItemDataList::of(*invoice->getItems()[0]);
    std::size_t bytes = 0;
    for (int i = 0; i < list.no(); ++i) bytes += sizeOf(*list.at(i));
    race.amounts(static_cast<double>(used) / list.no(), static_cast<double>(bytes) / list.no(), "bytes");
  }
}

}  // namespace

void addMemoryBenchmarks(Extent extent) {
  const bool full = extent == Extent::FULL;
  const int rows = full ? 10000 : 1000;
  addRace(std::string("memory of one of ") + (full ? "40,000" : "4,000") + " loaded entries",
          [=](benchmark::State& state) { memory(state, rows); })
      ->Iterations(1);
}

}  // namespace Bench
