// Tests of how a list is brought into the shape of its settings before it is edited.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "itemdata/ItemDataList.h"
#include "tests/itemdata/ItemDataFixture.h"

using namespace FX;

namespace Quillane::Plugin::ItemData {
namespace {

struct Case {
  const char* name;
  std::vector<int> settings;  // of the variables 11 and 12 (per item), 13 and 14 (per unit)
  Lines stored;
  Lines completed;
  int firstUnitIndex;
  int lastRow;
};

void PrintTo(const Case& shape, std::ostream* out) { *out << shape.name; }

const Case kCases[] = {
    {"nothingStored", {11, 12, 13}, {}, {"0 11 ''", "0 12 ''"}, 2, 0},
    {"onlyPerItem", {11, 12}, {"0 12 'b' #2"}, {"0 11 ''", "0 12 'b' #2"}, -1, 0},
    {"onlyPerUnitWithoutRows", {13, 14}, {}, {}, 0, 0},
    {"noVariables", {}, {"0 11 'a' #1"}, {"0 11 'a' #1"}, -1, 0},
    {"missingLeadingEntry",
     {11, 12, 13},
     {"0 12 'b' #2", "1 -1 '1' #3", "1 13 'c' #4"},
     {"0 11 ''", "0 12 'b' #2", "1 -1 '1' #3", "1 13 'c' #4"},
     2,
     1},
    {"leadingEntriesInAnotherOrder",
     {12, 11, 13},
     {"0 11 'a' #1", "0 12 'b' #2", "1 -1 '1' #3", "1 13 'c' #4"},
     {"0 12 'b' #2", "0 11 'a' #1", "1 -1 '1' #3", "1 13 'c' #4"},
     2,
     1},
    {"missingQuantityWasZero",
     {13, 14},
     {"1 -1 '2' #1", "1 13 'c' #2", "1 14 'd' #3", "2 13 'e' #4", "2 14 'f' #5"},
     {"1 -1 '2' #1", "1 13 'c' #2", "1 14 'd' #3", "2 -1 '0'", "2 13 'e' #4", "2 14 'f' #5"},
     0,
     2},
    {"missingValueOfARow", {13, 14}, {"1 -1 '2' #1", "1 14 'd' #3"}, {"1 -1 '2' #1", "1 13 ''", "1 14 'd' #3"}, 0, 1},
    {"valuesOfARowInAnotherOrder",
     {14, 13},
     {"1 13 'c' #2", "1 14 'd' #3", "1 -1 '2' #4"},
     {"1 -1 '2' #4", "1 14 'd' #3", "1 13 'c' #2"},
     0,
     1},
    {"gapsBetweenRowsStay",
     {13},
     {"2 13 'b' #1", "5 -1 '1' #2", "5 13 'e' #3"},
     {"2 -1 '0'", "2 13 'b' #1", "5 -1 '1' #2", "5 13 'e' #3"},
     0,
     5},
    {"unknownVariablesStayBehindTheKnownOnes",
     {11, 13},
     {"0 77 'x' #1", "0 11 'a' #2", "1 -1 '1' #3", "1 78 'y' #4", "1 13 'c' #5"},
     {"0 11 'a' #2", "0 77 'x' #1", "1 -1 '1' #3", "1 13 'c' #5", "1 78 'y' #4"},
     2,
     1},
    {"onlyUnknownVariables",
     {11, 13},
     {"0 77 'x' #1", "1 78 'y' #4"},
     {"0 11 ''", "0 77 'x' #1", "1 -1 '0'", "1 13 ''", "1 78 'y' #4"},
     2,
     1},
    {"perItemVariableThatBecamePerUnit",
     {11, 13},
     {"0 11 'a' #1", "0 13 'c' #2", "1 -1 '1' #3"},
     {"0 11 'a' #1", "0 13 'c' #2", "1 -1 '1' #3", "1 13 ''"},
     2,
     1},
    {"perUnitVariableThatBecamePerItem",
     {11, 13},
     {"1 -1 '1' #1", "1 11 'a' #2", "1 13 'c' #3"},
     {"0 11 ''", "1 -1 '1' #1", "1 13 'c' #3", "1 11 'a' #2"},
     1,
     1},
    {"unitRowsOfAnItemThatIsRecordedAsAWholeNow",
     {11},
     {"1 -1 '1' #1", "1 11 'a' #2"},
     {"0 11 ''", "1 -1 '1' #1", "1 11 'a' #2"},
     -1,
     1},
    {"deletedRowsGetNoFields",
     {11, 13},
     {"1 -1 '' #1 marked", "1 13 '' #2 marked", "2 13 'b' #3"},
     {"0 11 ''", "1 -1 '' #1 marked", "1 13 '' #2 marked", "2 -1 '0'", "2 13 'b' #3"},
     1,
     2},
    {"rowWithTheNumberOfADeletedOne",
     {13, 14},
     {"1 -1 '' #1 marked", "1 13 '' #2 marked", "1 -1 '3'", "1 14 'd'"},
     {"1 -1 '' #1 marked", "1 13 '' #2 marked", "1 -1 '3'", "1 13 ''", "1 14 'd'"},
     0,
     1},
    {"markedLeadingEntries",
     {11, 12},
     {"0 11 '' #1 marked", "0 12 'b' #2"},
     {"0 11 ''", "0 12 'b' #2", "0 11 '' #1 marked"},
     -1,
     0},
    {"doubledLeadingEntriesOfACopy",
     {11, 13},
     {"0 11 ''", "0 11 'a'", "1 -1 '1'", "1 13 'c'"},
     {"0 11 'a'", "0 11 ''", "1 -1 '1'", "1 13 'c'"},
     2,
     1},
    {"rowsInAnyOrder",
     {13},
     {"3 -1 '3'", "3 13 'c'", "1 -1 '1'", "1 13 'a'"},
     {"1 -1 '1'", "1 13 'a'", "3 -1 '3'", "3 13 'c'"},
     0,
     3},
    {"nullPlaces", {13}, {"null", "1 -1 '1'", "null", "1 13 'a'"}, {"1 -1 '1'", "1 13 'a'"}, 0, 1},
};

class ItemDataListComplete : public ItemDataTest, public testing::WithParamInterface<Case> {
 protected:
  ItemDataListComplete() {
    declare({{11, "A"}, {12, "B"}, {13, "C", ItemDataEntry::TYPE_TEXT, 1}, {14, "D", ItemDataEntry::TYPE_LIST, 1}});
  }

