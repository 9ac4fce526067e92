// Tests of the list's structure: how it is made, copied and asked, and how it gets rows.
#include "itemdata/ItemDataList.h"

#include <gtest/gtest.h>

#include <memory>

#include "tests/itemdata/ItemDataFixture.h"
#include "tests/itemdata/RecordingEntry.h"

using namespace FX;

namespace Quillane::Plugin::ItemData {
namespace {

class ItemDataListMemory : public ItemDataTest {
 protected:
  ItemDataListMemory() {
    declare({{11, "A"}, {12, "B"}, {13, "C", ItemDataEntry::TYPE_TEXT, 1}, {14, "D", ItemDataEntry::TYPE_DATE, 1}});
  }

  std::unique_ptr<ItemDataList> filled(const Lines& entries, int firstUnitIndex, Entity* owner = nullptr) {
    auto list = std::make_unique<ItemDataList>(owner, nullptr);
    fill(*list, entries);
    list->firstUnitIndex = firstUnitIndex;
    return list;
  }
};

struct Shape {
  int unitColumnCount;
  int firstUnitIndex;
  int lastRow;
};

bool operator==(const Shape& a, const Shape& b) {
  return a.unitColumnCount == b.unitColumnCount && a.firstUnitIndex == b.firstUnitIndex && a.lastRow == b.lastRow;
}

void PrintTo(const Shape& shape, std::ostream* out) {
  *out << shape.unitColumnCount << " unit columns from " << shape.firstUnitIndex << ", last row " << shape.lastRow;
}

Shape shapeOf(const ItemDataList& list) { return {list.unitColumnCount, list.firstUnitIndex, list.lastRow}; }

// ---- construction

TEST_F(ItemDataListMemory, settingsListStartsEmpty) {
  const ItemDataList list;
  EXPECT_EQ(list.getOwner(), nullptr);
  EXPECT_EQ(list.no(), 0);
  EXPECT_EQ(shapeOf(list), Shape({0, -1, 0}));
  EXPECT_EQ(list.settings, nullptr);
}

TEST_F(ItemDataListMemory, listWithoutSettingsHasNoUnitPart) {
  InvoiceItem* item = newItem();
  const ItemDataList list(item, nullptr);
  EXPECT_EQ(list.getOwner(), item);
  EXPECT_EQ(list.no(), 0);
  EXPECT_EQ(shapeOf(list), Shape({0, -1, 0}));
  EXPECT_EQ(list.settings, nullptr);
}

TEST_F(ItemDataListMemory, listOfANewItemStartsWithTheLeadingEntries) {
  InvoiceItem* item = newItem();
  ItemDataList* settings = newSettings({11, 12, 13, 14});
  const ItemDataList list(item, settings);
  EXPECT_EQ(list.settings, settings);
  EXPECT_EQ(lines(list), Lines({"0 11 ''", "0 12 ''"}));
  EXPECT_EQ(names(list), Lines({"A", "B"}));
  EXPECT_EQ(shapeOf(list), Shape({3, 2, 0}));
  EXPECT_EQ(list[0]->getOwner(), item);
  EXPECT_NE(list[0], (*settings)[0]);
}

TEST_F(ItemDataListMemory, listOfANewItemTakesAllEntriesWhenNoneIsPerUnit) {
  const ItemDataList list(newItem(), newSettings({11, 12}));
  EXPECT_EQ(lines(list), Lines({"0 11 ''", "0 12 ''"}));
  EXPECT_EQ(shapeOf(list), Shape({0, -1, 0}));
}

TEST_F(ItemDataListMemory, listOfANewItemStartsEmptyWhenAllIsPerUnit) {
  const ItemDataList list(newItem(), newSettings({13, 14}));
  EXPECT_EQ(lines(list), Lines());
  EXPECT_EQ(shapeOf(list), Shape({3, 0, 0}));
}

TEST_F(ItemDataListMemory, listOfAnItemWithoutAProperIdCountsAsNew) {
  EXPECT_EQ(ItemDataList(newItem(-5), newSettings({11, 13})).no(), 1);
  EXPECT_EQ(ItemDataList(newItem(0), newSettings({11, 13})).no(), 1);
  EXPECT_EQ(ItemDataList(newItem(1), newSettings({11, 13})).no(), 0);
}

TEST_F(ItemDataListMemory, listOfAStoredItemStartsEmpty) {
  const ItemDataList list(newItem(10), newSettings({11, 12, 13, 14}));
  EXPECT_EQ(list.no(), 0);
  EXPECT_EQ(shapeOf(list), Shape({3, 2, 0}));
}

TEST_F(ItemDataListMemory, listWithoutOwnerStartsEmpty) {
  const ItemDataList list(nullptr, newSettings({11, 12, 13, 14}));
  EXPECT_EQ(list.no(), 0);
  EXPECT_EQ(shapeOf(list), Shape({3, 2, 0}));
}

TEST_F(ItemDataListMemory, isFoundOnItsItem) {
  InvoiceItem* item = newItem();
  EXPECT_EQ(ItemDataList::of(*item), nullptr);
  ItemDataList* list = attach(item);
  EXPECT_EQ(ItemDataList::of(*item), list);
  item->addMiscData("ItemData", new EntityMiscData(item));
  EXPECT_EQ(ItemDataList::of(*item), nullptr);
}

TEST_F(ItemDataListMemory, deletesItsEntriesAndSettings) {
  Lines events;
  {
    auto* settings = new ItemDataList;
    settings->append(new RecordingEntry(events, "S"));
    ItemDataList list(newItem(10), settings);
    list.append(new RecordingEntry(events, "A"));
    list.FXObjectList::append(static_cast<FXObject*>(nullptr));
    list.append(new RecordingEntry(events, "B"));
    EXPECT_EQ(events, Lines());
  }
  EXPECT_EQ(events, Lines({"A: deleted", "B: deleted", "S: deleted"}));
}

TEST_F(ItemDataListMemory, appendTakesTheEntrysRowAsTheLast) {
  ItemDataList list(newItem(10), nullptr);
  for (const int row : {0, 1, 4, 2}) {
    list.append(newEntry(std::to_string(row) + " 11 ''", nullptr));
    EXPECT_EQ(list.lastRow, row);
  }
  EXPECT_EQ(lines(list), Lines({"0 11 ''", "1 11 ''", "4 11 ''", "2 11 ''"}));
}

// ---- copying

TEST_F(ItemDataListMemory, clonesTheLeadingEntriesOrAll) {
  InvoiceItem* item = newItem(10);
  for (const bool all : {false, true}) {
    for (const int firstUnitIndex : {-1, 0, 2}) {
      auto source = filled({"0 11 'a' #1", "0 12 'b' #2", "1 -1 '3' #3", "1 13 'c' #4"}, firstUnitIndex);
      ItemDataList list(item, nullptr);
      list.cloneItemsFrom(source.get(), all);
      const Lines leading = {"0 11 'a'", "0 12 'b'"};
      const Lines whole = {"0 11 'a'", "0 12 'b'", "1 -1 '3'", "1 13 'c'"};
      EXPECT_EQ(lines(list), all || firstUnitIndex < 0 ? whole
                             : firstUnitIndex == 2     ? leading
                                                       : Lines())
          << all << " " << firstUnitIndex;
      for (FXint i = 0; i < list.no(); ++i) EXPECT_EQ(list[i]->getOwner(), item);
      EXPECT_EQ(lines(*source), Lines({"0 11 'a' #1", "0 12 'b' #2", "1 -1 '3' #3", "1 13 'c' #4"}));
    }
  }
}

TEST_F(ItemDataListMemory, cloningAppendsAndMovesTheLastRow) {
  auto source = filled({"0 11 'a'", "3 -1 '1'"}, 1);
  auto list = filled({"7 13 'x' #9"}, -1);
  list->cloneItemsFrom(source.get(), 1);
  EXPECT_EQ(lines(*list), Lines({"7 13 'x' #9", "0 11 'a'", "3 -1 '1'"}));
  EXPECT_EQ(list->lastRow, 3);
  EXPECT_EQ(list->firstUnitIndex, -1);
}

TEST_F(ItemDataListMemory, cloningPassesNullPlacesOver) {
  auto source = filled({"0 11 'a'", "null", "1 -1 '3'"}, -1);
  ItemDataList list(newItem(10), nullptr);
  list.cloneItemsFrom(source.get(), 1);
  EXPECT_EQ(lines(list), Lines({"0 11 'a'", "1 -1 '3'"}));
}

TEST_F(ItemDataListMemory, cloningTakesTheKeyFromKindsThatCopyIt) {
  Lines events;
  ItemDataList source;
  source.append(new RecordingEntry(events, "A"));
  source[0]->pk = 7;
  ItemDataList list(newItem(10), nullptr);
  list.cloneItemsFrom(&source, 1);
  EXPECT_EQ(list[0]->pk, 0);
}

TEST_F(ItemDataListMemory, cloneForAStoredOwnerHasTheSourcesEntriesWithoutKeys) {
  ItemDataList* list = attach(newItem(10), newSettings({11, 12, 13, 14}));
  fill(*list, {"0 11 'a' #1", "0 12 'b' #2", "1 -1 '3' #3", "1 13 'c' #4", "1 14 'd' #5", "4 -1 '1' #6 marked"});
  InvoiceItem* owner = newItem(20);
  std::unique_ptr<ItemDataList> copy(list->clone(owner));
  EXPECT_EQ(copy->getOwner(), owner);
  EXPECT_EQ(lines(*copy), Lines({"0 11 'a'", "0 12 'b'", "1 -1 '3'", "1 13 'c'", "1 14 'd'", "4 -1 '1'"}));
  EXPECT_EQ(shapeOf(*copy), Shape({3, 2, 4}));
  EXPECT_EQ(copy->at(5)->getOwner(), owner);
  EXPECT_EQ(lines(*list).front(), "0 11 'a' #1");
}

TEST_F(ItemDataListMemory, cloneHasItsOwnSettings) {
  ItemDataList* list = attach(newItem(10), newSettings({11, 12, 13, 14}));
  InvoiceItem* owner = newItem(20);
  std::unique_ptr<ItemDataList> copy(list->clone(owner));
  ASSERT_NE(copy->settings, nullptr);
  EXPECT_NE(copy->settings, list->settings);
  EXPECT_EQ(lines(*copy->settings), lines(*list->settings));
  EXPECT_EQ(names(*copy->settings), Lines({"A", "B", "Mennyiség", "C", "D"}));
  EXPECT_EQ(shapeOf(*copy->settings), shapeOf(*list->settings));
  EXPECT_EQ(copy->settings->getOwner(), owner);
  EXPECT_EQ(copy->settings->at(0)->getOwner(), owner);
  EXPECT_EQ(copy->settings->settings, nullptr);
}

TEST_F(ItemDataListMemory, keepsTheLeadingEntriesBeforeTheClonesForAnUnstoredOwner) {
  ItemDataList* list = attach(newItem(10), newSettings({11, 12, 13}));
  fill(*list, {"0 11 'a' #1", "0 12 'b' #2", "1 -1 '3' #3", "1 13 'c' #4"});
  std::unique_ptr<ItemDataList> copy(list->clone(newItem(0)));
  EXPECT_EQ(lines(*copy), Lines({"0 11 ''", "0 12 ''", "0 11 'a'", "0 12 'b'", "1 -1 '3'", "1 13 'c'"}));
  EXPECT_EQ(shapeOf(*copy), Shape({2, 2, 1}));
}

TEST_F(ItemDataListMemory, cloneTakesTheShapeAsItIs) {
  auto list = filled({"0 11 'a'"}, -1);
  list->unitColumnCount = 9;
  list->firstUnitIndex = 5;
  list->lastRow = 7;
  std::unique_ptr<ItemDataList> copy(list->clone(newItem(20)));
  EXPECT_EQ(shapeOf(*copy), Shape({9, 5, 7}));
  EXPECT_EQ(copy->settings, nullptr);
}

TEST_F(ItemDataListMemory, cloneOfAnEmptyListIsEmpty) {
  const ItemDataList list;
  std::unique_ptr<ItemDataList> copy(list.clone(nullptr));
  EXPECT_EQ(copy->no(), 0);
  EXPECT_EQ(shapeOf(*copy), Shape({0, -1, 0}));
  EXPECT_EQ(copy->getOwner(), nullptr);
}

// ---- rows and quantities

TEST_F(ItemDataListMemory, countsTheLiveUnitRows) {
  struct Case {
    const char* sentence;
    Lines entries;
    int firstUnitIndex;
    int rows;
  };
  for (const Case& c : {
           Case{"empty", {}, 0, 0},
           Case{"leading entries only", {"0 11 'a'", "0 12 'b'"}, 2, 0},
           Case{"one row", {"0 11 'a'", "1 -1 '1'", "1 13 'c'"}, 1, 1},
           Case{"two rows", {"1 -1 '1'", "1 13 'c'", "2 -1 '1'", "2 13 'c'"}, 0, 2},
           Case{"a gap", {"1 -1 '1'", "4 -1 '1'", "9 -1 '1'"}, 0, 3},
           Case{"a marked row", {"1 -1 '1'", "2 -1 '' #1 marked", "2 13 '' #2 marked", "3 -1 '1'"}, 0, 2},
           Case{"a marked last row", {"1 -1 '1'", "2 -1 '' #1 marked", "2 13 '' #2 marked"}, 0, 1},
           Case{"a row marked in part", {"1 -1 '1'", "2 -1 '' #1 marked", "2 13 'c' #2"}, 0, 2},
           Case{"all marked", {"1 -1 '' #1 marked"}, 0, 0},
           Case{"null places", {"0 11 'a'", "1 -1 '1'", "null", "1 13 'c'", "null", "2 -1 '1'", "null"}, 1, 2},
       }) {
    EXPECT_EQ(filled(c.entries, c.firstUnitIndex)->getRowNum(), c.rows) << c.sentence;
  }
}

TEST_F(ItemDataListMemory, hasAQuantityColumnWhenALiveUnitRowHasAQuantity) {
  struct Case {
    Lines entries;
    int expected;
  };
  for (const Case& c : {Case{{}, 0}, Case{{"0 11 'a'"}, 0}, Case{{"1 13 'c'"}, 0}, Case{{"1 -1 '1'"}, 1},
                        Case{{"1 -1 ''"}, 1}, Case{{"0 -1 '1'"}, 0}, Case{{"-1 -1 '1'"}, 0},
                        Case{{"1 -1 '' #1 marked"}, 0}, Case{{"1 -1 '' #1 marked", "null", "2 -1 '1'"}, 1}}) {
    EXPECT_EQ(filled(c.entries, -1)->hasQuantityColumn(), c.expected);
  }
}

TEST_F(ItemDataListMemory, givesTheQuantityOfARow) {
  auto list = filled({"0 11 '9'", "1 -1 '2'", "1 13 '9'", "null", "2 -1 '1.50'", "3 -1 '' #1 marked", "5 -1 'abc'"}, 1);
  struct Case {
    int row;
    const char* quantity;
    int precision;
  };
  for (const Case& c : {Case{1, "2", 4}, Case{2, "1.5", 4}, Case{5, "0", 4}}) {
    EXPECT_EQ(text(list->getQuantityForRow(c.row).toString()), c.quantity) << c.row;
    EXPECT_EQ(list->getQuantityForRow(c.row).precision, c.precision) << c.row;
    EXPECT_EQ(list->getQuantityForRow(c.row).unset, 0) << c.row;
  }
}

TEST_F(ItemDataListMemory, quantityOfARowWithoutALiveOneIsAnUnsetZero) {
  auto list = filled({"0 11 '9'", "1 13 '9'", "3 -1 '7' #1 marked"}, 1);
  for (const int row : {-1, 0, 1, 2, 3, 99}) {
    EXPECT_EQ(text(list->getQuantityForRow(row).toString()), "0") << row;
    EXPECT_EQ(list->getQuantityForRow(row).unset, 1) << row;
  }
}

TEST_F(ItemDataListMemory, lastQuantityOfARowCounts) {
  EXPECT_EQ(text(filled({"1 -1 '2'", "1 -1 '3'"}, 0)->getQuantityForRow(1).toString()), "3");
  EXPECT_EQ(text(filled({"1 -1 '2'", "1 -1 '3' #1 marked"}, 0)->getQuantityForRow(1).toString()), "2");
}

TEST_F(ItemDataListMemory, quantityWithMoreDecimalsKeepsThem) {
  EXPECT_EQ(text(filled({"1 -1 '0.123456'"}, 0)->getQuantityForRow(1).toString()), "0.123456");
}

// ---- adding rows

TEST_F(ItemDataListMemory, addsRowsAsTheSettingsHaveThem) {
  InvoiceItem* item = newItem(10);
  ItemDataList* list = attach(item, newSettings({11, 12, 13, 14}));
  fill(*list, {"0 11 'a' #1", "0 12 'b' #2", "1 -1 '3' #3", "1 13 'c' #4", "1 14 'd' #5"});
  list->addRows(2);
  EXPECT_EQ(lines(*list), Lines({"0 11 'a' #1", "0 12 'b' #2", "1 -1 '3' #3", "1 13 'c' #4", "1 14 'd' #5", "2 -1 ''",
                                 "2 13 ''", "2 14 ''", "3 -1 ''", "3 13 ''", "3 14 ''"}));
  EXPECT_EQ(list->lastRow, 3);
  EXPECT_EQ(list->at(10)->getOwner(), item);
  EXPECT_EQ(list->at(10)->type, ItemDataEntry::TYPE_DATE);
  EXPECT_EQ(text(list->at(5)->name), "Mennyiség");
  EXPECT_EQ(list->getRowNum(), 3);
  EXPECT_EQ(lines(*list->settings), Lines({"0 11 ''", "0 12 ''", "1 -1 ''", "1 13 ''", "1 14 ''"}));
}

TEST_F(ItemDataListMemory, firstRowIsRowOne) {
  ItemDataList* list = attach(newItem(), newSettings({11, 13}));
  list->addRows(1);
  EXPECT_EQ(lines(*list), Lines({"0 11 ''", "1 -1 ''", "1 13 ''"}));
}

TEST_F(ItemDataListMemory, rowsAreNumberedFromTheLastRow) {
  ItemDataList* list = attach(newItem(10), newSettings({13}));
  list->lastRow = 7;
  list->addRows(1);
  EXPECT_EQ(lines(*list), Lines({"8 -1 ''", "8 13 ''"}));
}

TEST_F(ItemDataListMemory, addedRowsTakeWhatTheSettingsEntriesHold) {
  ItemDataList* list = attach(newItem(10), newSettings({13}));
  list->settings->at(1)->value = "default";
  list->settings->at(1)->pk = 5;
  list->addRows(1);
  EXPECT_EQ(lines(*list), Lines({"1 -1 ''", "1 13 'default'"}));
}

TEST_F(ItemDataListMemory, nullPlacesOfTheSettingsAddNothing) {
  ItemDataList* list = attach(newItem(10), newSettings({13, 14}));
  delete list->settings->at(1);
  list->settings->at(1) = nullptr;
  list->addRows(2);
  EXPECT_EQ(lines(*list), Lines({"1 -1 ''", "1 14 ''", "2 -1 ''", "2 14 ''"}));
}

TEST_F(ItemDataListMemory, addsNothingWithoutSettingsUnitPartOrCount) {
  ItemDataList* without = attach(newItem(10));
  without->firstUnitIndex = 0;
  without->addRows(2);
  EXPECT_EQ(without->no(), 0);

  ItemDataList* perItemOnly = attach(newItem(10), newSettings({11, 12}));
  perItemOnly->addRows(2);
  EXPECT_EQ(perItemOnly->no(), 0);
  EXPECT_EQ(perItemOnly->lastRow, 0);

  ItemDataList* list = attach(newItem(10), newSettings({11, 13}));
  for (const int count : {0, -1, -2147483647 - 1}) list->addRows(count);
  EXPECT_EQ(list->no(), 0);
  EXPECT_EQ(list->lastRow, 0);
}

}  // namespace
}  // namespace Quillane::Plugin::ItemData
