// Tests of what a list takes from the database: the assigned variables, the stored values, and those of a source item.
#include <gtest/gtest.h>

#include <memory>

#include "itemdata/ItemDataComboEntry.h"
#include "itemdata/ItemDataList.h"
#include "plugin/contract/Database.h"
#include "tests/itemdata/ExpectedSql.h"
#include "tests/itemdata/ItemDataFixture.h"

using namespace FX;

namespace Quillane::Plugin::ItemData {
namespace {

constexpr int kProduct = InvoiceItem::ARTICLE_PRODUCT;
constexpr int kService = InvoiceItem::ARTICLE_SERVICE;
constexpr int kSuite = InvoiceItem::ARTICLE_SUITE;

class ItemDataListLoad : public ItemDataDatabaseTest {
 protected:
  ItemDataListLoad() {
    define({{11, "A"},
            {12, "B", ItemDataEntry::TYPE_LIST, 0, 0, "piros,kék"},
            {13, "C", ItemDataEntry::TYPE_TEXT, 1},
            {14, "D", ItemDataEntry::TYPE_LIST, 1, 0, "x,y"}});
    storeInvoice(1, 101);
    storeItem(10, 1);
    executed();
  }

  InvoiceItem* newDerivedItem(int source) {
    InvoiceItem* item = newItem();
    item->setOrigin(InvoiceItem::ORIGIN_DERIVING, source);
    return item;
  }

  // How an entry of a stored item asks for its row.
  static std::string loadCall(int variable, int item, int row) {
    return call(kLoadSql, "t_itemvariable_1='" + std::to_string(variable) + "', t_invoiceitem_1='" +
                              std::to_string(item) + "', row='" + std::to_string(row) + "'");
  }

