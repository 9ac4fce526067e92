// What the settings write: the statements with what is bound to them, and the rows afterwards.
#include "ui/ItemDataSettingsPersister.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "plugin/Model.h"
#include "tests/support/StatementLog.h"
#include "tests/support/TestCompany.h"

using namespace FX;
using testing::ElementsAre;
using testing::IsEmpty;

namespace Quillane::Plugin::ItemData {
namespace {

using Values = std::map<FXString, FXString>;

const char* const kVariablesSql =
    "select t_itemvariable_id, name, type, process, mandatory, vvalue from t_itemvariable order by 1";

const std::vector<std::string> kQuantity = {"-1", "Mennyiség", "-1", "1", "1", "NULL"};

std::string insertOf(const std::string& bindings) {
  return "insert into t_itemvariable (t_itemvariable_id, name) values (%t_itemvariable_id, %name)\n    " + bindings;
}

std::string updateOf(const std::string& bindings) {
  return "update t_itemvariable set name=%name, type=%type, process=%process, mandatory=%mandatory, vvalue=%vvalue "
         "where t_itemvariable_id=%t_itemvariable_id\n    " +
         bindings;
}

std::string deleteOf(const std::string& bindings) {
  return "delete from t_itemvariable where t_itemvariable_id=%t_itemvariable_id\n    " + bindings;
}

class ItemDataSettingsPersisterTest : public testing::Test {
 protected:
  ItemDataSettingsPersisterTest() { Model::initDB(company.getDB()); }

  /// Two variables: 5 is a mandatory text of every unit, 7 a list of the item.
  void fillVariables() {
    company.fill("t_itemvariable", {{"t_itemvariable_id", "name", "type", "process", "mandatory", "vvalue"},
                                    {"5", "Gyári szám", "1", "1", "1", "NULL"},
                                    {"7", "Szín", "3", "0", "0", "piros,kék"}});
  }

  std::vector<std::string> watch(const std::function<void()>& action) const {
    StatementLog log;
    company.getDB()->setObserver(&log);
    action();
    company.getDB()->setObserver(nullptr);
    return log.take();
  }

  TestCompany company;
  ItemDataSettingsPersister persister{company.getDB()};
};

// ---- columns

TEST_F(ItemDataSettingsPersisterTest, namesTheColumnsBehindTheKey) {
  EXPECT_EQ(persister.getColName(1), "name");
  EXPECT_EQ(persister.getColName(2), "type");
  EXPECT_EQ(persister.getColName(3), "process");
  EXPECT_EQ(persister.getColName(4), "mandatory");
  EXPECT_EQ(persister.getColName(5), "vvalue");
}

TEST_F(ItemDataSettingsPersisterTest, namesNeitherTheKeyNorColumnsThatAreNotThere) {
  EXPECT_EQ(persister.getColName(0), "");
  EXPECT_EQ(persister.getColName(6), "");
  EXPECT_EQ(persister.getColName(-1), "");
  EXPECT_EQ(persister.getColName(1000000), "");
}

// ---- inserting

TEST_F(ItemDataSettingsPersisterTest, insertsKeyAndNameAndThenUpdatesTheSameRow) {
  const Values values = {{"name", "Gyári szám"}, {"type", "1"}, {"process", "1"}, {"mandatory", "0"}, {"vvalue", ""}};
  EXPECT_THAT(watch([&] { EXPECT_TRUE(persister.insertItem(values)); }),
              ElementsAre(insertOf("t_itemvariable_id='1', name='Gyári szám'"),
                          updateOf("t_itemvariable_id='1', name='Gyári szám', type='1', process='1', mandatory='0', "
                                   "vvalue=''")));
  EXPECT_EQ(company.query(kVariablesSql), (Grid{kQuantity, {"1", "Gyári szám", "1", "1", "0", ""}}));
}

TEST_F(ItemDataSettingsPersisterTest, givesEveryInsertedRowTheNextKey) {
  fillVariables();
  EXPECT_TRUE(persister.insertItem({{"name", "Lejárat"}, {"type", "2"}, {"process", "0"}, {"mandatory", "1"}}));
  EXPECT_TRUE(persister.insertItem(
      {{"name", "Méret"}, {"type", "3"}, {"process", "1"}, {"mandatory", "0"}, {"vvalue", "S,M,L"}}));
  EXPECT_EQ(company.query(kVariablesSql), (Grid{kQuantity,
                                                {"5", "Gyári szám", "1", "1", "1", "NULL"},
                                                {"7", "Szín", "3", "0", "0", "piros,kék"},
                                                {"8", "Lejárat", "2", "0", "1", ""},
                                                {"9", "Méret", "3", "1", "0", "S,M,L"}}));
}

TEST_F(ItemDataSettingsPersisterTest, insertsARowOfNothingWhenNothingIsGiven) {
  EXPECT_THAT(watch([&] { EXPECT_TRUE(persister.insertItem({})); }),
              ElementsAre(insertOf("t_itemvariable_id='1', name=''"),
                          updateOf("t_itemvariable_id='1', name='', type=NULL, process=NULL, mandatory=NULL, "
                                   "vvalue=''")));
  EXPECT_EQ(company.query(kVariablesSql), (Grid{kQuantity, {"1", "", "NULL", "NULL", "NULL", ""}}));
}

/// Writes down what is updated.
class UpdatesOnly : public ItemDataSettingsPersister {
 public:
  using ItemDataSettingsPersister::ItemDataSettingsPersister;