  ItemDataList* settingsOf(const std::vector<int>& variables) {
    switch (variables.size()) {
      case 0:
        return newSettings({});
      case 1:
        return newSettings({variables[0]});
      case 2:
        return newSettings({variables[0], variables[1]});
      default:
        return newSettings({variables[0], variables[1], variables[2]});
    }
  }

  ItemDataList* stored(const std::vector<int>& variables, const Lines& entries) {
    ItemDataList* list = attach(newItem(10), settingsOf(variables));
    fill(*list, entries);
    return list;
  }
};

TEST_P(ItemDataListComplete, takesTheShapeOfTheSettings) {
  const Case& shape = GetParam();
  ItemDataList* list = stored(shape.settings, shape.stored);
  list->completeFromSettings();

  EXPECT_EQ(lines(*list), shape.completed);
  EXPECT_EQ(list->firstUnitIndex, shape.firstUnitIndex);
  EXPECT_EQ(list->lastRow, shape.lastRow);
  EXPECT_EQ(list->unitColumnCount, list->settings->unitColumnCount);
  EXPECT_TRUE(list->isComplete());
  for (FXint i = 0; i < list->no(); ++i) EXPECT_EQ(list->at(i)->getOwner(), list->getOwner()) << i;
}

TEST_P(ItemDataListComplete, staysAsItIsWhenItIsComplete) {
  ItemDataList* list = stored(GetParam().settings, GetParam().stored);
  list->completeFromSettings();
  list->lastRow = 99;
  std::vector<const ItemDataEntry*> before;
  for (FXint i = 0; i < list->no(); ++i) before.push_back(list->at(i));

  list->completeFromSettings();
  ASSERT_EQ(static_cast<std::size_t>(list->no()), before.size());
  for (FXint i = 0; i < list->no(); ++i) EXPECT_EQ(list->at(i), before[i]) << i;
  EXPECT_EQ(list->lastRow, 99);
}

TEST_P(ItemDataListComplete, addsAndDeletesRowsAfterwards) {
  const Case& shape = GetParam();
  ItemDataList* list = stored(shape.settings, shape.stored);
  list->completeFromSettings();
  const int rows = list->getRowNum();
  list->addRows(1);
  if (list->settings->firstUnitIndex < 0) {
    EXPECT_EQ(lines(*list), shape.completed);
    return;
  }
  EXPECT_EQ(list->lastRow, shape.lastRow + 1);
  EXPECT_EQ(list->getRowNum(), rows + 1);
  EXPECT_EQ(list->at(list->no() - list->unitColumnCount)->type, ItemDataEntry::TYPE_QUANTITY);
  list->markRowForDelete(list->lastRow);
  EXPECT_EQ(lines(*list), shape.completed);
  EXPECT_EQ(list->lastRow, shape.lastRow);
}

INSTANTIATE_TEST_SUITE_P(Of, ItemDataListComplete, testing::ValuesIn(kCases),
                         [](const auto& test) { return test.param.name; });

using ItemDataListCompleteMemory = ItemDataListComplete;

TEST_F(ItemDataListCompleteMemory, leavesAListWithoutSettingsAlone) {
  ItemDataList* list = attach(newItem(10));
  fill(*list, {"2 13 'c'", "0 11 'a'", "null"});
  EXPECT_TRUE(list->isComplete());
  list->completeFromSettings();
  EXPECT_EQ(lines(*list), (Lines{"2 13 'c'", "0 11 'a'", "null"}));
  EXPECT_EQ(list->firstUnitIndex, -1);
}

TEST_F(ItemDataListCompleteMemory, leavesAFreshListOfANewItemAlone) {
  ItemDataList* list = attach(newItem(), newSettings({11, 12, 13}));
  EXPECT_TRUE(list->isComplete());
}

TEST_F(ItemDataListCompleteMemory, findsTheFirstUnitEntryBehindLeadingEntriesThatAreNotKnown) {
  ItemDataList* list = stored({11, 13}, {"0 11 'a' #1", "0 77 'x' #2", "1 -1 '1' #3", "1 13 'c' #4"});
  EXPECT_FALSE(list->isComplete()) << "the settings' own index is 1";
  list->completeFromSettings();
  EXPECT_EQ(list->firstUnitIndex, 2);
  EXPECT_EQ(list->getRowNum(), 1);
}

TEST_F(ItemDataListCompleteMemory, clonesTheParameterAndTheKindOfAMissingField) {
  declare({{15, "E", ItemDataEntry::TYPE_LIST, 0, 0, "kék,zöld"}});
  ItemDataList* list = attach(newItem(10), newSettings({15}));
  list->completeFromSettings();
  ASSERT_EQ(list->no(), 1);
  EXPECT_EQ(list->at(0)->vvalue, "kék,zöld");
  EXPECT_TRUE(list->at(0)->canHandleType(ItemDataEntry::TYPE_LIST));
  EXPECT_EQ(list->at(0)->mandatory, 0);
}

}  // namespace
}  // namespace Quillane::Plugin::ItemData