  static std::string copyCall(int variable, int item, int row) {
    if (variable != -1)
      return call(kCopySql, "t_itemvariable_1='" + std::to_string(variable) + "', t_invoiceitem_1='" +
                                std::to_string(item) + "', row='" + std::to_string(row) + "'");
    return call(kRemainingQuantitySql, "closed='151', storno='152', t_itemvariable_1='-1', t_invoiceitem_1='" +
                                           std::to_string(item) + "', row='" + std::to_string(row) + "'");
  }
};

Lines parameters(const ItemDataList& list) {
  Lines result;
  for (FXint i = 0; i < list.no(); ++i) result.push_back(text(list[i]->vvalue));
  return result;
}

// ---- the assigned variables

TEST_F(ItemDataListLoad, settingsComeFromTheTableOfTheArticlesKind) {
  assign(kProduct, 1, 100, {11, 13});
  assign(kService, 2, 100, {12});
  assign(kSuite, 3, 100, {14, 13});
  struct Case {
    int kind, article;
    const char* sql;
    Lines expected;
  };
  for (const Case& c : {Case{kProduct, 1, kProductSettingsSql, {"0 11 ''", "1 -1 ''", "1 13 ''"}},
                        Case{kService, 2, kServiceSettingsSql, {"0 12 ''"}},
                        Case{kSuite, 3, kSuiteSettingsSql, {"1 -1 ''", "1 14 ''", "1 13 ''"}}}) {
    InvoiceItem* item = newItem(10);
    item->setArticle(c.kind, c.article);
    ItemDataList settings;
    settings.loadSettings(db(), 101, item);
    EXPECT_EQ(executed(), Lines({call(c.sql, "id='" + std::to_string(c.article) + "', direction='100'")}));
    EXPECT_EQ(lines(settings), c.expected) << c.kind;
  }
}

TEST_F(ItemDataListLoad, settingsEntriesAreAsTheVariablesAreDefined) {
  assign(kProduct, 1, 100, {14, 12, 11, 13});
  InvoiceItem* item = newItem(10);
  ItemDataList settings;
  settings.loadSettings(db(), 101, item);
  EXPECT_EQ(lines(settings), Lines({"0 12 ''", "0 11 ''", "1 -1 ''", "1 14 ''", "1 13 ''"}));
  EXPECT_EQ(names(settings), Lines({"B", "A", "Mennyiség", "D", "C"}));
  EXPECT_EQ(parameters(settings), Lines({"piros,kék", "", "", "x,y", ""}));
  EXPECT_EQ(settings.firstUnitIndex, 2);
  EXPECT_EQ(settings.unitColumnCount, 3);
  EXPECT_EQ(settings.lastRow, 1);
  EXPECT_EQ(settings.getOwner(), nullptr);
  const Lines expected = {"3 0 0", "1 1 0", "-1 1 1", "3 0 1", "1 1 1"};
  for (FXint i = 0; i < settings.no(); ++i) {
    EXPECT_EQ(std::to_string(settings[i]->type) + " " + std::to_string(settings[i]->mandatory) + " " +
                  std::to_string(settings[i]->process),
              expected[static_cast<size_t>(i)]);
    EXPECT_EQ(settings[i]->getOwner(), item);
  }
}

TEST_F(ItemDataListLoad, settingsAreOfTheDirectionAndArticleAskedFor) {
  run("insert into t_product (t_product_id, name) values (9, 'Másik')");
  assign(kProduct, 1, 100, {11});
  assign(kProduct, 1, 200, {12});
  assign(kProduct, 9, 100, {13});
  ItemDataList outgoing, incoming;
  outgoing.loadSettings(db(), 101, newItem(10));
  incoming.loadSettings(db(), 201, newItem(10));
  EXPECT_EQ(lines(outgoing), Lines({"0 11 ''"}));
  EXPECT_EQ(lines(incoming), Lines({"0 12 ''"}));
}

struct DirectionCase {
  int status;
  int direction;
};

std::string directionCall(int direction) {
  return call(kProductSettingsSql, "id='1', direction='" + std::to_string(direction) + "'");
}

TEST_F(ItemDataListLoad, statusDecidesTheDirection) {
  for (const DirectionCase& c :
       {DirectionCase{101, 100}, DirectionCase{102, 100}, DirectionCase{151, 100}, DirectionCase{152, 100},
        DirectionCase{201, 200}, DirectionCase{202, 200}, DirectionCase{251, 200}, DirectionCase{252, 200},
        DirectionCase{401, 100}, DirectionCase{451, 100}, DirectionCase{801, 100}, DirectionCase{0, 0},
        DirectionCase{99, 0}, DirectionCase{100, 100}, DirectionCase{199, 100}, DirectionCase{399, 300},
        DirectionCase{402, 400}, DirectionCase{800, 800}, DirectionCase{12345, 12300}}) {
    ItemDataList settings;
    settings.loadSettings(db(), c.status, newItem(10));
    EXPECT_EQ(executed(), Lines({directionCall(c.direction)})) << c.status;
  }
}

TEST_F(ItemDataListLoad, keepsDirection400ForStatus452) {
  assign(kProduct, 1, 100, {11});
  assign(kProduct, 1, 200, {11});
  ItemDataList settings;
  settings.loadSettings(db(), 452, newItem(10));
  EXPECT_EQ(executed(), Lines({directionCall(400)}));
  EXPECT_EQ(settings.no(), 0);
}

TEST_F(ItemDataListLoad, otherArticleKindsLeaveTheListAsItIs) {
  for (const int kind : {0, 4, -1}) {
    InvoiceItem* item = newItem(10);
    item->setArticle(kind, 1);
    ItemDataList settings;
    fill(settings, {"0 11 'a'"});
    settings.unitColumnCount = 7;
    settings.loadSettings(db(), 101, item);
    EXPECT_EQ(executed(), Lines()) << kind;
    EXPECT_EQ(lines(settings), Lines({"0 11 'a'"}));
    EXPECT_EQ(settings.unitColumnCount, 7);
  }
}

TEST_F(ItemDataListLoad, articleWithoutVariablesGivesEmptySettings) {
  ItemDataList settings;
  settings.unitColumnCount = 7;
  settings.loadSettings(db(), 101, newItem(10));
  EXPECT_EQ(settings.no(), 0);
  EXPECT_EQ(settings.unitColumnCount, 0);
  EXPECT_EQ(settings.firstUnitIndex, -1);
}

TEST_F(ItemDataListLoad, settingsOfPerItemVariablesOnlyHaveNoUnitPart) {
  assign(kProduct, 1, 100, {11, 12});
  auto* settings = new ItemDataList;
  settings->loadSettings(db(), 101, newItem(10));
  EXPECT_EQ(settings->firstUnitIndex, -1);
  EXPECT_EQ(settings->unitColumnCount, 0);
  EXPECT_EQ(lines(*settings), Lines({"0 11 ''", "0 12 ''"}));
  ItemDataList* list = attach(newItem(), settings);
  list->addRows(3);
  EXPECT_EQ(lines(*list), Lines({"0 11 ''", "0 12 ''"}));
}

TEST_F(ItemDataListLoad, variablesOfUnknownTypeAreNotOffered) {
  define({{21, "Nulla", 0}, {22, "Belső", 100, 1}, {23, "Ismeretlen", 4, 1}});
  assign(kProduct, 1, 100, {21, 11, 22, 23});
  ItemDataList settings;
  settings.loadSettings(db(), 101, newItem(10));
  EXPECT_EQ(lines(settings), Lines({"0 11 ''"}));
  EXPECT_EQ(settings.firstUnitIndex, -1);
}

TEST_F(ItemDataListLoad, nullsOfAVariableCountAsZero) {
  run("insert into t_itemvariable (t_itemvariable_id, name, type) values (21, 'Üres', 1)");
  assign(kProduct, 1, 100, {21});
  ItemDataList settings;
  settings.loadSettings(db(), 101, newItem(10));
  EXPECT_EQ(lines(settings), Lines({"0 21 ''"}));
  EXPECT_EQ(settings[0]->mandatory, 0);
  EXPECT_EQ(settings[0]->process, 0);
  EXPECT_EQ(text(settings[0]->vvalue), "");
}

// ---- stored values

TEST_F(ItemDataListLoad, storedItemLoadsItsRowsAndThenEachEntryItsOwn) {
  storeValues(10, {"1 -1 '2' #3", "0 11 'a' #1", "0 12 'kék' #2", "1 13 'c' #4", "2 -1 '1' #5", "2 13 'd' #6"});
  InvoiceItem* item = newItem(10);
  ItemDataList* list = attach(item, newSettings({11, 12, 13}));
  list->load(db());
  EXPECT_EQ(lines(*list),
            Lines({"0 11 'a' #1", "0 12 'kék' #2", "1 -1 '2' #3", "1 13 'c' #4", "2 -1 '1' #5", "2 13 'd' #6"}));
  EXPECT_EQ(names(*list), Lines({"A", "B", "Mennyiség", "C", "Mennyiség", "C"}));
  EXPECT_EQ(executed(), Lines({call(kStoredDataSql, "id='10'"), loadCall(11, 10, 0), loadCall(12, 10, 0),
                               loadCall(-1, 10, 1), loadCall(13, 10, 1), loadCall(-1, 10, 2), loadCall(13, 10, 2)}));
  EXPECT_EQ(list->unitColumnCount, 2);
  EXPECT_EQ(list->firstUnitIndex, 2);
  EXPECT_EQ(list->lastRow, 2);
  EXPECT_EQ(list->getRowNum(), 2);
  EXPECT_EQ(list->at(1)->mandatory, 0);
  EXPECT_EQ(list->at(1)->process, 0);
  EXPECT_EQ(list->at(3)->process, 1);
  EXPECT_EQ(list->at(3)->getOwner(), item);
  EXPECT_EQ(list->at(2)->type, ItemDataEntry::TYPE_QUANTITY);
  EXPECT_NE(dynamic_cast<ItemDataComboEntry*>(list->at(1)), nullptr);
  EXPECT_EQ(invoice.getLoadMark(), 1);
}

TEST_F(ItemDataListLoad, unitColumnsComeFromTheFirstStoredRowUntilTheSettingsAreTaken) {
  storeValues(10, {"0 11 'a'", "3 -1 '1'", "3 13 'c'", "4 -1 '1'", "4 13 'd'", "4 14 'x'"});
  ItemDataList list(newItem(10), nullptr);
  list.unitColumnCount = 9;
  list.loadSavedItemData(db());
  EXPECT_EQ(list.unitColumnCount, 2);
  EXPECT_EQ(list.lastRow, 4);

  ItemDataList* withSettings = attach(newItem(10), newSettings({11, 13, 14}));
  withSettings->load(db());
  EXPECT_EQ(withSettings->unitColumnCount, 3);
}

TEST_F(ItemDataListLoad, valuesAreOfTheListsItemOnly) {
  storeItem(20, 1);
  storeValues(10, {"0 11 'a'"});
  storeValues(20, {"0 11 'b'"});
  ItemDataList* list = attach(newItem(20), newSettings({11}));
  list->load(db());
  EXPECT_EQ(text(list->at(0)->value), "b");
  EXPECT_EQ(list->no(), 1);
}

TEST_F(ItemDataListLoad, storedItemWithoutValuesStaysEmptyWithTheSettingsColumns) {
  ItemDataList* list = attach(newItem(10), newSettings({11, 13}));
  list->unitColumnCount = 9;
  list->load(db());
  EXPECT_EQ(list->no(), 0);
  EXPECT_EQ(list->unitColumnCount, 2);
  EXPECT_EQ(executed(), Lines({call(kStoredDataSql, "id='10'")}));
  EXPECT_EQ(invoice.getLoadMark(), 0);
}

TEST_F(ItemDataListLoad, listWithoutSettingsKeepsTheColumnsThatWereCounted) {
  storeValues(10, {"1 -1 '1'", "1 13 'c'"});
  ItemDataList* list = attach(newItem(10));
  list->load(db());
  EXPECT_EQ(list->unitColumnCount, 2);
  EXPECT_EQ(lines(*list).size(), 2u);

  ItemDataList* empty = attach(newItem(0));
  empty->unitColumnCount = 9;
  empty->load(db());
  EXPECT_EQ(empty->unitColumnCount, 9);
}

TEST_F(ItemDataListLoad, newItemLoadsItsLeadingEntriesAndFindsNothing) {
  ItemDataList* list = attach(newItem(), newSettings({11, 13}));
  list->load(db());
  EXPECT_EQ(lines(*list), Lines({"0 11 ''"}));
  EXPECT_EQ(executed(), Lines({loadCall(11, 0, 0)}));
  EXPECT_EQ(list->unitColumnCount, 2);
}

TEST_F(ItemDataListLoad, newItemWithUnitVariablesOnlyAsksForNothing) {
  ItemDataList* list = attach(newItem(), newSettings({13}));
  list->load(db());
  EXPECT_EQ(list->no(), 0);
  EXPECT_EQ(executed(), Lines());
  EXPECT_EQ(list->unitColumnCount, 2);
}

TEST_F(ItemDataListLoad, nothingIsLoadedWithoutOwner) {
  ItemDataList list;
  list.unitColumnCount = 9;
  list.loadSavedItemData(db());
  list.load(db());
  EXPECT_EQ(executed(), Lines());
  EXPECT_EQ(list.no(), 0);
  EXPECT_EQ(list.unitColumnCount, 9);
}

TEST_F(ItemDataListLoad, nothingIsAskedForAnItemWithoutIdOrSource) {
  for (const int id : {0, -1}) {
    ItemDataList list(newItem(id), nullptr);
    list.unitColumnCount = 9;
    list.loadSavedItemData(db());
    EXPECT_EQ(executed(), Lines()) << id;
    EXPECT_EQ(list.unitColumnCount, 9);
  }
}

TEST_F(ItemDataListLoad, modeOneWithoutASourceIsNotDerived) {
  storeValues(10, {"0 11 'a' #1"});
  for (const int source : {0, -1}) {
    InvoiceItem* unstored = newDerivedItem(source);
    ItemDataList nothing(unstored, nullptr);
    nothing.loadSavedItemData(db());
    EXPECT_EQ(executed(), Lines()) << source;

    InvoiceItem* stored = newDerivedItem(source);
    stored->setId(10);
    ItemDataList own(stored, nullptr);
    own.loadSavedItemData(db());
    EXPECT_EQ(executed(), Lines({call(kStoredDataSql, "id='10'")})) << source;
    EXPECT_EQ(lines(own), Lines({"0 11 'a' #1"}));
  }
}

TEST_F(ItemDataListLoad, loadingTwiceRepeatsNothing) {
  storeValues(10, {"0 11 'a' #1", "1 -1 '2' #2", "1 13 'c' #3"});
  ItemDataList* list = attach(newItem(10), newSettings({11, 13}));
  list->load(db());
  executed();
  run("update t_invoiceitemdata set value='new' where t_invoiceitemdata_id=3");
  list->load(db());
  EXPECT_EQ(lines(*list), Lines({"0 11 'a' #1", "1 -1 '2' #2", "1 13 'new' #3"}));
  EXPECT_EQ(executed(), Lines({loadCall(11, 10, 0), loadCall(-1, 10, 1), loadCall(13, 10, 1)}));
  EXPECT_EQ(list->unitColumnCount, 2);
}

TEST_F(ItemDataListLoad, nullPlacesArePassedOver) {
  storeValues(10, {"0 11 'a' #1"});
  ItemDataList* list = attach(newItem(10), newSettings({11}));
  fill(*list, {"null", "0 11 ''", "null"});
  list->load(db());
  EXPECT_EQ(lines(*list), Lines({"null", "0 11 'a' #1", "null"}));
}

TEST_F(ItemDataListLoad, valuesOfADeletedVariableLoseItAndAreDropped) {
  storeValues(10, {"0 11 'a' #1", "0 12 'kék' #2", "1 -1 '1' #3", "1 13 'c' #4"});
  run("delete from t_itemvariable where t_itemvariable_id=12");
  EXPECT_EQ(storedValuesWithKeys(),
            Lines({"10: 0 11 'a' #1", "10: 0 NULL 'kék' #2", "10: 1 -1 '1' #3", "10: 1 13 'c' #4"}));
  ItemDataList* list = attach(newItem(10), newSettings({11, 13}));
  list->load(db());
  EXPECT_EQ(lines(*list), Lines({"0 11 'a' #1", "1 -1 '1' #3", "1 13 'c' #4"}));
}

TEST_F(ItemDataListLoad, valuesOfAVariableWhoseTypeIsUnknownAreDropped) {
  storeValues(10, {"0 11 'a' #1", "0 12 'kék' #2"});
  run("update t_itemvariable set type=17 where t_itemvariable_id=12");
  ItemDataList* list = attach(newItem(10), newSettings({11}));
  list->load(db());
  EXPECT_EQ(lines(*list), Lines({"0 11 'a' #1"}));
}

TEST_F(ItemDataListLoad, valueWithoutRowNumberBelongsToTheItem) {
  run("insert into t_invoiceitemdata (t_invoiceitemdata_id, t_itemvariable_1, t_invoiceitem_1, row, value) "
      "values (7, 11, 10, NULL, 'abc')");
  ItemDataList* list = attach(newItem(10), newSettings({11}));
  list->load(db());
  EXPECT_EQ(lines(*list), Lines({"0 11 'abc' #7"}));
}

TEST_F(ItemDataListLoad, everyStatementThatCannotRunFailsTheTransaction) {
  for (const int kind : {kProduct, kService, kSuite}) {
    InvoiceItem* item = newItem();
    item->setArticle(kind, 1);
    ItemDataList settings;
    ASSERT_TRUE(db()->begin());
    for (const char* article : {"product", "service", "suite"})
      run(std::string("drop table t_") + article + "itemdata");
    settings.loadSettings(db(), 101, item);
    EXPECT_FALSE(db()->commit()) << kind;
  }
  for (InvoiceItem* item : {newItem(10), newDerivedItem(10)}) {
    ItemDataList list(item, nullptr);
    ASSERT_TRUE(db()->begin());
    run("drop table t_invoiceitemdata");
    list.loadSavedItemData(db());
    EXPECT_FALSE(db()->commit()) << item->getId();
  }
}

// ---- the parameters of stored values

TEST_F(ItemDataListLoad, entriesTakeTheirParameterFromTheSettings) {
  storeValues(10, {"0 11 'a'", "0 12 'kék'", "1 -1 '1'", "1 14 'x'", "2 -1 '1'", "2 14 'y'"});
  ItemDataList* list = attach(newItem(10), newSettings({11, 12, 14}));
  list->load(db());
  EXPECT_EQ(parameters(*list), Lines({"", "piros,kék", "", "x,y", "", "x,y"}));
  std::unique_ptr<FXTableItem> cell(list->at(5)->getTableItem());
  EXPECT_EQ(text(static_cast<FXComboTableItem*>(cell.get())->getSelections()), " \nx\ny");
}

TEST_F(ItemDataListLoad, entriesOfVariablesThatAreNoLongerAssignedHaveNoParameter) {
  storeValues(10, {"0 12 'kék'", "1 -1 '1'", "1 14 'x'"});
  ItemDataList* list = attach(newItem(10), newSettings({12, 13}));
  list->load(db());
  EXPECT_EQ(parameters(*list), Lines({"piros,kék", "", ""}));
}

TEST_F(ItemDataListLoad, parametersAreTakenAnewWithEveryLoad) {
  storeValues(10, {"0 12 'kék'"});
  ItemDataList* list = attach(newItem(10), newSettings({12}));
  list->load(db());
  list->settings->at(0)->vvalue = "zöld";
  list->load(db());
  EXPECT_EQ(parameters(*list), Lines({"zöld"}));
}

// ---- items that are being derived

TEST_F(ItemDataListLoad, derivedItemWithUnitVariablesOnlyTakesTheSourcesRows) {
  storeValues(10, {"1 -1 '3' #1", "1 14 'x' #2", "4 -1 '2' #3", "4 14 'y' #4"});
  InvoiceItem* item = newDerivedItem(10);
  ItemDataList* list = attach(item, newSettings({14}));
  list->load(db());
  EXPECT_EQ(lines(*list), Lines({"1 -1 '3'", "1 14 'x'", "4 -1 '2'", "4 14 'y'"}));
  EXPECT_EQ(names(*list), Lines({"Mennyiség", "D", "Mennyiség", "D"}));
  EXPECT_EQ(parameters(*list), Lines({"", "x,y", "", "x,y"}));
  EXPECT_EQ(executed(), Lines({call(kSourceDataSql, "id='10'"), copyCall(-1, 10, 1), copyCall(14, 10, 1),
                               copyCall(-1, 10, 4), copyCall(14, 10, 4)}));
  EXPECT_EQ(list->unitColumnCount, 2);
  EXPECT_EQ(list->firstUnitIndex, 0);
  EXPECT_EQ(list->lastRow, 4);
  EXPECT_EQ(list->at(0)->getOwner(), item);
  EXPECT_EQ(list->at(0)->type, ItemDataEntry::TYPE_QUANTITY);
  EXPECT_EQ(list->at(1)->process, 1);
}

TEST_F(ItemDataListLoad, derivedItemWithItemVariablesOnlyCopiesTheLeadingEntries) {
  storeValues(10, {"0 11 'a' #1", "0 12 'kék' #2"});
  ItemDataList* list = attach(newDerivedItem(10), newSettings({11, 12}));
  list->load(db());
  EXPECT_EQ(lines(*list), Lines({"0 11 'a'", "0 12 'kék'"}));
  EXPECT_EQ(executed(), Lines({copyCall(11, 10, 0), copyCall(12, 10, 0)}));
}

TEST_F(ItemDataListLoad, derivedItemWithBothTakesTheSourcesUnitRowsOnce) {
  storeValues(10, {"0 11 'a' #1", "0 12 'kék' #2", "1 -1 '3' #3", "1 14 'x' #4", "2 -1 '2' #5", "2 14 'y' #6"});
  InvoiceItem* item = newDerivedItem(10);
  ItemDataList* list = attach(item, newSettings({11, 12, 14}));
  list->load(db());
  const Lines expected = {"0 11 'a'", "0 12 'kék'", "1 -1 '3'", "1 14 'x'", "2 -1 '2'", "2 14 'y'"};
  EXPECT_EQ(lines(*list), expected);
  EXPECT_EQ(parameters(*list), Lines({"", "piros,kék", "", "x,y", "", "x,y"}));
  EXPECT_EQ(executed(), Lines({call(kSourceDataSql, "id='10'"), copyCall(11, 10, 0), copyCall(12, 10, 0),
                               copyCall(-1, 10, 1), copyCall(14, 10, 1), copyCall(-1, 10, 2), copyCall(14, 10, 2)}));
  EXPECT_EQ(list->unitColumnCount, 2);
  EXPECT_EQ(list->firstUnitIndex, 2);
  EXPECT_EQ(list->lastRow, 2);
  EXPECT_EQ(list->getRowNum(), 2);
  EXPECT_EQ(list->at(4)->getOwner(), item);

  list->load(db());
  EXPECT_EQ(lines(*list), expected);
}

TEST_F(ItemDataListLoad, derivedItemWithBothKeepsWhatTheSourceLacks) {
  storeValues(10, {"1 -1 '3' #3", "1 13 'c' #4"});
  ItemDataList* list = attach(newDerivedItem(10), newSettings({11, 13, 14}));
  list->load(db());
  EXPECT_EQ(lines(*list), Lines({"0 11 ''", "1 -1 '3'", "1 13 'c'"}));
}

TEST_F(ItemDataListLoad, derivedItemWithBothAndASourceWithoutUnitRowsHasLeadingEntriesOnly) {
  storeValues(10, {"0 11 'a' #1"});
  ItemDataList* list = attach(newDerivedItem(10), newSettings({11, 13}));
  list->load(db());
  EXPECT_EQ(lines(*list), Lines({"0 11 'a'"}));
  EXPECT_EQ(list->lastRow, 0);
  EXPECT_EQ(list->unitColumnCount, 2);
}

TEST_F(ItemDataListLoad, unitRowsOfASourceComeOnlyToAnItemThatIsBeingDerived) {
  storeValues(10, {"0 11 'a' #1", "1 -1 '3' #3", "1 13 'c' #4"});
  for (const int mode : {0, 2}) {
    InvoiceItem* item = newItem();
    item->setOrigin(mode, 10);
    ItemDataList* list = attach(item, newSettings({11, 13}));
    list->load(db());
    EXPECT_EQ(lines(*list), Lines({"0 11 ''"})) << mode;
  }
}

TEST_F(ItemDataListLoad, unitRowsOfASourceDoNotComeToAStoredItem) {
  storeItem(20, 1, 10);
  storeValues(10, {"0 11 'a' #1", "1 -1 '3' #3", "1 13 'c' #4"});
  InvoiceItem* item = newDerivedItem(10);
  item->setId(20);
  ItemDataList* list = attach(item, newSettings({11, 13}));
  fill(*list, {"0 11 ''"});
  list->load(db());
  EXPECT_EQ(lines(*list), Lines({"0 11 ''"}));
  EXPECT_EQ(executed(), Lines({loadCall(11, 20, 0)}));
}

TEST_F(ItemDataListLoad, storedDerivedItemLoadsItsOwnRows) {
  storeItem(20, 1, 10);
  storeValues(10, {"0 11 'source' #1", "1 -1 '3' #2", "1 13 'source' #3"});
  storeValues(20, {"0 11 'own' #4", "1 -1 '1' #5", "1 13 'own' #6"});
  InvoiceItem* item = newItem(20);
  item->setOrigin(InvoiceItem::ORIGIN_DERIVED, 10);
  ItemDataList* list = attach(item, newSettings({11, 13}));
  list->load(db());
  EXPECT_EQ(lines(*list), Lines({"0 11 'own' #4", "1 -1 '1' #5", "1 13 'own' #6"}));
}

TEST_F(ItemDataListLoad, keepsTakingTheSourcesRowsButItsOwnValuesInModeOneWithAnId) {
  storeItem(20, 1, 10);
  storeValues(10, {"0 11 'source' #1", "1 -1 '3' #2", "1 13 'source' #3"});
  storeValues(20, {"1 -1 '1' #5", "2 13 'own' #6"});
  InvoiceItem* item = newDerivedItem(10);
  item->setId(20);
  ItemDataList* list = attach(item, newSettings({11, 13}));
  list->load(db());
  EXPECT_EQ(lines(*list), Lines({"0 11 ''", "1 -1 '1' #5", "1 13 ''"}));
  EXPECT_EQ(executed(),
            Lines({call(kSourceDataSql, "id='10'"), loadCall(11, 20, 0), loadCall(-1, 20, 1), loadCall(13, 20, 1)}));
}

TEST_F(ItemDataListLoad, remainingQuantitiesAreWorkedOutRowByRow) {
  storeValues(10, {"0 11 'a'", "1 -1 '3'", "1 13 'c'", "2 -1 '2'", "2 13 'd'"});
  storeInvoice(2, 151);
  storeItem(20, 2, 10);
  storeValues(20, {"1 -1 '1'", "2 -1 '2'"});
  ItemDataList* list = attach(newDerivedItem(10), newSettings({11, 13}));
  list->load(db());
  EXPECT_EQ(lines(*list), Lines({"0 11 'a'", "1 -1 '2'", "1 13 'c'", "2 -1 '0'", "2 13 'd'"}));
}

// ---- the road through the database and back

TEST_F(ItemDataListLoad, keepsTheOtherValuesOfAUsedUpRowWhenTheDerivedItemIsSaved) {
  define({{2, "Kettes", ItemDataEntry::TYPE_TEXT, 1}});
  storeValues(10, {"1 -1 '2'", "1 2 'second'", "1 13 'c'"});
  storeInvoice(2, 151);
  storeItem(20, 2, 10);
  storeValues(20, {"1 -1 '2'"});
  InvoiceItem* item = newDerivedItem(10);
  ItemDataList* list = attach(item, newSettings({2, 13}));
  list->load(db());
  EXPECT_EQ(lines(*list), Lines({"1 -1 '0'", "1 2 'second'", "1 13 'c'"}));
  storeItem(30, 1, 10);
  item->setId(30);
  list->save(db());
  EXPECT_EQ(query("select row, t_itemvariable_1, value from t_invoiceitemdata where t_invoiceitem_1=30"),
            Lines({"1 13 c"}));
}

TEST_F(ItemDataListLoad, anyTextComesBackByteByByte) {
  const Lines values = {
      "O'Brien \"x\"", "%t_invoiceitem_1 %s %%", "a;b'; drop table t_invoice;--", "back\\slash", "a\nb\r\nc\td",
      "😀 árvíztűrő",   "\xff\xfe broken \xc3",   std::string(100 * 1000, 'x')};
  ItemDataList* list = attach(newItem(10), newSettings({11, 13}));
  fill(*list, {"0 11 '" + values[0] + "'"});
  int row = 0;
  for (const std::string& value : values) {
    ++row;
    fill(*list, {std::to_string(row) + " -1 '1'", std::to_string(row) + " 13 '" + value + "'"});
  }
  const Lines before = lines(*list);
  ASSERT_TRUE(db()->begin());
  list->save(db());
  ASSERT_TRUE(db()->commit()) << db()->getLastError().text();

  ItemDataList* loaded = attach(newItem(10), newSettings({11, 13}));
  loaded->load(db());
  for (FXint i = 0; i < loaded->no(); ++i) {
    EXPECT_GT(loaded->at(i)->pk, 0);
    loaded->at(i)->pk = 0;
  }
  EXPECT_TRUE(lines(*loaded) == before);
}

}  // namespace
}  // namespace Quillane::Plugin::ItemData
