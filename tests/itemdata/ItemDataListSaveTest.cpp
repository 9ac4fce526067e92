// Tests of what a list does to stored values: saving, status changes and deleting rows.
#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <random>

#include "itemdata/ItemDataList.h"
#include "plugin/contract/Database.h"
#include "tests/itemdata/ItemDataFixture.h"
#include "tests/itemdata/RecordingEntry.h"
#include "tests/itemdata/RowModel.h"

using namespace FX;

namespace Quillane::Plugin::ItemData {
namespace {

constexpr const char* kInsertSql =
    "insert into t_invoiceitemdata (t_itemvariable_1, t_invoiceitem_1, value, row) values (%t_itemvariable_1, "
    "%t_invoiceitem_1, %value, %row)";
constexpr const char* kUpdateSql =
    "update t_invoiceitemdata set t_itemvariable_1=%t_itemvariable_1, t_invoiceitem_1=%t_invoiceitem_1, value=%value, "
    "row=%row where t_invoiceitemdata_id=%t_invoiceitemdata_id";
constexpr const char* kDeleteSql = "delete from t_invoiceitemdata where t_invoiceitemdata_id=%t_invoiceitemdata_id";

class ItemDataListSave : public ItemDataDatabaseTest {
 protected:
  ItemDataListSave() {
    define({{2, "Kettes"},
            {11, "A"},
            {12, "B", ItemDataEntry::TYPE_LIST, 0, 1, "piros,kék"},
            {13, "C", ItemDataEntry::TYPE_TEXT, 1},
            {14, "D", ItemDataEntry::TYPE_DATE, 1}});
    storeInvoice(1, 101);
    storeItem(10, 1);
    item = newItem(10);
    list = attach(item);
    executed();
  }

