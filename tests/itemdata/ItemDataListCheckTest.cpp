// Tests of the check of a list: the sum of its quantities, the rows that it drops, and the messages.
#include <gtest/gtest.h>

#include <memory>
#include <random>
#include <set>

#include "itemdata/ItemDataList.h"
#include "tests/itemdata/ItemDataFixture.h"
#include "tests/itemdata/RecordingEntry.h"
#include "tests/itemdata/RowModel.h"
#include "tests/plugin/TextCatalogue.h"

using namespace FX;

namespace Quillane::Plugin::ItemData {
namespace {

class ItemDataListCheck : public ItemDataTest {
 protected:
  ItemDataListCheck() {
    declare({{11, "A"}, {12, "B", ItemDataEntry::TYPE_LIST, 0, 0, "x,y"}, {13, "C", ItemDataEntry::TYPE_TEXT, 1}});
    item = newItem(10);
    list = attach(item);
  }

  void setQuantity(const char* quantity) { item->setQuantity(FXExt::FXDecimal(quantity, 4)); }

  // What checking a list of these quantities says against the item's.
  std::vector<Finding> compare(const Lines& quantities, const char* itemQuantity) {
    setQuantity(itemQuantity);
    ItemDataList compared(item, nullptr);
    int row = 0;
    for (const std::string& quantity : quantities) fill(compared, {std::to_string(++row) + " -1 '" + quantity + "'"});
    compared.firstUnitIndex = 0;
    Findings findings;
    compared.check(1, findings.list, "P");
    return findings.all();
  }

