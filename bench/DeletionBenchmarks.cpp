// Deleting unit rows and checking what is left: what one row costs in a long list, against what it costs in a short
// one.
#include <string>
#include <vector>

#include "bench/Benchmarks.h"
#include "bench/Race.h"
#include "bench/RecordedValues.h"
#include "plugin/contract/Message.h"

namespace Bench {

namespace {

constexpr double kGoal = 1.5;

constexpr int kManyRows = 10'000;
constexpr int kFewRows = 1'000;

using Values = std::vector<RecordedValue>;

// How a list came about.
enum class History {
  LOADED,    // as it is stored, with ascending rows
  CONTINUED  // rows were taken away at the end and others added, which got their numbers again
};

Values makeValues(History history, int rows) {
  Values values = recordRows(rows);
  if (history == History::CONTINUED) {
    for (std::size_t i = values.size() / 2; i < values.size(); ++i) values[i].row -= rows / 4;
  }
  return values;
}

// Deletes every row of a list of its own.
class Deletion {
 public:
  Deletion(History history, int count) : owner(makeValues(history, count)), rows(owner.getList().lastRow) {}

  void run() {
    for (int row = 1; row <= rows; ++row) owner.getList().markRowForDelete(row);
    owner.getList().check(1, messages, "TETEL");
  }

 private:
  ItemWithData owner;
  Quillane::ListOfMessage messages;  // stays empty: nothing is wrong with an item without rows and without quantity
  int rows;
};

void deleteRows(benchmark::State& state, History history) {
  Race race(state, kGoal);
  for (auto _ : state) {
    Deletion many(history, kManyRows);
    Deletion few(history, kFewRows);
    race.ours([&] { many.run(); }, kManyRows);
    race.limit([&] { few.run(); }, kFewRows);
  }
}

}  // namespace

void addDeletionBenchmarks(Extent) {
  addRace("delete a row of 10,000 against one of 1,000", [](auto& state) { deleteRows(state, History::LOADED); });
  addRace("the same with row numbers that were used again", [](auto& state) { deleteRows(state, History::CONTINUED); });
}

}  // namespace Bench