  InvoiceItem* item;   // owned by the document
  ItemDataList* list;  // owned by the item
};

TEST_F(ItemDataListSave, insertsUpdatesAndDeletesInListOrder) {
  storeValues(10, {"0 11 'before' #1", "2 -1 '4' #5", "2 13 'x' #6"});
  fill(*list, {"0 11 'after' #1", "0 12 'kék'", "1 -1 '3'", "1 13 'c'", "2 -1 '' #5 marked", "2 13 '' #6 marked"});
  EXPECT_EQ(list->save(db()), 0);
  EXPECT_EQ(executed(),
            Lines({call(kUpdateSql,
                        "t_invoiceitemdata_id='1', t_itemvariable_1='11', t_invoiceitem_1='10', "
                        "value='after', row='0'"),
                   call(kInsertSql, "t_itemvariable_1='12', t_invoiceitem_1='10', value='kék', row='0'"),
                   call(kInsertSql, "t_itemvariable_1='-1', t_invoiceitem_1='10', value='3', row='1'"),
                   call(kInsertSql, "t_itemvariable_1='13', t_invoiceitem_1='10', value='c', row='1'"),
                   call(kDeleteSql, "t_invoiceitemdata_id='5'"), call(kDeleteSql, "t_invoiceitemdata_id='6'")}));
  EXPECT_EQ(storedValues(), Lines({"10: 0 11 'after'", "10: 0 12 'kék'", "10: 1 -1 '3'", "10: 1 13 'c'"}));
}

TEST_F(ItemDataListSave, emptyListSavesNothing) {
  EXPECT_EQ(list->save(db()), 0);
  EXPECT_EQ(executed(), Lines());
}

TEST_F(ItemDataListSave, emptyValuesAreSaved) {
  fill(*list, {"0 11 ''", "0 12 ' '"});
  list->save(db());
  EXPECT_EQ(storedValues(), Lines({"10: 0 11 ''", "10: 0 12 ''"}));
}

TEST_F(ItemDataListSave, nullPlacesArePassedOver) {
  fill(*list, {"null", "0 11 'a'", "null", "0 12 'kék'", "null"});
  list->save(db());
  EXPECT_EQ(storedValues(), Lines({"10: 0 11 'a'", "10: 0 12 'kék'"}));
}

TEST_F(ItemDataListSave, keepsTheListAsItWas) {
  storeValues(10, {"1 13 'x' #6"});
  fill(*list, {"0 11 'a'", "1 13 '' #6 marked"});
  const Lines before = lines(*list);
  list->save(db());
  EXPECT_EQ(lines(*list), before);
}

TEST_F(ItemDataListSave, keepsInsertingNewEntriesWithEverySave) {
  fill(*list, {"0 11 'a'", "1 -1 '2'"});
  list->save(db());
  list->save(db());
  EXPECT_EQ(storedValues(), Lines({"10: 0 11 'a'", "10: 1 -1 '2'", "10: 0 11 'a'", "10: 1 -1 '2'"}));
}

TEST_F(ItemDataListSave, keepsZeroFromBeingInserted) {
  fill(*list, {"0 11 '0'", "1 -1 '0'", "1 13 'c'"});
  EXPECT_EQ(list->save(db()), 0);
  EXPECT_EQ(executed(), Lines({call(kInsertSql, "t_itemvariable_1='13', t_invoiceitem_1='10', value='c', row='1'")}));
}

TEST_F(ItemDataListSave, keepsTheStoredValueWhereZeroWasEntered) {
  storeValues(10, {"1 -1 '5' #1"});
  fill(*list, {"1 -1 '0' #1"});
  list->save(db());
  EXPECT_EQ(executed(), Lines());
  EXPECT_EQ(storedValuesWithKeys(), Lines({"10: 1 -1 '5' #1"}));
}

TEST_F(ItemDataListSave, keepsTheRowOfAMarkedEntryThatHoldsZeroAgain) {
  storeValues(10, {"1 -1 '5' #1"});
  fill(*list, {"1 -1 '0' #1 marked"});
  list->save(db());
  EXPECT_EQ(storedValuesWithKeys(), Lines({"10: 1 -1 '5' #1"}));
}

TEST_F(ItemDataListSave, onlyTheExactZeroIsPassedOver) {
  for (const char* value : {"0.0", "00", " 0", "0 ", "-0", "+0", "0,0"}) {
    ItemDataList other(item, nullptr);
    fill(other, {std::string("1 -1 '") + value + "'"});
    other.save(db());
    EXPECT_EQ(storedValues(), Lines({std::string("10: 1 -1 '") + value + "'"}));
    run("delete from t_invoiceitemdata");
  }
}

TEST_F(ItemDataListSave, keepsVariable2OutOfARowAfterAZero) {
  struct Case {
    const char* sentence;
    Lines entries;
    Lines stored;
  };
  for (const Case& c : {
           Case{"after the quantity", {"1 -1 '0'", "1 2 'two'", "1 13 'c'"}, {"10: 1 13 'c'"}},
           Case{"after another value", {"1 -1 '3'", "1 13 '0'", "1 2 'two'"}, {"10: 1 -1 '3'"}},
           Case{"with others between", {"1 -1 '0'", "1 13 'c'", "1 2 'two'"}, {"10: 1 13 'c'"}},
           Case{"per item", {"0 11 '0'", "0 2 'two'"}, {}},
           Case{"twice", {"1 -1 '0'", "1 2 'two'", "1 2 'again'"}, {}},
           Case{"before the zero", {"1 2 'two'", "1 -1 '0'"}, {"10: 1 2 'two'"}},
           Case{"in another row", {"1 -1 '0'", "2 2 'two'"}, {"10: 2 2 'two'"}},
           Case{"after a later zero in another row",
                {"1 -1 '0'", "2 -1 '0'", "1 2 'two'", "2 2 'also'"},
                {"10: 1 2 'two'"}},
           Case{"without zero", {"1 -1 '00'", "1 2 'two'"}, {"10: 1 -1 '00'", "10: 1 2 'two'"}},
           Case{"empty", {"1 -1 '0'", "1 2 ''"}, {}},
       }) {
    ItemDataList other(item, nullptr);
    fill(other, c.entries);
    other.save(db());
    EXPECT_EQ(storedValues(), c.stored) << c.sentence;
    run("delete from t_invoiceitemdata");
  }
}

TEST_F(ItemDataListSave, keepsTheStoredRowOfVariable2AfterAZero) {
  storeValues(10, {"1 2 'before' #1", "2 2 'stays' #2"});
  fill(*list, {"1 -1 '0'", "1 2 'after' #1", "2 -1 '0'", "2 2 '' #2 marked"});
  list->save(db());
  EXPECT_EQ(executed(), Lines());
  EXPECT_EQ(storedValuesWithKeys(), Lines({"10: 1 2 'before' #1", "10: 2 2 'stays' #2"}));
}

TEST_F(ItemDataListSave, zeroOfAnotherItemDoesNotCount) {
  storeItem(20, 1);
  InvoiceItem* other = newItem(20);
  list->append(newEntry("1 -1 '0'", other));
  list->append(newEntry("1 2 'two'", item));
  list->append(newEntry("1 2 'gone'", other));
  list->save(db());
  EXPECT_EQ(storedValues(), Lines({"10: 1 2 'two'"}));
}

TEST_F(ItemDataListSave, rememberedRowStartsAtMinusOne) {
  fill(*list, {"-1 2 'two'"});
  list->save(db());
  EXPECT_EQ(storedValues(), Lines({"10: -1 2 'two'"}));
}

TEST_F(ItemDataListSave, returnsZeroAlsoWhenTheDatabaseRefuses) {
  fill(*list, {"0 11 'a'", "0 777 'refused'", "0 12 'kék'"});
  ASSERT_TRUE(db()->begin());
  EXPECT_EQ(list->save(db()), 0);
  EXPECT_FALSE(db()->commit());
  EXPECT_EQ(storedValues(), Lines());
}

TEST_F(ItemDataListSave, everyEntryIsSavedByItsOwnSave) {
  Lines events;
  ItemDataList recorded(item, nullptr);
  for (const char* name : {"A", "B"}) recorded.append(new RecordingEntry(events, name, item));
  recorded.save(db());
  EXPECT_EQ(events, Lines({"A: save", "B: save"}));
}

// ---- status

TEST_F(ItemDataListSave, statusReachesTheEntriesWhenItConcernsThem) {
  for (const int gate : {-1, 0, 1, 2}) {
    invoice.setStatusGate(gate);
    for (const unsigned status :
         {0u, 100u, 101u, 102u, 103u, 151u, 152u, 201u, 202u, 251u, 252u, 401u, 402u, 451u, 452u, 801u, 4294967295u}) {
      Lines events;
      ItemDataList other(item, nullptr);
      for (const char* name : {"A", "B"}) other.append(new RecordingEntry(events, name, item));
      other.FXObjectList::append(static_cast<FXObject*>(nullptr));
      other.setStatus(db(), status);
      const bool gated = status == 101 || status == 201 || status == 401;
      const bool told = status == 102 || status == 452 || (gated && gate > 0);
      const std::string number = std::to_string(status);
      EXPECT_EQ(events, told ? Lines({"A: setStatus " + number, "B: setStatus " + number}) : Lines())
          << "gate " << gate << " status " << status;
    }
  }
}

TEST_F(ItemDataListSave, statusChangeLeavesEntriesAndDatabaseAsTheyAre) {
  fill(*list, {"0 11 'a' #1", "1 -1 '3'"});
  for (const unsigned status : {101u, 102u, 201u, 401u, 452u}) list->setStatus(db(), status);
  list->setStatus(nullptr, 102);
  EXPECT_EQ(lines(*list), Lines({"0 11 'a' #1", "1 -1 '3'"}));
  EXPECT_EQ(executed(), Lines());
}

// ---- deleting a row

TEST_F(ItemDataListSave, rowThatWasNeverSavedLeavesTheList) {
  fill(*list, {"0 11 'a'", "1 -1 '1'", "1 13 'c'", "2 -1 '2'", "2 13 'd'"});
  list->markRowForDelete(2);
  EXPECT_EQ(lines(*list), Lines({"0 11 'a'", "1 -1 '1'", "1 13 'c'"}));
  EXPECT_EQ(list->lastRow, 1);
  list->save(db());
  EXPECT_EQ(storedValues(), Lines({"10: 0 11 'a'", "10: 1 -1 '1'", "10: 1 13 'c'"}));
}

TEST_F(ItemDataListSave, savedRowIsDeletedEntryByEntryWithTheNextSave) {
  storeValues(10, {"1 -1 '1' #1", "1 13 'c' #2", "2 -1 '2' #3", "2 13 'd' #4"});
  fill(*list, {"1 -1 '1' #1", "1 13 'c' #2", "2 -1 '2' #3", "2 13 'd' #4"});
  list->firstUnitIndex = 0;
  list->markRowForDelete(1);
  EXPECT_EQ(lines(*list), Lines({"1 -1 '' #1 marked", "1 13 '' #2 marked", "2 -1 '2' #3", "2 13 'd' #4"}));
  EXPECT_EQ(list->getRowNum(), 1);
  EXPECT_EQ(executed(), Lines());
  list->save(db());
  EXPECT_EQ(storedValuesWithKeys(), Lines({"10: 2 -1 '2' #3", "10: 2 13 'd' #4"}));
  const Lines statements = executed();
  EXPECT_EQ(std::count_if(statements.begin(), statements.end(),
                          [](const std::string& statement) { return statement.rfind("delete", 0) == 0; }),
            2);
}

TEST_F(ItemDataListSave, lastRowFollowsTheLastRowOnly) {
  struct Case {
    int row;
    int lastRow;
    Lines entries;
  };
  for (const Case& c :
       {Case{3, 2, {"1 -1 '1' #1", "2 -1 '1'", "3 -1 '' #2 marked"}}, Case{2, 3, {"1 -1 '1' #1", "3 -1 '1' #2"}},
        Case{1, 3, {"1 -1 '' #1 marked", "2 -1 '1'", "3 -1 '1' #2"}},
        Case{4, 3, {"1 -1 '1' #1", "2 -1 '1'", "3 -1 '1' #2"}},
        Case{0, 3, {"1 -1 '1' #1", "2 -1 '1'", "3 -1 '1' #2"}}}) {
    ItemDataList other(item, nullptr);
    fill(other, {"1 -1 '1' #1", "2 -1 '1'", "3 -1 '1' #2"});
    other.markRowForDelete(c.row);
    EXPECT_EQ(lines(other), c.entries) << c.row;
    EXPECT_EQ(other.lastRow, c.lastRow) << c.row;
  }
}

TEST_F(ItemDataListSave, lastRowOfAListWithoutThatRowStays) {
  fill(*list, {"1 -1 '1'"});
  list->lastRow = 5;
  list->markRowForDelete(5);
  EXPECT_EQ(list->lastRow, 5);
}

TEST_F(ItemDataListSave, numberOfADeletedLastRowIsGivenAgain) {
  ItemDataList* other = attach(item, newSettings({13}));
  other->addRows(3);
  other->markRowForDelete(2);
  other->addRows(1);
  EXPECT_EQ(lines(*other), Lines({"1 -1 ''", "1 13 ''", "3 -1 ''", "3 13 ''", "4 -1 ''", "4 13 ''"}));
  other->markRowForDelete(4);
  other->addRows(1);
  EXPECT_EQ(lines(*other), Lines({"1 -1 ''", "1 13 ''", "3 -1 ''", "3 13 ''", "4 -1 ''", "4 13 ''"}));
  EXPECT_EQ(other->getRowNum(), 3);
}

TEST_F(ItemDataListSave, unsavedEntryLeavesWhetherMarkedOrNot) {
  fill(*list, {"1 -1 '1'", "1 13 '' marked", "1 14 'd' #3"});
  list->markRowForDelete(1);
  EXPECT_EQ(lines(*list), Lines({"1 14 '' #3 marked"}));
}

TEST_F(ItemDataListSave, markedEntriesAreNotMarkedAgain) {
  Lines events;
  ItemDataList recorded(item, nullptr);
  for (const char* name : {"A", "B"}) {
    auto* entry = new RecordingEntry(events, name, item);
    entry->row = 1;
    entry->pk = 5;
    recorded.append(entry);
  }
  recorded.at(0)->del = 1;
  recorded.at(0)->value = "kept";
  recorded.markRowForDelete(1);
  EXPECT_EQ(events, Lines({"B: marked 1"}));
  EXPECT_EQ(lines(recorded), Lines({"1 0 'kept' #5 marked", "1 0 '' #5 marked"}));
  recorded.markRowForDelete(1);
  EXPECT_EQ(events, Lines({"B: marked 1"}));
}

TEST_F(ItemDataListSave, perItemEntriesAreARowToo) {
  fill(*list, {"0 11 'a'", "0 12 'kék' #2", "1 -1 '1'"});
  list->markRowForDelete(0);
  EXPECT_EQ(lines(*list), Lines({"0 12 '' #2 marked", "1 -1 '1'"}));
  EXPECT_EQ(list->lastRow, 1);
}

TEST_F(ItemDataListSave, deletingFromAnEmptyListDoesNothing) {
  list->markRowForDelete(0);
  list->markRowForDelete(1);
  EXPECT_EQ(list->no(), 0);
  EXPECT_EQ(list->lastRow, 0);
}

TEST_F(ItemDataListSave, rowsInAnyOrderAreFound) {
  fill(*list, {"2 -1 'a'", "1 -1 'b'", "2 13 'c' #3", "0 11 'd'", "2 14 'e'"});
  list->markRowForDelete(2);
  EXPECT_EQ(lines(*list), Lines({"1 -1 'b'", "2 13 '' #3 marked", "0 11 'd'"}));
  EXPECT_EQ(list->lastRow, 1);
}

TEST_F(ItemDataListSave, rowsAmongNullPlacesAreFound) {
  fill(*list, {"null", "1 -1 'a'", "null", "2 -1 'b'", "null", "2 13 'c'", "3 -1 'd'", "null"});
  list->markRowForDelete(2);
  EXPECT_EQ(lines(*list), Lines({"null", "1 -1 'a'", "null", "null", "3 -1 'd'", "null"}));
}

TEST_F(ItemDataListSave, placeThatBecameNullIsPassedOver) {
  const Lines entries = {"0 11 'a'", "0 12 'x'", "1 -1 'b'", "1 13 'c'", "1 14 'd'", "1 11 'e'",
                         "1 12 'y'", "2 -1 'd'", "3 13 'e'", "4 -1 'f'", "4 13 'g'", "4 14 'h'",
                         "5 -1 'i'", "6 -1 'j'", "7 -1 'k'", "7 13 'l'", "7 14 'm'"};
  for (int place = 0; place < static_cast<int>(entries.size()); ++place) {
    for (int row = 0; row <= 7; ++row) {
      ItemDataList other(item, nullptr);
      fill(other, entries);
      delete other[place];
      other[place] = nullptr;
      other.markRowForDelete(row);

      Lines expected = entries;
      expected[static_cast<size_t>(place)] = "null";
      const auto isOfRow = [row](const std::string& line) { return line[0] == '0' + row; };
      expected.erase(std::remove_if(expected.begin(), expected.end(), isOfRow), expected.end());
      EXPECT_EQ(lines(other), expected) << "place " << place << " row " << row;
    }
  }
}

TEST_F(ItemDataListSave, rowsAppendedAfterANullPlaceAreFound) {
  for (const int row : {0, 3, 9}) {
    ItemDataList other(item, nullptr);
    fill(other, {"1 -1 'a'", "2 -1 'b'"});
    delete other[1];
    other[1] = nullptr;
    other.append(newEntry(std::to_string(row) + " -1 'c'", item));
    other.markRowForDelete(row);
    EXPECT_EQ(lines(other), Lines({"1 -1 'a'", "null"})) << row;
    EXPECT_EQ(other.lastRow, row - 1);
  }
}

TEST_F(ItemDataListSave, rowsAreFoundAfterEntriesWereTakenOutByHand) {
  fill(*list, {"1 -1 'a'", "2 -1 'b'", "3 -1 'c'"});
  delete list->at(1);
  list->erase(1);
  list->append(newEntry("0 11 'd'", item));
  list->markRowForDelete(0);
  EXPECT_EQ(lines(*list), Lines({"1 -1 'a'", "3 -1 'c'"}));
  list->append(newEntry("1 13 'e'", item));
  list->markRowForDelete(1);
  EXPECT_EQ(lines(*list), Lines({"3 -1 'c'"}));
}

TEST_F(ItemDataListSave, rowsAreFoundAfterTheListWasChangedThroughItsBase) {
  fill(*list, {"1 -1 'a'", "2 -1 'b'", "3 -1 'c'"});
  list->markRowForDelete(4);
  FXObjectListOf<ItemDataEntry>& places = *list;
  delete places[0];
  places.erase(0);
  places.append(newEntry("1 11 'd'", item));
  list->markRowForDelete(1);
  EXPECT_EQ(lines(*list), Lines({"2 -1 'b'", "3 -1 'c'"}));
}

TEST_F(ItemDataListSave, rowsAreFoundByTheNumbersThatTheirEntriesWereGivenLater) {
  fill(*list, {"1 -1 'a'", "2 -1 'b'", "2 13 'c' #7", "3 -1 'd'"});
  list->markRowForDelete(4);
  list->at(0)->row = 9;
  list->markRowForDelete(9);
  EXPECT_EQ(lines(*list), Lines({"2 -1 'b'", "2 13 'c' #7", "3 -1 'd'"}));
  list->at(2)->row = 1;
  list->markRowForDelete(1);
  EXPECT_EQ(lines(*list), Lines({"2 -1 'b'", "2 13 'c' #7"}));
}

TEST_F(ItemDataListSave, anyListLosesARowAsDescribed) {
  std::mt19937 random(20240506);
  for (int round = 0; round < 3000; ++round) {
    const Lines entries = randomEntries(random);
    ItemDataList other(item, nullptr);
    fill(other, entries);
    RowModel model(entries);
    std::uniform_int_distribution<int> anyRow(-1, 6);
    for (int step = 0; step < 4; ++step) {
      const int row = anyRow(random);
      other.markRowForDelete(row);
      model.markRowForDelete(row);
      ASSERT_EQ(lines(other), model.lines()) << "round " << round << " row " << row;
      ASSERT_EQ(other.lastRow, model.lastRow) << "round " << round << " row " << row;
      if (random() % 3) continue;
      const std::string added = std::to_string(anyRow(random)) + " 13 'added'";
      fill(other, {added});
      model.append(added);
    }
  }
}

}  // namespace
}  // namespace Quillane::Plugin::ItemData
