// Tests of one recorded value, by means of the text kind where an entry of some kind is needed.
#include "itemdata/ItemDataEntry.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <memory>

#include "itemdata/ItemDataComboEntry.h"
#include "itemdata/ItemDataDateEntry.h"
#include "itemdata/ItemDataList.h"
#include "itemdata/ItemDataStringEntry.h"
#include "plugin/contract/Database.h"
#include "plugin/contract/XMLBuilder.h"
#include "tests/itemdata/ExpectedSql.h"
#include "tests/itemdata/ItemDataFixture.h"
#include "tests/itemdata/RecordingEntry.h"
#include "tests/itemdata/XmlLines.h"
#include "tests/plugin/TextCatalogue.h"

using namespace FX;

namespace Quillane::Plugin::ItemData {
namespace {

class ItemDataEntryMemory : public ItemDataTest {};

class ItemDataEntryDatabase : public ItemDataDatabaseTest {
 protected:
  ItemDataEntryDatabase() {
    define({{11, "Gyári szám"}, {12, "Szín", ItemDataEntry::TYPE_LIST, 0, 1, "piros,kék"}});
    storeInvoice(1, 101);
    storeItem(10, 1);
    executed();
  }

  std::unique_ptr<ItemDataEntry> entry(const std::string& line, Entity* owner) {
    return std::unique_ptr<ItemDataEntry>(newEntry(line, owner));
  }

  InvoiceItem* newDerivedItem(int source) {
    InvoiceItem* item = newItem();
    item->setOrigin(InvoiceItem::ORIGIN_DERIVING, source);
    return item;
  }
};

std::string state(const ItemDataEntry& entry) {
  return "'" + text(entry.value) + "' #" + std::to_string(entry.pk) + (entry.del ? " marked" : "");
}

// It is there before the first entry is made, so it goes after all that was made for entries.
ItemDataList keptToTheEnd;

TEST(ItemDataEntryDeathTest, entriesMayLiveUntilTheProgramEnds) {
  const auto makeManyAndEnd = [] {
    for (int i = 0; i < 3000; ++i) {
      keptToTheEnd.append(new ItemDataStringEntry);
      keptToTheEnd.at(i)->value = "a text that takes memory of its own";
    }
    std::exit(0);
  };
  EXPECT_EXIT(makeManyAndEnd(), testing::ExitedWithCode(0), "");
}

TEST_F(ItemDataEntryMemory, prototypeHasItsDefaults) {
  const ItemDataStringEntry entry;
  EXPECT_EQ(entry.pk, 0);
  EXPECT_EQ(entry.getOwner(), nullptr);
  EXPECT_EQ(text(entry.name), "");
  EXPECT_EQ(entry.itemvariable, 0);
  EXPECT_EQ(entry.type, 0);
  EXPECT_EQ(entry.process, 0);
  EXPECT_EQ(text(entry.vvalue), "");
  EXPECT_EQ(text(entry.value), "");
  EXPECT_EQ(entry.attached, nullptr);
  EXPECT_EQ(entry.row, 0);
  EXPECT_EQ(entry.del, 0);
}

TEST_F(ItemDataEntryMemory, keepsBeingMandatoryByDefault) { EXPECT_EQ(ItemDataStringEntry().mandatory, 1); }

// What is attached dies with the entry.
class Witness : public FXObject {
 public:
  explicit Witness(bool& gone) : flag(gone) {}
  ~Witness() override { flag = true; }

