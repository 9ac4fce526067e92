// The item data dialog against the bare toolkit: a dialog box with a table that shows the same texts.
#include <fx.h>

#include <charconv>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include "bench/BenchAccount.h"
#include "bench/BenchCompany.h"
#include "bench/Benchmarks.h"
#include "bench/Race.h"
#include "itemdata/ItemDataList.h"
#include "plugin/contract/Tarnwell.h"
#include "ui/ItemDataDialog.h"
#include "ui/ItemDataTable.h"

using namespace FX;

namespace Bench {

namespace {

using Quillane::InvoiceItem;
using Quillane::Plugin::ItemData::ItemDataDialog;
using Quillane::Plugin::ItemData::ItemDataList;
using Quillane::Plugin::ItemData::UI::ItemDataTable;

// What one unit row records beside its quantity, and the columns that this makes.
constexpr int kVariables = 4;
constexpr int kColumns = kVariables + 1;
constexpr int kQuantityColumn = 0;
constexpr int kSerialNumberColumn = 1;

constexpr int kRows = 1000;
constexpr int kManyRows = 10000;
constexpr int kAddedRows = 10;
constexpr int kTimesOfManyRows = 20;

constexpr double kOpeningGoal = 1.5;
constexpr double kEditingGoal = 3;

// The window that the dialogs belong to; null without a display.
FXMainWindow* owner() {
  static auto* window = [] {
    auto* made = new FXMainWindow(&account(), "benchmarks");
    if (account().isInitialized() && account().getDisplay()) account().create();
    return made;
  }();
  return window->id() ? window : nullptr;
}

// Has the display do what it was told, so that the next work does not wait for it.
void settle() {
  account().runWhileEvents();
  account().flush(TRUE);
}

// An item of this many pieces with its item data.
class Item {
 public:
  Item(const BenchModule& module, int quantity) : invoice(module.makeInvoice()) {
    get()->setQuantity(FXExt::FXDecimal(quantity, 0, 4));
    module.getHook().load(get());
  }

  InvoiceItem* get() const { return invoice->getItems()[0]; }

 private:
  std::unique_ptr<Quillane::Invoice> invoice;
};

// The toolkit's dialog box with its table.
struct BareDialog {
  BareDialog() : box(owner(), "benchmarks", DECOR_ALL), table(new FXTable(&box, nullptr, 0, LAYOUT_FILL)) {}