  InvoiceItem* item;   // owned by the document
  ItemDataList* list;  // owned by the item
};

constexpr const char* kLocation = "Számla: Tételek listája\n[K-1]\n";

std::string tooMuch(const std::string& sum, const std::string& quantity) {
  return "Egyéb tételadatok: Az összmennyiség (" + sum + ") több, mint a tétellistában megadott (" + quantity + ").";
}

std::string tooLittle(const std::string& sum, const std::string& quantity) {
  return "Egyéb tételadatok: Az összmennyiség (" + sum + ") kevesebb, mint a tétellistában megadott (" + quantity +
         ").";
}

// ---- the sum

TEST_F(ItemDataListCheck, sumsTheLiveQuantities) {
  struct Case {
    Lines entries;
    const char* sum;
  };
  for (const Case& c :
       {Case{{}, "0"}, Case{{"0 11 '5'", "1 13 '7'"}, "0"}, Case{{"1 -1 '2'", "1 13 '9'", "2 -1 '3'"}, "5"},
        Case{{"1 -1 '2'", "2 -1 '3' #1 marked"}, "2"}, Case{{"1 -1 '0.1'", "2 -1 '0.2'"}, "0.3"},
        Case{{"1 -1 '1.5'", "2 -1 '-0.5'"}, "1"}, Case{{"1 -1 ''", "2 -1 'abc'", "3 -1 '2'"}, "2"},
        Case{{"1 -1 '0.00001'", "2 -1 '1'"}, "1.00001"}, Case{{"null", "1 -1 '2'", "null"}, "2"},
        Case{{"0 -1 '2'"}, "2"}, Case{{"1 -1 '1 000'", "2 -1 '1200'"}, "2200"}}) {
    ItemDataList summed(item, nullptr);
    fill(summed, c.entries);
    EXPECT_EQ(text(summed.getSumQuantity().toString()), c.sum);
  }
}

TEST_F(ItemDataListCheck, sumOfNothingIsASetZeroWithFourDecimals) {
  const FXExt::FXDecimal sum = list->getSumQuantity();
  EXPECT_EQ(sum.value, 0);
  EXPECT_EQ(sum.precision, 4);
  EXPECT_EQ(sum.unset, 0);
}

// ---- the comparison

TEST_F(ItemDataListCheck, tooManyUnitsAreAnError) {
  EXPECT_EQ(compare({"2", "3"}, "4"),
            std::vector<Finding>({{"P_ITEMDATAQUANTITYMORETHAN", 1, tooMuch("5", "4"), kLocation}}));
}

TEST_F(ItemDataListCheck, tooFewUnitsAreAnError) {
  EXPECT_EQ(compare({"1", "2"}, "4"),
            std::vector<Finding>({{"P_ITEMDATAQUANTITYLESSTHAN", 1, tooLittle("3", "4"), kLocation}}));
}

TEST_F(ItemDataListCheck, quantitiesAreComparedAndPrintedExactly) {
  EXPECT_EQ(compare({"2", "2"}, "4"), std::vector<Finding>());
  EXPECT_EQ(compare({"0.1", "0.2"}, "0.3"), std::vector<Finding>());
  EXPECT_EQ(compare({"1.50"}, "1.5"), std::vector<Finding>());
  EXPECT_EQ(compare({"1200"}, "1200.00"), std::vector<Finding>());
  EXPECT_EQ(compare({"0.3001"}, "0.3").at(0).text, tooMuch("0.3001", "0.3"));
  EXPECT_EQ(compare({"1200.50"}, "1300").at(0).text, tooLittle("1200.5", "1300"));
  EXPECT_EQ(compare({"-1"}, "0").at(0).text, tooLittle("-1", "0"));
  EXPECT_EQ(compare({"-1"}, "-2").at(0).text, tooMuch("-1", "-2"));
}

TEST_F(ItemDataListCheck, unitPartWithoutRowsLacksTheWholeQuantity) {
  EXPECT_EQ(compare({}, "4"),
            std::vector<Finding>({{"P_ITEMDATAQUANTITYLESSTHAN", 1, tooLittle("0", "4"), kLocation}}));
  EXPECT_EQ(compare({}, "0"), std::vector<Finding>());
}

TEST_F(ItemDataListCheck, quantityMessageHasNeitherEventsNorAction) {
  setQuantity("4");
  fill(*list, {"1 -1 '5'"});
  list->firstUnitIndex = 0;
  Findings findings;
  EXPECT_EQ(list->check(1, findings.list, "P"), 0);
  ASSERT_EQ(findings.list.no(), 1);
  EXPECT_EQ(findings.list[0]->getFirstEvent(), nullptr);
  EXPECT_EQ(findings.list[0]->getSecondEvent(), nullptr);
  EXPECT_EQ(findings.list[0]->getCheckAction(), nullptr);
  EXPECT_EQ(findings.list.getErrorCount(), 1);
  EXPECT_EQ(findings.list.getWarningCount(), 0);
}

TEST_F(ItemDataListCheck, listWithoutUnitPartIsNotCompared) {
  setQuantity("4");
  fill(*list, {"0 11 'a'", "1 -1 '5'"});
  list->firstUnitIndex = -1;
  Findings findings;
  list->check(1, findings.list, "P");
  EXPECT_EQ(findings.list.no(), 0);
}

TEST_F(ItemDataListCheck, closedDocumentsAndStatus102AreNotCompared) {
  setQuantity("4");
  fill(*list, {"0 11 ''", "1 -1 '5'"});
  list->firstUnitIndex = 1;
  struct Case {
    int status;
    bool closed;
    Lines keys;
  };
  const char* wanted = "P_ITEMDATAWANTED";
  const char* moreThan = "P_ITEMDATAQUANTITYMORETHAN";
  for (const Case& c :
       {Case{101, false, {moreThan, wanted}}, Case{151, true, {wanted}}, Case{102, false, {}}, Case{102, true, {}},
        Case{151, false, {moreThan, wanted}}, Case{101, true, {wanted}}, Case{202, false, {moreThan, wanted}},
        Case{401, false, {moreThan, wanted}}, Case{801, false, {moreThan, wanted}}}) {
    invoice.setStatus(c.status, c.closed);
    Findings findings;
    list->check(1, findings.list, "P");
    Lines keys;
    for (const Finding& finding : findings.all()) keys.push_back(finding.key);
    EXPECT_EQ(keys, c.keys) << c.status << " closed " << c.closed;
  }
}

TEST_F(ItemDataListCheck, prefixesAndDocumentsAreNoFormats) {
  setQuantity("4");
  invoice.setDisplayText("100%s");
  fill(*list, {"1 -1 '5'"});
  list->firstUnitIndex = 0;
  Findings findings;
  list->check(1, findings.list, "%d%s");
  EXPECT_EQ(findings.all(), std::vector<Finding>({{"%d%s_ITEMDATAQUANTITYMORETHAN", 1, tooMuch("5", "4"),
                                                   "Számla: Tételek listája\n[100%s]\n"}}));
}

// The default text domain is the host's.
TEST_F(ItemDataListCheck, quantityMessageIsInTheLanguageOfTheProgram) {
  const TextCatalogue catalogue(
      "messages",
      {{"Egyéb tételadatok: Az összmennyiség (%s) több, mint a tétellistában megadott (%s).", "%s > %s"},
       {"Egyéb tételadatok: Az összmennyiség (%s) kevesebb, mint a tétellistában megadott (%s).", "%s < %s"},
       {"Számla: Tételek listája\n[%s]\n", "Items of %s"}});
  EXPECT_EQ(compare({"2", "3"}, "4"),
            std::vector<Finding>({{"P_ITEMDATAQUANTITYMORETHAN", 1, "5 > 4", "Items of K-1"}}));
  EXPECT_EQ(compare({"1", "2"}, "4"),
            std::vector<Finding>({{"P_ITEMDATAQUANTITYLESSTHAN", 1, "3 < 4", "Items of K-1"}}));
}

// ---- the entries

TEST_F(ItemDataListCheck, quantityMessageComesBeforeThoseOfTheEntries) {
  setQuantity("4");
  fill(*list, {"0 11 ''", "0 12 ' '", "1 -1 '3'", "1 13 ''", "2 -1 ''", "2 13 'c'"});
  list->firstUnitIndex = 2;
  Findings findings;
  EXPECT_EQ(list->check(7, findings.list, "P"), 0);
  const std::string must = "A(z) 7. tételhez rögzíteni kell néhány egyéb adatot!\nMező neve:";
  const std::string may = "A(z) 7. tételhez lehet rögzíteni néhány egyéb adatot!\nMező neve:";
  EXPECT_EQ(findings.all(), std::vector<Finding>({{"P_ITEMDATAQUANTITYLESSTHAN", 1, tooLittle("3", "4"), kLocation},
                                                  {"P_ITEMDATAWANTED", 1, must + "A", kLocation},
                                                  {"P_ITEMDATAWANTED", 0, may + "B", kLocation},
                                                  {"P_ITEMDATAWANTED", 1, must + "C", kLocation},
                                                  {"P_ITEMDATAWANTED", 1, must + "Mennyiség", kLocation}}));
  EXPECT_EQ(findings.list.getErrorCount(), 5);
  EXPECT_EQ(findings.list.getWarningCount(), 0);
}

TEST_F(ItemDataListCheck, everyLiveEntryChecksItselfWithItsOwnPrefix) {
  Lines events;
  ItemDataList recorded(item, nullptr);
  for (const char* name : {"A", "B", "C"}) {
    auto* entry = new RecordingEntry(events, name, item);
    entry->pk = 1;
    entry->row = name[0] - 'A';
    recorded.append(entry);
  }
  recorded.FXObjectList::append(static_cast<FXObject*>(nullptr));
  recorded.at(1)->del = 1;
  Findings findings;
  recorded.check(3, findings.list, "P");
  EXPECT_EQ(events, Lines({"A: check 3 P", "C: check 3 P"}));
}

// ---- the rows of marked entries

TEST_F(ItemDataListCheck, unsavedEntriesOfMarkedRowsLeaveTheList) {
  setQuantity("1");
  fill(*list, {"1 -1 '1' #1", "2 -1 '' #2 marked", "2 13 'typed'", "3 13 '' marked", "3 -1 '5'"});
  list->firstUnitIndex = 0;
  Findings findings;
  list->check(1, findings.list, "P");
  EXPECT_EQ(lines(*list), Lines({"1 -1 '1' #1", "2 -1 '' #2 marked"}));
  EXPECT_EQ(list->lastRow, 2);
}

TEST_F(ItemDataListCheck, savedEntriesOfMarkedRowsAreMarked) {
  fill(*list, {"1 -1 '' #1 marked", "1 13 'c' #2", "2 13 'd' #3"});
  Findings findings;
  list->check(1, findings.list, "P");
  EXPECT_EQ(lines(*list), Lines({"1 -1 '' #1 marked", "1 13 '' #2 marked", "2 13 'd' #3"}));
  EXPECT_EQ(findings.list.no(), 0);
}

TEST_F(ItemDataListCheck, rowsAreDroppedAlsoOnClosedDocuments) {
  invoice.setStatus(151, true);
  fill(*list, {"1 -1 '' #1 marked", "1 13 'c'"});
  list->firstUnitIndex = 0;
  Findings findings;
  list->check(1, findings.list, "P");
  EXPECT_EQ(lines(*list), Lines({"1 -1 '' #1 marked"}));
}

TEST_F(ItemDataListCheck, quantitiesAreComparedBeforeRowsAreDropped) {
  setQuantity("4");
  fill(*list, {"1 -1 '4'", "1 13 '' marked"});
  list->firstUnitIndex = 0;
  Findings findings;
  list->check(1, findings.list, "P");
  EXPECT_EQ(findings.list.no(), 0);
  EXPECT_EQ(list->no(), 0);
}

TEST_F(ItemDataListCheck, perItemEntriesOfAMarkedOneAreDroppedToo) {
  fill(*list, {"0 11 'a'", "0 12 '' marked", "1 -1 '1'"});
  list->lastRow = 0;
  Findings findings;
  list->check(1, findings.list, "P");
  EXPECT_EQ(lines(*list), Lines({"1 -1 '1'"}));
  EXPECT_EQ(list->lastRow, -1);
}

TEST_F(ItemDataListCheck, lastRowFollowsTheRowsThatAreDropped) {
  struct Case {
    Lines entries;
    int lastRow;
  };
  for (const Case& c : {
           Case{{"1 -1 '1'", "2 -1 '1'", "3 -1 '' #1 marked"}, 2},
           Case{{"1 -1 '1'", "2 -1 '' #1 marked", "3 -1 '1'"}, 3},
           // In list order row 2 comes first, when row 3 is still the last.
           Case{{"1 -1 '1'", "2 -1 '' #1 marked", "3 -1 '' #2 marked"}, 2},
           // A second entry of row 2 comes after row 3.
           Case{{"2 -1 '' #1 marked", "3 -1 '' #2 marked", "2 13 'x' #3", "3 13 'y'"}, 1},
       }) {
    ItemDataList checked(item, nullptr);
    fill(checked, c.entries);
    Findings findings;
    checked.check(1, findings.list, "P");
    EXPECT_EQ(checked.lastRow, c.lastRow);
  }
}

TEST_F(ItemDataListCheck, everyDroppedEntryIsDeletedOnce) {
  Lines events;
  ItemDataList recorded(item, nullptr);
  for (int i = 0; i < 6; ++i) {
    auto* entry = new RecordingEntry(events, std::to_string(i).c_str(), item);
    entry->row = i / 2;
    entry->del = i == 3 || i == 4;
    recorded.append(entry);
  }
  Findings findings;
  recorded.check(1, findings.list, "P");
  EXPECT_EQ(std::multiset<std::string>(events.begin(), events.end()),
            std::multiset<std::string>(
                {"2: deleted", "3: deleted", "4: deleted", "5: deleted", "0: check 1 P", "1: check 1 P"}));
}

TEST_F(ItemDataListCheck, anyListLosesTheRowsOfMarkedEntriesOneByOneInListOrder) {
  std::mt19937 random(20240507);
  for (int round = 0; round < 5000; ++round) {
    const Lines entries = randomEntries(random);
    ItemDataList checked(item, nullptr);
    fill(checked, entries);
    RowModel model(entries);
    checked.lastRow = model.lastRow = static_cast<int>(random() % 7) - 1;
    Findings findings;
    checked.check(1, findings.list, "P");
    model.markRowsOfMarkedEntries();
    ASSERT_EQ(lines(checked), model.lines()) << "round " << round;
    ASSERT_EQ(checked.lastRow, model.lastRow) << "round " << round;
    // The list still finds its rows.
    const int row = static_cast<int>(random() % 6);
    checked.markRowForDelete(row);
    model.markRowForDelete(row);
    ASSERT_EQ(lines(checked), model.lines()) << "round " << round;
    ASSERT_EQ(checked.lastRow, model.lastRow) << "round " << round;
  }
}

TEST_F(ItemDataListCheck, dropsAndMarksThousandsOfRows) {
  constexpr int kRows = 5000;
  for (int row = 1; row <= kRows; ++row) {
    for (int column = 0; column < 2; ++column) {
      ItemDataEntry* entry = newEntry("1 13 'x'", item);
      entry->row = row;
      entry->del = column == 0;
      entry->pk = row % 2 ? row : 0;
      list->append(entry);
    }
  }
  Findings findings;
  list->check(1, findings.list, "P");
  EXPECT_EQ(list->no(), kRows);

  for (int row = kRows + 1; row <= 2 * kRows; ++row) {
    ItemDataEntry* entry = newEntry("1 13 'x'", item);
    entry->row = row;
    list->append(entry);
  }
  for (int row = 2 * kRows; row > kRows; --row) list->markRowForDelete(row);
  EXPECT_EQ(list->no(), kRows);
  EXPECT_EQ(list->lastRow, kRows);
  for (int row = 1; row <= kRows; ++row) list->markRowForDelete(row);
}

}  // namespace
}  // namespace Quillane::Plugin::ItemData