 private:
  bool& flag;
};

TEST_F(ItemDataEntryMemory, deletesWhatIsAttached) {
  bool gone = false;
  {
    ItemDataStringEntry entry;
    entry.attached = new Witness(gone);
    EXPECT_FALSE(gone);
  }
  EXPECT_TRUE(gone);
}

TEST_F(ItemDataEntryMemory, givesItsValueAsItIs) {
  for (const char* value : {"", " ", "0", "árvíztűrő", "a,b\nc"}) {
    ItemDataDateEntry entry;
    entry.value = value;
    EXPECT_EQ(text(entry.getValue()), value);
    EXPECT_EQ(text(entry.getPrintableText()), value);
  }
}

TEST_F(ItemDataEntryMemory, markingEmptiesTheValueAndSetsTheFlag) {
  std::unique_ptr<ItemDataEntry> entry(newEntry("3 11 'abc' #7", newItem(10)));
  entry->markForDelete(1);
  EXPECT_EQ(state(*entry), "'' #7 marked");
  entry->value = "typed again";
  entry->markForDelete(0);
  EXPECT_EQ(state(*entry), "'' #7");
  EXPECT_EQ(entry->row, 3);
}

TEST_F(ItemDataEntryMemory, statusAndQuantityChangesLeaveItAsItIs) {
  std::unique_ptr<ItemDataEntry> entry(newEntry("3 11 'abc' #7", newItem(10)));
  const std::string before = text(entry->toDebugString());
  entry->setStatus(102);
  entry->onQuantityChanged("5");
  EXPECT_EQ(text(entry->toDebugString()), before);
}

TEST_F(ItemDataEntryMemory, debugStringNamesEveryField) {
  ItemDataStringEntry entry;
  entry.pk = 7;
  entry.name = "Gyári szám";
  entry.itemvariable = 11;
  entry.type = 1;
  entry.process = 1;
  entry.vvalue = "a,b";
  entry.value = "100%s";
  entry.row = 3;
  entry.del = 1;
  char expected[300];
  std::snprintf(expected, sizeof(expected),
                "ItemDataEntry@%p: pk: 7, name: Gyári szám, itemvariable: 11, type:1, mandatory:1, process: 1, "
                "vvalue:a,b, value: 100%%s, row: 3, del: 1 ",
                static_cast<void*>(&entry));
  EXPECT_EQ(text(entry.toDebugString()), expected);
}

TEST_F(ItemDataEntryMemory, quantityIsThatOfItsRowInTheItemsList) {
  ItemDataList* list = attach(newItem());
  fill(*list, {"0 11 'x'", "1 -1 '2'", "1 13 'a'", "2 -1 '3.50'", "2 13 'b'"});
  EXPECT_EQ(text(list->at(2)->getQuantity().toString()), "2");
  EXPECT_EQ(text(list->at(4)->getQuantity().toString()), "3.5");
  EXPECT_EQ(list->at(4)->getQuantity().precision, 4);
  EXPECT_EQ(text(list->at(0)->getQuantity().toString()), "0");
}

TEST_F(ItemDataEntryMemory, quantityIsAnUnsetZeroWithoutItemData) {
  std::unique_ptr<ItemDataEntry> entry(newEntry("1 13 'a'", newItem()));
  EXPECT_EQ(text(entry->getQuantity().toString()), "0");
  EXPECT_EQ(entry->getQuantity().unset, 1);
  EXPECT_EQ(entry->getQuantity().precision, 2);
  EXPECT_EQ(ItemDataStringEntry().getQuantity().unset, 1);
}

// ---- table cells

TEST_F(ItemDataEntryMemory, tableCellShowsTheValueAndIsBoundToTheEntry) {
  std::unique_ptr<ItemDataEntry> entry(newEntry("1 13 'abc'", newItem()));
  std::unique_ptr<FXTableItem> cell(entry->getTableItem());
  auto* bound = dynamic_cast<ItemDataEntryTableItem*>(cell.get());
  ASSERT_NE(bound, nullptr);
  EXPECT_EQ(bound->entry, entry.get());
  EXPECT_EQ(cell->getData(), entry.get());
  EXPECT_EQ(text(cell->getText()), "abc");
  EXPECT_EQ(cell->getJustify() & (FXTableItem::LEFT | FXTableItem::RIGHT), static_cast<FXuint>(FXTableItem::LEFT));
  EXPECT_EQ(cell->getIcon(), nullptr);
  EXPECT_EQ(text(entry->value), "abc");
}

TEST_F(ItemDataEntryMemory, textOfTheTableCellBecomesTheValue) {
  for (const char* typed : {"", "0", "új érték", "a\tb"}) {
    std::unique_ptr<ItemDataEntry> entry(newEntry("1 13 'abc'", newItem()));
    std::unique_ptr<FXTableItem> cell(entry->getTableItem());
    cell->setText(typed);
    EXPECT_EQ(text(cell->getText()), typed);
    EXPECT_EQ(text(entry->value), typed);
  }
}

// Shows and stores something else than its value, as kinds may.
class ShoutingEntry : public ItemDataStringEntry {
 public:
  FXString getValue() const override { return value + "!"; }
};

TEST_F(ItemDataEntryMemory, tableCellStartsWithWhatGetValueGives) {
  ShoutingEntry entry;
  entry.value = "abc";
  std::unique_ptr<FXTableItem> cell(entry.getTableItem());
  EXPECT_EQ(text(cell->getText()), "abc!");
  EXPECT_EQ(text(entry.value), "abc!");
}

TEST_F(ItemDataEntryMemory, eachTableCellIsNew) {
  std::unique_ptr<ItemDataEntry> entry(newEntry("1 13 'abc'", newItem()));
  std::unique_ptr<FXTableItem> first(entry->getTableItem());
  std::unique_ptr<FXTableItem> second(entry->getTableItem());
  EXPECT_NE(first.get(), second.get());
}

// ---- check

constexpr const char* kRequired = "A(z) 3. tételhez rögzíteni kell néhány egyéb adatot!\nMező neve:Gyári szám";
constexpr const char* kPossible = "A(z) 3. tételhez lehet rögzíteni néhány egyéb adatot!\nMező neve:Gyári szám";
constexpr const char* kLocation = "Számla: Tételek listája\n[K-1]\n";

TEST_F(ItemDataEntryMemory, missingMandatoryValueIsAnError) {
  declare({{11, "Gyári szám", ItemDataEntry::TYPE_TEXT, 0, 1}});
  std::unique_ptr<ItemDataEntry> entry(newEntry("0 11 ''", newItem(10)));
  Findings findings;
  entry->check(3, findings.list, "SZAMLA");
  EXPECT_EQ(findings.all(), std::vector<Finding>({{"SZAMLA_ITEMDATAWANTED", 1, kRequired, kLocation}}));
  EXPECT_EQ(findings.list.getErrorCount(), 1);
  EXPECT_EQ(findings.list.getWarningCount(), 0);
}

TEST_F(ItemDataEntryMemory, missingOptionalValueIsANotice) {
  declare({{11, "Gyári szám", ItemDataEntry::TYPE_TEXT, 0, 0}});
  std::unique_ptr<ItemDataEntry> entry(newEntry("0 11 ''", newItem(10)));
  Findings findings;
  entry->check(3, findings.list, "SZAMLA");
  EXPECT_EQ(findings.all(), std::vector<Finding>({{"SZAMLA_ITEMDATAWANTED", 0, kPossible, kLocation}}));
}

TEST_F(ItemDataEntryMemory, keepsCountingANoticeInTheFirstCounter) {
  declare({{11, "Gyári szám", ItemDataEntry::TYPE_TEXT, 0, 0}});
  std::unique_ptr<ItemDataEntry> entry(newEntry("0 11 ''", newItem(10)));
  Findings findings;
  entry->check(3, findings.list, "SZAMLA");
  EXPECT_EQ(findings.list.getErrorCount(), 1);
  EXPECT_EQ(findings.list.getWarningCount(), 0);
}

TEST_F(ItemDataEntryMemory, findingHasNeitherEventsNorAction) {
  std::unique_ptr<ItemDataEntry> entry(newEntry("0 11 ''", newItem(10)));
  Findings findings;
  entry->check(1, findings.list, "P");
  ASSERT_EQ(findings.list.no(), 1);
  EXPECT_EQ(findings.list[0]->getFirstEvent(), nullptr);
  EXPECT_EQ(findings.list[0]->getSecondEvent(), nullptr);
  EXPECT_EQ(findings.list[0]->getCheckAction(), nullptr);
}

TEST_F(ItemDataEntryMemory, onlyStatus102NeverAsksForItemData) {
  for (const int status : {0, 101, 102, 151, 152, 201, 202, 251, 252, 401, 451, 452, 801}) {
    for (const int mandatory : {0, 1}) {
      declare({{11, "Gyári szám", ItemDataEntry::TYPE_TEXT, 0, mandatory}});
      std::unique_ptr<ItemDataEntry> entry(newEntry("0 11 ''", newItem(10)));
      invoice.setStatus(status, false);
      Findings findings;
      entry->check(3, findings.list, "P");
      EXPECT_EQ(findings.list.no(), status == 102 ? 0 : 1) << status << " mandatory " << mandatory;
    }
  }
}

TEST_F(ItemDataEntryMemory, findingsOfDocumentsThatTakeTurnsNameTheirOwn) {
  std::unique_ptr<ItemDataEntry> entry(newEntry("0 11 ''", newItem(10)));
  for (const char* document : {"K-1", "K-2", "K-1", "", "K-12"}) {
    invoice.setDisplayText(document);
    Findings findings;
    entry->check(3, findings.list, "P");
    ASSERT_EQ(findings.list.no(), 1);
    EXPECT_EQ(text(findings.list[0]->getLocation()), "Számla: Tételek listája\n[" + std::string(document) + "]\n");
  }
}

TEST_F(ItemDataEntryMemory, longNamesAreReportedWhole) {
  for (const int length : {400, 450, 500, 5000}) {
    const std::string name(length, 'x');
    declare({{11, name.c_str(), ItemDataEntry::TYPE_TEXT, 0, 1}});
    invoice.setDisplayText(name.c_str());
    std::unique_ptr<ItemDataEntry> entry(newEntry("0 11 ''", newItem(10)));
    Findings findings;
    entry->check(3, findings.list, "P");
    EXPECT_EQ(findings.all(),
              std::vector<Finding>(
                  {{"P_ITEMDATAWANTED", 1, "A(z) 3. tételhez rögzíteni kell néhány egyéb adatot!\nMező neve:" + name,
                    "Számla: Tételek listája\n[" + name + "]\n"}}));
  }
}

TEST_F(ItemDataEntryMemory, anyTextIsAValue) {
  for (const char* value : {" ", "0", "x", "\n"}) {
    std::unique_ptr<ItemDataEntry> entry(newEntry("0 11 ''", newItem(10)));
    entry->value = value;
    Findings findings;
    entry->check(3, findings.list, "P");
    EXPECT_EQ(findings.list.no(), 0) << "'" << value << "'";
  }
}

TEST_F(ItemDataEntryMemory, checkAsksGetValueWhetherThereIsAValue) {
  declare({{12, "Szín", ItemDataEntry::TYPE_LIST, 0, 1, "piros,kék"}});
  std::unique_ptr<ItemDataEntry> blank(newEntry("0 12 ' '", newItem(10)));
  Findings findings;
  blank->check(3, findings.list, "P");
  EXPECT_EQ(findings.texts(), Lines({"A(z) 3. tételhez rögzíteni kell néhány egyéb adatot!\nMező neve:Szín"}));
}

TEST_F(ItemDataEntryMemory, namesAndPrefixesAreNoFormats) {
  declare({{11, "100%s %n %d", ItemDataEntry::TYPE_TEXT, 0, 1}});
  invoice.setDisplayText("%s/%d");
  std::unique_ptr<ItemDataEntry> entry(newEntry("0 11 ''", newItem(10)));
  Findings findings;
  entry->check(12, findings.list, "%d%s");
  EXPECT_EQ(findings.all(),
            std::vector<Finding>({{"%d%s_ITEMDATAWANTED", 1,
                                   "A(z) 12. tételhez rögzíteni kell néhány egyéb adatot!\nMező neve:100%s %n %d",
                                   "Számla: Tételek listája\n[%s/%d]\n"}}));
}

// The default text domain is the host's.
TEST_F(ItemDataEntryMemory, findingIsInTheLanguageOfTheProgramAndTheFieldsNameAsItIs) {
  const TextCatalogue catalogue(
      "messages", {{"A(z) %d. tételhez rögzíteni kell néhány egyéb adatot!\nMező neve:%s", "Item %d must have %s."},
                   {"A(z) %d. tételhez lehet rögzíteni néhány egyéb adatot!\nMező neve:%s", "Item %d may have %s."},
                   {"Számla: Tételek listája\n[%s]\n", "Items of %s"},
                   {"Gyári szám", "a translated name"}});
  Findings findings;
  for (const int mandatory : {1, 0}) {
    declare({{11, "Gyári szám", ItemDataEntry::TYPE_TEXT, 0, mandatory}});
    std::unique_ptr<ItemDataEntry>(newEntry("0 11 ''", newItem(10)))->check(3, findings.list, "P");
  }
  EXPECT_EQ(findings.all(),
            std::vector<Finding>({{"P_ITEMDATAWANTED", 1, "Item 3 must have Gyári szám.", "Items of K-1"},
                                  {"P_ITEMDATAWANTED", 0, "Item 3 may have Gyári szám.", "Items of K-1"}}));
}

// ---- XML

TEST_F(ItemDataEntryMemory, xmlElementCarriesRowNameAndValue) {
  declare({{11, "Gyári szám"}});
  XMLBuilder::Document document("urn:test", "root");
  document.addNamespace("itemdata", "urn:quillane:plugin:itemdata");
  std::unique_ptr<ItemDataEntry>(newEntry("0 11 'abc'", newItem()))->toXml(document.getRoot());
  std::unique_ptr<ItemDataEntry>(newEntry("12 -1 '3'", newItem()))->toXml(document.getRoot());
  EXPECT_EQ(xmlLines(document), Lines({"{urn:test}root",
                                       "  {urn:quillane:plugin:itemdata}itemdata row=0 "
                                       "name=Gyári szám 'abc'",
                                       "  {urn:quillane:plugin:itemdata}itemdata row=12 name=Mennyiség '3'"}));
}

TEST_F(ItemDataEntryMemory, keepsTheStoredValueInXmlWhereGetValueGivesAnother) {
  ShoutingEntry entry;
  entry.name = "N";
  entry.value = "abc";
  XMLBuilder::Document document("urn:test", "root");
  entry.toXml(document.getRoot());
  EXPECT_EQ(xmlLines(document),
            Lines({"{urn:test}root", "  {urn:quillane:plugin:itemdata}itemdata row=0 name=N 'abc'"}));
}

// ---- loading

TEST_F(ItemDataEntryDatabase, storedItemLoadsItsOwnRow) {
  storeValues(10, {"0 11 'abc' #7"});
  auto loaded = entry("0 11 ''", newItem(10));
  EXPECT_EQ(loaded->load(db()), 0);
  EXPECT_EQ(state(*loaded), "'abc' #7");
  EXPECT_EQ(executed(), Lines({call(kLoadSql, "t_itemvariable_1='11', t_invoiceitem_1='10', row='0'")}));
}

TEST_F(ItemDataEntryDatabase, onlyTheRowOfItemVariableAndRowIsLoaded) {
  storeItem(20, 1);
  storeValues(10, {"1 11 'right' #7", "2 11 'other row' #8", "1 12 'other variable' #9", "1 0 'no variable' #10"});
  storeValues(20, {"1 11 'other item' #11"});
  auto loaded = entry("1 11 ''", newItem(10));
  loaded->load(db());
  EXPECT_EQ(state(*loaded), "'right' #7");
}

TEST_F(ItemDataEntryDatabase, entryWithoutVariableLoadsTheRowWithoutVariable) {
  storeValues(10, {"1 11 'other' #6", "1 0 'abc' #7"});
  auto loaded = entry("1 0 ''", newItem(10));
  EXPECT_EQ(loaded->load(db()), 0);
  EXPECT_EQ(state(*loaded), "'abc' #7");
  EXPECT_EQ(executed(), Lines({call(kLoadWithoutVariableSql, "t_invoiceitem_1='10', row='1'")}));
}

TEST_F(ItemDataEntryDatabase, quantityOfAStoredItemIsLoadedLikeAnyValue) {
  storeValues(10, {"1 -1 '5' #7"});
  auto loaded = entry("1 -1 ''", newItem(10));
  loaded->load(db());
  EXPECT_EQ(state(*loaded), "'5' #7");
  EXPECT_EQ(executed(), Lines({call(kLoadSql, "t_itemvariable_1='-1', t_invoiceitem_1='10', row='1'")}));
}

TEST_F(ItemDataEntryDatabase, itemBeingDerivedTakesTheSourcesValueWithoutKey) {
  storeValues(10, {"2 11 'abc' #7"});
  auto loaded = entry("2 11 'before' #99", newDerivedItem(10));
  EXPECT_EQ(loaded->load(db()), 0);
  EXPECT_EQ(state(*loaded), "'abc' #0");
  EXPECT_EQ(executed(), Lines({call(kCopySql, "t_itemvariable_1='11', t_invoiceitem_1='10', row='2'")}));
}

TEST_F(ItemDataEntryDatabase, itemBeingDerivedTakesTheSourcesValueWithoutVariable) {
  storeValues(10, {"2 0 'abc' #7"});
  auto loaded = entry("2 0 ''", newDerivedItem(10));
  loaded->load(db());
  EXPECT_EQ(state(*loaded), "'abc' #0");
  EXPECT_EQ(executed(), Lines({call(kCopyWithoutVariableSql, "t_invoiceitem_1='10', row='2'")}));
}

TEST_F(ItemDataEntryDatabase, quantityOfAnItemBeingDerivedIsAskedForByTheRemainingQuantity) {
  storeValues(10, {"1 -1 '5' #7"});
  auto loaded = entry("1 -1 ''", newDerivedItem(10));
  EXPECT_EQ(loaded->load(db()), 0);
  EXPECT_EQ(state(*loaded), "'5' #0");
  EXPECT_EQ(executed(), Lines({call(kRemainingQuantitySql,
                                    "closed='151', storno='152', t_itemvariable_1='-1', t_invoiceitem_1='10', "
                                    "row='1'")}));
}

TEST_F(ItemDataEntryDatabase, onlyAnUnstoredItemInModeOneWithASourceCopies) {
  struct Case {
    int id, mode, source;
    const char* expected;  // the item whose row is read, and how
  };
  for (const Case& c : {Case{0, 1, 10, "copy 10"}, Case{0, 1, 0, "own 0"}, Case{0, 0, 10, "own 0"},
                        Case{0, 2, 10, "own 0"}, Case{20, 2, 10, "own 20"}, Case{20, 0, 0, "own 20"}}) {
    for (const int variable : {-1, 11, 0}) {
      InvoiceItem* item = newItem(c.id);
      item->setOrigin(c.mode, c.source);
      entry("1 " + std::to_string(variable) + " ''", item)->load(db());
      const bool copies = std::string(c.expected) == "copy 10";
      const char* sql = copies ? (variable == -1 ? kRemainingQuantitySql
                                  : variable     ? kCopySql
                                                 : kCopyWithoutVariableSql)
                               : (variable ? kLoadSql : kLoadWithoutVariableSql);
      std::string bindings = copies && variable == -1 ? "closed='151', storno='152', " : "";
      if (variable) bindings += "t_itemvariable_1='" + std::to_string(variable) + "', ";
      bindings += "t_invoiceitem_1='" + std::to_string(copies ? 10 : c.id) + "', row='1'";
      EXPECT_EQ(executed(), Lines({call(sql, bindings)})) << c.id << " " << c.mode << " " << c.source;
    }
  }
}

TEST_F(ItemDataEntryDatabase, keepsLoadingItsOwnRowsWhenAnItemBeingDerivedHasAnId) {
  storeItem(20, 1);
  storeValues(10, {"1 11 'source' #7"});
  storeValues(20, {"1 11 'own' #8"});
  InvoiceItem* item = newDerivedItem(10);
  item->setId(20);
  auto loaded = entry("1 11 ''", item);
  loaded->load(db());
  EXPECT_EQ(state(*loaded), "'own' #8");
  EXPECT_EQ(executed(), Lines({call(kLoadSql, "t_itemvariable_1='11', t_invoiceitem_1='20', row='1'")}));
}

TEST_F(ItemDataEntryDatabase, valueAndKeyStayWhenThereIsNoRow) {
  auto loaded = entry("1 11 'kept' #7", newItem(10));
  EXPECT_EQ(loaded->load(db()), 0);
  EXPECT_EQ(state(*loaded), "'kept' #7");
}

TEST_F(ItemDataEntryDatabase, valueAndKeyStayWhenTheSourceHasNoSuchRow) {
  for (const int variable : {-1, 11, 0}) {
    auto loaded = entry("1 " + std::to_string(variable) + " 'kept' #7", newDerivedItem(10));
    loaded->load(db());
    EXPECT_EQ(state(*loaded), "'kept' #7") << variable;
  }
}

TEST_F(ItemDataEntryDatabase, storedNullIsAnEmptyValue) {
  run("insert into t_invoiceitemdata (t_invoiceitemdata_id, t_itemvariable_1, t_invoiceitem_1, row, value) "
      "values (7, 11, 10, 1, NULL)");
  auto loaded = entry("1 11 'before'", newItem(10));
  loaded->load(db());
  EXPECT_EQ(state(*loaded), "'' #7");
}

TEST_F(ItemDataEntryDatabase, loadMarksTheDocumentWhetherOrNotARowWasFound) {
  storeValues(10, {"1 11 'abc' #7"});
  for (const int row : {1, 2}) {
    invoice.setLoadMark(0);
    entry(std::to_string(row) + " 11 ''", newItem(10))->load(db());
    EXPECT_EQ(invoice.getLoadMark(), 1) << row;
  }
}

// ---- the remaining quantity of a derived item

struct Taken {
  int status;
  const char* quantity;
  int row = 1;
  int variable = -1;
};

struct RemainingCase {
  const char* sentence;
  const char* source;
  std::vector<Taken> taken;
  const char* remaining;
};

void PrintTo(const RemainingCase& c, std::ostream* out) { *out << c.sentence; }

class RemainingQuantity : public ItemDataDatabaseTest, public ::testing::WithParamInterface<RemainingCase> {};

TEST_P(RemainingQuantity, isWhatClosedDocumentsLeft) {
  define({{11, "A"}});
  storeInvoice(1, 451);
  storeItem(10, 1);
  storeItem(11, 1);  // a neighbour, from which another document took everything
  storeValues(10, {std::string("1 -1 '") + GetParam().source + "'"});
  storeValues(11, {"1 -1 '9'"});
  storeInvoice(2, 151);
  storeItem(20, 2, 11);
  storeValues(20, {"1 -1 '9'"});
  int id = 100;
  for (const Taken& taken : GetParam().taken) {
    storeInvoice(id, taken.status);
    storeItem(id, id, 10);
    storeValues(id, {std::to_string(taken.row) + " " + std::to_string(taken.variable) + " '" + taken.quantity + "'"});
    ++id;
  }
  InvoiceItem* item = newItem();
  item->setOrigin(InvoiceItem::ORIGIN_DERIVING, 10);
  std::unique_ptr<ItemDataEntry> loaded(newEntry("1 -1 ''", item));
  loaded->load(db());
  EXPECT_EQ(state(*loaded), std::string("'") + GetParam().remaining + "' #0");
}

INSTANTIATE_TEST_SUITE_P(
    cases, RemainingQuantity,
    ::testing::Values(
        RemainingCase{"nothing was taken", "5", {}, "5"}, RemainingCase{"a part was taken", "5", {{151, "2"}}, "3"},
        RemainingCase{"two parts were taken", "5", {{151, "2"}, {151, "1"}}, "2"},
        RemainingCase{"all was taken", "5", {{151, "2"}, {151, "3"}}, "0"},
        RemainingCase{"more than all was taken", "5", {{151, "7"}}, "-2"},
        RemainingCase{"one of two parts was cancelled", "5", {{151, "2"}, {151, "3"}, {152, "3"}}, "3"},
        RemainingCase{"the only part was cancelled", "5", {{151, "2"}, {152, "2"}}, "5"},
        RemainingCase{"fractions leave nothing", "0.3", {{151, "0.1"}, {151, "0.2"}}, "0"},
        RemainingCase{"fractions leave a fraction", "1.5", {{151, "0.25"}}, "1.25"},
        RemainingCase{"drafts take nothing", "5", {{101, "1"}, {102, "1"}, {401, "1"}}, "5"},
        RemainingCase{
            "incoming and delivery notes take nothing", "5", {{251, "1"}, {252, "1"}, {451, "1"}, {452, "1"}}, "5"},
        RemainingCase{"other rows take nothing", "5", {{151, "2", 2}}, "5"},
        RemainingCase{"other variables take nothing", "5", {{151, "2", 1, 11}}, "5"}));

class RemainingQuantityOdd : public RemainingQuantity {};

TEST_P(RemainingQuantityOdd, keepsCancelledQuantitiesOutWithoutClosedOnesInTheRow) {
  storeInvoice(1, 451);
  storeItem(10, 1);
  storeValues(10, {std::string("1 -1 '") + GetParam().source + "'"});
  int id = 100;
  for (const Taken& taken : GetParam().taken) {
    storeInvoice(id, taken.status);
    storeItem(id, id, 10);
    storeValues(id, {std::to_string(taken.row) + " -1 '" + taken.quantity + "'"});
    ++id;
  }
  InvoiceItem* item = newItem();
  item->setOrigin(InvoiceItem::ORIGIN_DERIVING, 10);
  std::unique_ptr<ItemDataEntry> loaded(newEntry("1 -1 ''", item));
  loaded->load(db());
  EXPECT_EQ(text(loaded->value), GetParam().remaining);
}

INSTANTIATE_TEST_SUITE_P(cases, RemainingQuantityOdd,
                         ::testing::Values(RemainingCase{"cancelled alone", "5", {{152, "2"}}, "5"},
                                           RemainingCase{
                                               "closed in another row", "5", {{151, "3", 2}, {152, "2"}}, "5"}));

// ---- saving

constexpr const char* kInsertSql =
    "insert into t_invoiceitemdata (t_itemvariable_1, t_invoiceitem_1, value, row) values (%t_itemvariable_1, "
    "%t_invoiceitem_1, %value, %row)";
constexpr const char* kUpdateSql =
    "update t_invoiceitemdata set t_itemvariable_1=%t_itemvariable_1, t_invoiceitem_1=%t_invoiceitem_1, value=%value, "
    "row=%row where t_invoiceitemdata_id=%t_invoiceitemdata_id";

TEST_F(ItemDataEntryDatabase, newEntryIsInserted) {
  auto saved = entry("1 11 'abc'", newItem(10));
  EXPECT_EQ(saved->save(db()), 0);
  EXPECT_EQ(executed(), Lines({call(kInsertSql, "t_itemvariable_1='11', t_invoiceitem_1='10', value='abc', row='1'")}));
  EXPECT_EQ(storedValues(), Lines({"10: 1 11 'abc'"}));
}

TEST_F(ItemDataEntryDatabase, newEntryWithoutVariableStoresNull) {
  auto saved = entry("1 0 'abc'", newItem(10));
  EXPECT_EQ(saved->save(db()), 0);
  EXPECT_EQ(executed(), Lines({call("insert into t_invoiceitemdata (t_invoiceitem_1, value, row) values "
                                    "(%t_invoiceitem_1, %value, %row)",
                                    "t_invoiceitem_1='10', value='abc', row='1'")}));
  EXPECT_EQ(storedValues(), Lines({"10: 1 NULL 'abc'"}));
  auto loaded = entry("1 0 ''", newItem(10));
  loaded->load(db());
  EXPECT_EQ(text(loaded->value), "abc");
}

TEST_F(ItemDataEntryDatabase, storedEntryIsUpdated) {
  storeValues(10, {"1 11 'before' #7", "2 11 'other' #8"});
  auto saved = entry("3 12 'after' #7", newItem(10));
  EXPECT_EQ(saved->save(db()), 0);
  EXPECT_EQ(executed(), Lines({call(kUpdateSql,
                                    "t_invoiceitemdata_id='7', t_itemvariable_1='12', "
                                    "t_invoiceitem_1='10', value='after', row='3'")}));
  EXPECT_EQ(storedValuesWithKeys(), Lines({"10: 3 12 'after' #7", "10: 2 11 'other' #8"}));
}

TEST_F(ItemDataEntryDatabase, updateWithoutVariableLeavesTheStoredVariable) {
  storeValues(10, {"1 11 'before' #7"});
  auto saved = entry("1 0 'after' #7", newItem(10));
  saved->save(db());
  EXPECT_EQ(executed(), Lines({call("update t_invoiceitemdata set t_invoiceitem_1=%t_invoiceitem_1, value=%value, "
                                    "row=%row where t_invoiceitemdata_id=%t_invoiceitemdata_id",
                                    "t_invoiceitemdata_id='7', t_invoiceitem_1='10', value='after', row='1'")}));
  EXPECT_EQ(storedValuesWithKeys(), Lines({"10: 1 11 'after' #7"}));
}

TEST_F(ItemDataEntryDatabase, markedStoredEntryIsDeleted) {
  storeValues(10, {"1 11 'abc' #7", "2 11 'other' #8"});
  auto saved = entry("1 11 'abc' #7", newItem(10));
  saved->markForDelete(1);
  EXPECT_EQ(saved->save(db()), 0);
  EXPECT_EQ(executed(), Lines({call("delete from t_invoiceitemdata where t_invoiceitemdata_id=%t_invoiceitemdata_id",
                                    "t_invoiceitemdata_id='7'")}));
  EXPECT_EQ(storedValuesWithKeys(), Lines({"10: 2 11 'other' #8"}));
}

TEST_F(ItemDataEntryDatabase, markedEntryThatWasNeverStoredIsNotSaved) {
  auto saved = entry("1 11 'abc'", newItem(10));
  saved->markForDelete(1);
  EXPECT_EQ(saved->save(db()), 0);
  EXPECT_EQ(executed(), Lines());
  EXPECT_EQ(storedValues(), Lines());
}

TEST_F(ItemDataEntryDatabase, keepsKeyZeroAfterSave) {
  auto saved = entry("1 11 'abc'", newItem(10));
  saved->save(db());
  EXPECT_EQ(saved->pk, 0);
}

TEST_F(ItemDataEntryDatabase, keepsInsertingANewEntryAsOftenAsItIsSaved) {
  auto saved = entry("1 11 'abc'", newItem(10));
  saved->save(db());
  saved->save(db());
  EXPECT_EQ(storedValues(), Lines({"10: 1 11 'abc'", "10: 1 11 'abc'"}));
}

TEST_F(ItemDataEntryDatabase, storesWhatGetValueGives) {
  entry("1 12 ' '", newItem(10))->save(db());
  entry("1 11 ' '", newItem(10))->save(db());
  EXPECT_EQ(storedValues(), Lines({"10: 1 12 ''", "10: 1 11 ' '"}));
}

TEST_F(ItemDataEntryDatabase, zeroIsSavedByTheEntryItself) {
  entry("1 11 '0'", newItem(10))->save(db());
  EXPECT_EQ(storedValues(), Lines({"10: 1 11 '0'"}));
}

TEST_F(ItemDataEntryDatabase, returnsZeroAlsoWhenTheDatabaseRefuses) {
  EXPECT_EQ(entry("1 11 'abc'", newItem(999))->save(db()), 0);
  EXPECT_EQ(entry("1 777 'abc'", newItem(10))->save(db()), 0);
  EXPECT_EQ(entry("1 11 'abc' #999", newItem(10))->save(db()), 0);
  EXPECT_EQ(storedValues(), Lines());
}

TEST_F(ItemDataEntryDatabase, refusedStatementFailsTheTransaction) {
  ASSERT_TRUE(db()->begin());
  entry("1 11 'first'", newItem(10))->save(db());
  entry("1 777 'refused'", newItem(10))->save(db());
  EXPECT_FALSE(db()->commit());
  EXPECT_EQ(storedValues(), Lines());
}

TEST_F(ItemDataEntryDatabase, everyStatementThatCannotRunFailsTheTransaction) {
  struct Case {
    const char* sentence;
    bool derived;
    const char* entry;
    int (ItemDataEntry::*operation)(TarnwellDatabase*);
  };
  for (const Case& c : {Case{"load", false, "1 11 ''", &ItemDataEntry::load},
                        Case{"load without variable", false, "1 0 ''", &ItemDataEntry::load},
                        Case{"copy", true, "1 11 ''", &ItemDataEntry::load},
                        Case{"copy without variable", true, "1 0 ''", &ItemDataEntry::load},
                        Case{"remaining quantity", true, "1 -1 ''", &ItemDataEntry::load},
                        Case{"insert", false, "1 11 'abc'", &ItemDataEntry::save},
                        Case{"update", false, "1 11 'abc' #7", &ItemDataEntry::save},
                        Case{"delete", false, "1 11 '' #7 marked", &ItemDataEntry::save}}) {
    ASSERT_TRUE(db()->begin());
    run("drop table t_invoiceitemdata");
    auto refused = entry(c.entry, c.derived ? newDerivedItem(10) : newItem(10));
    EXPECT_EQ((refused.get()->*c.operation)(db()), 0) << c.sentence;
    EXPECT_FALSE(db()->commit()) << c.sentence;
  }
}

TEST_F(ItemDataEntryDatabase, anyTextIsStoredAndLoadedByteByByte) {
  const std::string large(100 * 1000, 'x');
  for (const std::string& value :
       {std::string("O'Brien \"x\" `y`"), std::string("%t_invoiceitem_1 %value %s %%"),
        std::string("'; drop table x;--"), std::string("back\\slash \\n"), std::string("a\nb\r\nc\td"),
        std::string("😀 árvíztűrő tükörfúrógép"), std::string("\xff\xfe broken \xc3"), std::string(" "),
        std::string("?1 :a @b $c"), large}) {
    auto saved = entry("5 11 ''", newItem(10));
    saved->value = FXString(value.data(), static_cast<FXint>(value.size()));
    saved->save(db());
    auto loaded = entry("5 11 ''", newItem(10));
    loaded->load(db());
    EXPECT_TRUE(text(loaded->value) == value) << value.substr(0, 100);
    EXPECT_GT(loaded->pk, 0);
    loaded->value += "!";
    loaded->save(db());
    auto again = entry("5 11 ''", newItem(10));
    again->load(db());
    EXPECT_TRUE(text(again->value) == value + "!") << value.substr(0, 100);
    EXPECT_EQ(again->pk, loaded->pk);
    again->markForDelete(1);
    again->save(db());
    EXPECT_EQ(storedValues(), Lines());
  }
}

}  // namespace
}  // namespace Quillane::Plugin::ItemData