  FXDialogBox box;
  FXTable* table;
};

std::vector<FXString> textsOf(const Item& item) {
  std::vector<FXString> texts;
  const ItemDataList& list = *ItemDataList::of(*item.get());
  for (FXint i = 0; i < list.no(); ++i) texts.push_back(list[i]->getValue());
  return texts;
}

void fill(FXTable& table, const std::vector<FXString>& texts) {
  const int cells = static_cast<int>(texts.size());
  table.setTableSize(cells / kColumns, kColumns);
  for (FXint column = 0; column < kColumns; ++column) table.setColumnText(column, "Mező");
  for (FXint cell = 0; cell < cells; ++cell) table.setItemText(cell / kColumns, cell % kColumns, texts[cell]);
}

void openDialog(benchmark::State& state, int rows) {
  if (!owner()) return state.SkipWithError("There is no display.");
  BenchCompany company("dialog", rows, kVariables);
  company.record();
  const BenchModule module(company);
  const Item item(module, rows);
  const std::vector<FXString> texts = textsOf(item);
  Race race(state, kOpeningGoal);
  for (auto _ : state) {
    std::unique_ptr<ItemDataDialog> dialog;
    race.ours([&] {
      dialog = std::make_unique<ItemDataDialog>(owner(), item.get());
      dialog->create();
    });
    settle();
    dialog.reset();
    settle();
    std::unique_ptr<BareDialog> bare;
    race.limit([&] {
      bare = std::make_unique<BareDialog>();
      fill(*bare->table, texts);
      bare->box.create();
    });
    settle();
    bare.reset();
    settle();
  }
}

void command(ItemDataTable& table, FXuint id) { table.handle(nullptr, FXSEL(SEL_COMMAND, id), nullptr); }

double sumOfQuantities(const FXTable& table) {
  double sum = 0;
  for (FXint row = 0; row < table.getNumRows(); ++row) {
    const FXString text = table.getItemText(row, kQuantityColumn);
    double quantity = 0;
    std::from_chars(text.text(), text.text() + text.length(), quantity);
    sum += quantity;
  }
  return sum;
}

void insertRow(FXTable& table, const FXString& quantity) {
  const FXint row = table.getNumRows();
  table.insertRows(row);
  table.setItemText(row, kQuantityColumn, quantity);
  for (FXint column = kQuantityColumn + 1; column < kColumns; ++column) table.setItemText(row, column, FXString::null);
}

void addRowBare(FXTable& table) { insertRow(table, "1"); }

// A new row of ours proposes the quantity that the other rows leave over.
void proposeRowBare(FXTable& table) { insertRow(table, FXStringVal(kRows - sumOfQuantities(table))); }

void addRows(benchmark::State& state, void (*addBare)(FXTable&)) {
  if (!owner()) return state.SkipWithError("There is no display.");
  BenchCompany company("row", kRows, kVariables);
  company.record();
  const BenchModule module(company);
  const Item item(module, kRows);
  ItemDataDialog dialog(owner(), item.get());
  dialog.create();
  ItemDataTable& table = *dialog.getTable();
  BareDialog bare;
  fill(*bare.table, textsOf(item));
  bare.box.create();
  Race race(state, kEditingGoal);
  for (auto _ : state) {
    race.ours(
        [&] {
          for (int row = 0; row < kAddedRows; ++row) command(table, ItemDataTable::ID_ADD_ROW);
        },
        kAddedRows);
    for (int row = 0; row < kAddedRows; ++row) command(table, ItemDataTable::ID_DELETE_ROW);
    settle();
    race.limit(
        [&] {
          for (int row = 0; row < kAddedRows; ++row) addBare(*bare.table);
        },
        kAddedRows);
    bare.table->removeRows(kRows, kAddedRows);
    settle();
  }
}

FXString serialNumbers() {
  std::string lines;
  for (int row = 1; row <= kRows; ++row) lines += "SN-" + std::to_string(100000 + row) + "\n";
  return lines.c_str();
}

// What is pasted into a table with one row.
void pasteBare(FXTable& table, const FXString& lines) {
  table.insertRows(1, kRows - 1);
  FXint row = 0;
  for (const char *line = lines.text(), *end; (end = std::strchr(line, '\n')); line = end + 1, ++row) {
    table.setItemText(row, kQuantityColumn, "1");
    table.setItemText(row, kSerialNumberColumn, FXString(line, static_cast<FXint>(end - line)));
    for (FXint column = kSerialNumberColumn + 1; column < kColumns; ++column)
      table.setItemText(row, column, FXString::null);
  }
}

void paste(benchmark::State& state) {
  if (!owner()) return state.SkipWithError("There is no display.");
  const BenchCompany company("paste", kRows, kVariables);
  const BenchModule module(company);
  const FXString lines = serialNumbers();
  Race race(state, kEditingGoal);
  for (auto _ : state) {
    {
      const Item item(module, kRows);
      ItemDataDialog dialog(owner(), item.get());
      dialog.create();
      ItemDataTable& table = *dialog.getTable();
      table.setCurrentItem(0, kSerialNumberColumn);
      settle();
      race.ours([&] { table.pasteText(lines); });
      if (table.getNumRows() != kRows) state.SkipWithError("Not all serial numbers were pasted.");
    }
    settle();
    BareDialog bare;
    bare.table->setTableSize(1, kColumns);
    bare.box.create();
    settle();
    race.limit([&] { pasteBare(*bare.table, lines); });
  }
}

}  // namespace

void addDialogBenchmarks(Extent extent) {
  // The numbers are set because the benchmarks would be prepared anew for every guess how many it takes.
  const int times = extent == Extent::FULL ? 100 : 3;
  addRace("open the dialog on 1,000 rows", [](benchmark::State& state) {
    openDialog(state, kRows);
  })->Iterations(times);
  if (extent == Extent::FULL) {
    addRace("open the dialog on 10,000 rows", [](benchmark::State& state) {
      openDialog(state, kManyRows);
    })->Iterations(kTimesOfManyRows);
  }
  addRace("add a row to 1,000 in the dialog", [](benchmark::State& state) {
    addRows(state, addRowBare);
  })->Iterations(times);
  addRace("add a row to 1,000, both proposing its quantity", [](benchmark::State& state) {
    addRows(state, proposeRowBare);
  })->Iterations(times);
  addRace("paste 1,000 serial numbers into the dialog", paste)->Iterations(times);
}

}  // namespace Bench
