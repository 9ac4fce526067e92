// Tests of the loader alone: result rows are handed to it as a database would.
#include "itemdata/ItemDataListLoader.h"

#include <gtest/gtest.h>

#include <array>

#include "itemdata/ItemDataList.h"
#include "tests/itemdata/ItemDataFixture.h"
#include "tests/plugin/TextCatalogue.h"

using namespace FX;

namespace Quillane::Plugin::ItemData {
namespace {

// type, key, variable, name, mandatory, process or row, parameter or value; null for NULL
using Row = std::array<const char*, 7>;

class ItemDataListLoaderRows : public ItemDataTest {
 protected:
  ItemDataListLoaderRows() : item(newItem(10)), list(item, nullptr), loader(&list, item) {}

  void feed(const std::vector<Row>& rows) {
    for (const Row& row : rows) {
      for (int column = 0; column < 7; ++column) EXPECT_TRUE(loader.processValue(column, "name", row[column]));
    }
  }

  InvoiceItem* item;
  ItemDataList list;
  ItemDataListLoader loader;
};

TEST_F(ItemDataListLoaderRows, assignmentBecomesAnEntryWithParameter) {
  feed({{"3", nullptr, "12", "Szín", "1", "0", "piros,kék"}});
  ASSERT_EQ(list.no(), 1);
  const ItemDataEntry* entry = list[0];
  EXPECT_EQ(entry->getOwner(), item);
  EXPECT_EQ(entry->type, 3);
  EXPECT_EQ(entry->pk, 0);
  EXPECT_EQ(entry->itemvariable, 12);
  EXPECT_EQ(text(entry->name), "Szín");
  EXPECT_EQ(entry->mandatory, 1);
  EXPECT_EQ(entry->process, 0);
  EXPECT_EQ(entry->row, 0);
  EXPECT_EQ(text(entry->vvalue), "piros,kék");
  EXPECT_EQ(text(entry->value), "");
  EXPECT_EQ(list.firstUnitIndex, -1);
  EXPECT_EQ(list.unitColumnCount, 0);
}

TEST_F(ItemDataListLoaderRows, quantityEntryComesBeforeTheFirstPerUnitVariable) {
  feed({{"1", nullptr, "11", "A", "1", "0", ""},
        {"2", nullptr, "12", "B", "0", "0", ""},
        {"1", nullptr, "13", "C", "1", "1", ""},
        {"3", nullptr, "14", "D", "0", "1", "x,y"}});
  EXPECT_EQ(lines(list), Lines({"0 11 ''", "0 12 ''", "1 -1 ''", "1 13 ''", "1 14 ''"}));
  EXPECT_EQ(names(list), Lines({"A", "B", "Mennyiség", "C", "D"}));
  EXPECT_EQ(list.firstUnitIndex, 2);
  EXPECT_EQ(list.unitColumnCount, 3);
  EXPECT_EQ(list.lastRow, 1);
  const ItemDataEntry* quantity = list[2];
  EXPECT_EQ(quantity->type, -1);
  EXPECT_EQ(quantity->mandatory, 1);
  EXPECT_EQ(quantity->process, 1);
  EXPECT_EQ(quantity->pk, 0);
  EXPECT_EQ(quantity->getOwner(), item);
  EXPECT_EQ(text(quantity->vvalue), "");
  EXPECT_EQ(list[0]->process, 0);
  EXPECT_EQ(list[4]->process, 1);
}

// The default text domain is the host's. What the user named himself is never translated.
TEST_F(ItemDataListLoaderRows, quantityEntryIsNamedInTheLanguageOfTheProgram) {
  const TextCatalogue catalogue("messages", {{"Mennyiség", "Quantity"}, {"C", "a translated name"}});
  feed({{"1", nullptr, "13", "C", "1", "1", ""}, {"-1", "7", "-1", "Mennyiség", "1", "1", "3"}});
  EXPECT_EQ(names(list), Lines({"Quantity", "C", "Mennyiség"}));
}

TEST_F(ItemDataListLoaderRows, noQuantityEntryIsMadeWhenTheUnitPartIsKnown) {
  list.firstUnitIndex = 0;
  feed({{"1", nullptr, "13", "C", "1", "1", ""}});
  EXPECT_EQ(lines(list), Lines({"1 13 ''"}));
  EXPECT_EQ(list.firstUnitIndex, 0);
  EXPECT_EQ(list.unitColumnCount, 1);
}

TEST_F(ItemDataListLoaderRows, rowOfAPerUnitAssignmentIsItsProcessValue) {
  feed({{"1", nullptr, "13", "C", "1", "7", ""}});
  EXPECT_EQ(lines(list), Lines({"1 -1 ''", "7 13 ''"}));
  EXPECT_EQ(list[1]->process, 1);
}

TEST_F(ItemDataListLoaderRows, storedRowBecomesAnEntryWithValue) {
  feed({{"1", "7", "11", "A", "0", "3", "abc"}});
  EXPECT_EQ(lines(list), Lines({"3 11 'abc' #7"}));
  EXPECT_EQ(text(list[0]->vvalue), "");
  EXPECT_EQ(list[0]->process, 1);
  EXPECT_EQ(list[0]->mandatory, 0);
  EXPECT_EQ(list.firstUnitIndex, -1);
}

TEST_F(ItemDataListLoaderRows, columnsOfStoredRowsAreCountedInTheFirstUnitRowOnly) {
  feed({{"1", "1", "11", "A", "1", "0", "a"},
        {"-1", "2", "-1", "Mennyiség", "1", "2", "1"},
        {"1", "3", "13", "C", "1", "2", "c"},
        {"-1", "4", "-1", "Mennyiség", "1", "3", "1"},
        {"1", "5", "13", "C", "1", "3", "c"},
        {"1", "6", "14", "D", "1", "3", "d"}});
  EXPECT_EQ(list.unitColumnCount, 2);
  EXPECT_EQ(lines(list),
            Lines({"0 11 'a' #1", "2 -1 '1' #2", "2 13 'c' #3", "3 -1 '1' #4", "3 13 'c' #5", "3 14 'd' #6"}));
  EXPECT_EQ(list.lastRow, 3);
  EXPECT_EQ(list[1]->type, -1);
}

TEST_F(ItemDataListLoaderRows, rowsOfASourceTakeTheirRowAndCountEveryColumn) {
  list.firstUnitIndex = 0;
  feed({{"-1", "0", "-1", "Mennyiség", "1", "1", "3"},
        {"1", "0", "13", "C", "1", "1", "c"},
        {"-1", "0", "-1", "Mennyiség", "1", "4", "2"}});
  EXPECT_EQ(lines(list), Lines({"1 -1 ''", "1 13 ''", "4 -1 ''"}));
  EXPECT_EQ(list.unitColumnCount, 3);
  EXPECT_EQ(text(list[1]->vvalue), "c");
}

TEST_F(ItemDataListLoaderRows, rowsOfASourceGetAQuantityEntryMoreWhenTheUnitPartIsNotKnown) {
  feed({{"-1", "0", "-1", "Mennyiség", "1", "1", "3"}, {"1", "0", "13", "C", "1", "1", "c"}});
  EXPECT_EQ(lines(list), Lines({"1 -1 ''", "1 -1 ''", "1 13 ''"}));
  EXPECT_EQ(list.firstUnitIndex, 0);
  EXPECT_EQ(list.unitColumnCount, 3);
}

TEST_F(ItemDataListLoaderRows, rowsOfUnknownTypeAreDropped) {
  feed({{"1", "1", "11", "A", "1", "0", "a"},
        {nullptr, "2", nullptr, nullptr, nullptr, "1", "gone"},
        {"0", "3", "12", "B", "1", "1", "b"},
        {"7", nullptr, "13", "C", "1", "1", "c"},
        {"abc", "5", "14", "D", "1", "1", "d"},
        {"100", "6", "15", "E", "1", "1", "e"},
        {"1", "7", "11", "A", "1", "2", "z"}});
  EXPECT_EQ(lines(list), Lines({"0 11 'a' #1", "2 11 'z' #7"}));
  EXPECT_EQ(list.firstUnitIndex, -1);
  EXPECT_EQ(list.unitColumnCount, 1);
}

TEST_F(ItemDataListLoaderRows, nullCountsAsZeroAndAsNoText) {
  feed({{"1", nullptr, nullptr, nullptr, nullptr, nullptr, nullptr},
        {"1", "7", nullptr, nullptr, nullptr, nullptr, nullptr}});
  EXPECT_EQ(lines(list), Lines({"0 0 ''", "0 0 '' #7"}));
  for (const int index : {0, 1}) {
    EXPECT_EQ(list[index]->mandatory, 0);
    EXPECT_EQ(list[index]->process, 0);
    EXPECT_EQ(text(list[index]->name), "");
    EXPECT_EQ(text(list[index]->vvalue), "");
  }
}

TEST_F(ItemDataListLoaderRows, onlyOneIsMandatory) {
  for (const char* mandatory : std::initializer_list<const char*>{"0", "1", "2", "-1", nullptr})
    feed({{"1", nullptr, "11", "A", mandatory, "0", ""}});
  ASSERT_EQ(list.no(), 5);
  for (const int index : {0, 1, 2, 3, 4}) EXPECT_EQ(list[index]->mandatory, index == 1) << index;
}

TEST_F(ItemDataListLoaderRows, furtherColumnsAreIgnored) {
  feed({{"1", "7", "11", "A", "0", "3", "abc"}});
  EXPECT_TRUE(loader.processValue(7, "more", "text"));
  EXPECT_TRUE(loader.processValue(99, "more", nullptr));
  EXPECT_EQ(lines(list), Lines({"3 11 'abc' #7"}));
}

TEST_F(ItemDataListLoaderRows, rowThatBreaksOffLeavesNothingBehind) {
  loader.processValue(0, "type", "1");
  loader.processValue(1, "key", "7");
  feed({{"1", "8", "11", "A", "0", "3", "abc"}});
  loader.processValue(0, "type", "1");
  EXPECT_EQ(lines(list), Lines({"3 11 'abc' #8"}));
}

}  // namespace
}  // namespace Quillane::Plugin::ItemData