  bool updateItem(int id, Values values) override {
    updated.emplace_back(id, std::move(values));
    return answer;
  }

  std::vector<std::pair<int, Values>> updated;
  bool answer = true;
};

TEST_F(ItemDataSettingsPersisterTest, updatesInsertedRowsAsDerivedPersistersWouldHaveIt) {
  UpdatesOnly derived(company.getDB());
  EXPECT_TRUE(derived.insertItem({{"type", "2"}}));
  derived.answer = false;
  EXPECT_FALSE(derived.insertItem({{"name", "Lejárat"}}));
  EXPECT_THAT(derived.updated, ElementsAre(std::pair<int, Values>(1, {{"name", ""}, {"type", "2"}}),
                                           std::pair<int, Values>(2, {{"name", "Lejárat"}})))
      << "the name was looked up, and added when it was missing";
  EXPECT_EQ(
      company.query(kVariablesSql),
      (Grid{kQuantity, {"1", "", "NULL", "NULL", "NULL", "NULL"}, {"2", "Lejárat", "NULL", "NULL", "NULL", "NULL"}}))
      << "the key and the name only";
}

TEST_F(ItemDataSettingsPersisterTest, keepsOnWithTheUpdateWhenTheInsertFailed) {
  company.run("create trigger refuse before insert on t_itemvariable begin select raise(abort, 'no'); end");
  EXPECT_THAT(watch([&] {
                EXPECT_FALSE(persister.insertItem({{"name", "Lejárat"}}));
              }),
              ElementsAre(insertOf("t_itemvariable_id='1', name='Lejárat'"),
                          updateOf("t_itemvariable_id='1', name='Lejárat', type=NULL, process=NULL, mandatory=NULL, "
                                   "vvalue=''")));
  EXPECT_EQ(company.query(kVariablesSql), Grid{kQuantity});
}

// ---- updating

TEST_F(ItemDataSettingsPersisterTest, updatesAllColumnsOfTheRowAndNoOtherRow) {
  fillVariables();
  const Values values = {{"name", "Széria"}, {"type", "3"}, {"process", "0"}, {"mandatory", "0"}, {"vvalue", "A,B"}};
  EXPECT_THAT(watch([&] { EXPECT_TRUE(persister.updateItem(5, values)); }),
              ElementsAre(updateOf("t_itemvariable_id='5', name='Széria', type='3', process='0', mandatory='0', "
                                   "vvalue='A,B'")));
  EXPECT_EQ(company.query(kVariablesSql),
            (Grid{kQuantity, {"5", "Széria", "3", "0", "0", "A,B"}, {"7", "Szín", "3", "0", "0", "piros,kék"}}));
}

TEST_F(ItemDataSettingsPersisterTest, emptiesTheParameterWhenItIsNotGiven) {
  fillVariables();
  EXPECT_TRUE(persister.updateItem(7, {{"name", "Szín"}, {"type", "1"}, {"process", "0"}, {"mandatory", "0"}}));
  EXPECT_EQ(company.query("select vvalue from t_itemvariable where t_itemvariable_id=7"), (Grid{{""}}));
}

TEST_F(ItemDataSettingsPersisterTest, bindsEveryUpdateAnew) {
  fillVariables();
  EXPECT_TRUE(persister.updateItem(5, {{"name", "Első"}, {"type", "3"}, {"process", "1"}, {"vvalue", "A,B"}}));
  EXPECT_TRUE(persister.updateItem(7, {{"name", "Második"}, {"type", "2"}, {"mandatory", "1"}}));
  EXPECT_EQ(company.query(kVariablesSql),
            (Grid{kQuantity, {"5", "Első", "3", "1", "NULL", "A,B"}, {"7", "Második", "2", "NULL", "1", ""}}));
}

TEST_F(ItemDataSettingsPersisterTest, ignoresValuesOfOtherNames) {
  fillVariables();
  EXPECT_THAT(watch([&] {
                persister.updateItem(5, {{"name", "Név"}, {"", "semmi"}, {"row", "3"}});
              }),
              ElementsAre(updateOf("t_itemvariable_id='5', name='Név', type=NULL, process=NULL, mandatory=NULL, "
                                   "vvalue=''")));
}

TEST_F(ItemDataSettingsPersisterTest, keepsRecordedValuesWhenTheKindChanges) {
  fillVariables();
  company.run("insert into t_invoice (t_invoice_id) values (1)");
  company.run("insert into t_invoiceitem (t_invoiceitem_id, t_invoice_1) values (10, 1)");
  company.fill("t_invoiceitemdata", {{"t_invoiceitemdata_id", "t_itemvariable_1", "t_invoiceitem_1", "row", "value"},
                                     {"1", "7", "10", "0", "piros"}});
  EXPECT_TRUE(persister.updateItem(7, {{"name", "Szín"}, {"type", "2"}, {"process", "1"}, {"mandatory", "1"}}));
  EXPECT_EQ(company.query("select t_itemvariable_1, row, value from t_invoiceitemdata"), (Grid{{"7", "0", "piros"}}));
}

TEST_F(ItemDataSettingsPersisterTest, tellsThatARowWasNotThereToUpdate) {
  EXPECT_FALSE(persister.updateItem(5, {{"name", "Gyári szám"}}));
}

TEST_F(ItemDataSettingsPersisterTest, tellsThatANumberWasNone) {
  fillVariables();
  EXPECT_FALSE(persister.updateItem(5, {{"name", "Gyári szám"}, {"type", "szöveg"}}));
  EXPECT_EQ(company.query("select name, type from t_itemvariable where t_itemvariable_id=5"),
            (Grid{{"Gyári szám", "1"}}));
}

// ---- deleting

TEST_F(ItemDataSettingsPersisterTest, deletesTheRowOfTheKey) {
  fillVariables();
  EXPECT_THAT(watch([&] { EXPECT_TRUE(persister.deleteItem(5)); }), ElementsAre(deleteOf("t_itemvariable_id='5'")));
  EXPECT_EQ(company.query(kVariablesSql), (Grid{kQuantity, {"7", "Szín", "3", "0", "0", "piros,kék"}}));
}

TEST_F(ItemDataSettingsPersisterTest, deletesAgainAndAgain) {
  fillVariables();
  EXPECT_TRUE(persister.deleteItem(5));
  EXPECT_TRUE(persister.deleteItem(7));
  EXPECT_EQ(company.query(kVariablesSql), Grid{kQuantity});
}

TEST_F(ItemDataSettingsPersisterTest, tellsThatADeletionWasRefused) {
  fillVariables();
  company.run("create trigger refuse before delete on t_itemvariable begin select raise(abort, 'no'); end");
  EXPECT_FALSE(persister.deleteItem(5));
}

// ---- the transaction

TEST_F(ItemDataSettingsPersisterTest, failsTheTransactionThatItsRowsAreSavedIn) {
  fillVariables();
  TarnwellDatabase& db = *company.getDB();
  ASSERT_TRUE(db.begin());
  EXPECT_TRUE(persister.deleteItem(5));
  EXPECT_TRUE(persister.insertItem({{"name", "Lejárat"}, {"type", "2"}}));
  EXPECT_FALSE(persister.updateItem(99, {{"name", "Nincs"}}));
  EXPECT_FALSE(db.commit());
  EXPECT_EQ(company.query("select t_itemvariable_id from t_itemvariable order by 1"), (Grid{{"-1"}, {"5"}, {"7"}}));
}

TEST_F(ItemDataSettingsPersisterTest, writesNothingByItself) {
  EXPECT_THAT(watch([&] { const ItemDataSettingsPersister unused(company.getDB()); }), IsEmpty());
}

}  // namespace
}  // namespace Quillane::Plugin::ItemData
