// The module's tables: what is declared, what the database has afterwards, and the one row that is always there.
#include "plugin/Model.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <type_traits>
#include <vector>

#include "tests/plugin/PluginTest.h"
#include "tests/plugin/TextCatalogue.h"

using namespace FX;
using testing::ElementsAre;

namespace Quillane::Plugin::ItemData {
namespace {

// As the statement log tells them.
const char* const kCountQuantity =
    "select count(1) from t_itemvariable where t_itemvariable_id=-1\n"
    "    ";
const char* const kSeed =
    "insert into t_itemvariable (t_itemvariable_id, name, type, process, mandatory) "
    "values (%t_itemvariable_id, %name, %type, %process, %mandatory)\n"
    "    t_itemvariable_id='-1', name='Mennyiség', type='-1', process='1', mandatory='1'";

const Grid kQuantityRow = {{"-1", "Mennyiség", "-1", "1", "1", "NULL"}};
const char* const kAllVariablesSql =
    "select t_itemvariable_id, name, type, process, mandatory, vvalue from t_itemvariable order by 1";

/// What a table of this class declares, a line for each column and index, in the order of declaration. The further
/// arguments are those of the class's constructor behind the schema.
template <class T, class... Arguments>
std::vector<std::string> declarationOf(Arguments... arguments) {
  Quillane::Model::Schema schema;
  Quillane::Model::Table* table = new T(&schema, arguments...);
  table->init();
  std::vector<std::string> lines{table->getName().text()};
  for (FXint i = 0; i < table->getColumns().no(); ++i) {
    const Quillane::Model::Column& column = *table->getColumns()[i];
    std::string line = column.getName().text();
    line += column.getType() == Quillane::Model::Column::TEXT ? " text" : " integer";
    if (column.isReference()) {
      line += std::string(" -> ") + column.getTargetColumn().text() + " of " + column.getTargetTable().text();
      line += column.isNullable() ? " nullable" : " required";
      line += " rule " + std::to_string(column.getOnDelete());
    }
    lines.push_back(line);
  }
  for (FXint i = 0; i < table->getIndexes().no(); ++i) {
    std::string line = "index over";
    for (const FXString& column : table->getIndexes()[i]->getColumns()) line += std::string(" ") + column.text();
    lines.push_back(line);
  }
  return lines;
}

TEST(ModelDeclaration, ofItemVariables) {
  EXPECT_THAT(declarationOf<Model::ItemVariable>(), ElementsAre("t_itemvariable", "name text", "type integer",
                                                                "process integer", "mandatory integer", "vvalue text"));
}

TEST(ModelDeclaration, ofRecordedValues) {
  EXPECT_THAT(declarationOf<Model::InvoiceItemData>(),
              ElementsAre("t_invoiceitemdata",
                          "t_itemvariable_1 integer -> t_itemvariable_id of t_itemvariable nullable rule 4",
                          "t_invoiceitem_1 integer -> t_invoiceitem_id of t_invoiceitem required rule 4", "row integer",
                          "value text", "index over t_itemvariable_1", "index over t_invoiceitem_1",
                          "index over t_invoiceitem_1 row t_itemvariable_1"));
}

TEST(ModelDeclaration, ofAssignmentsToAnyArticle) {
  EXPECT_THAT(
      declarationOf<Model::BaseItemData>("t_kititemdata", "t_kit"),
      ElementsAre("t_kititemdata", "t_kit_1 integer -> t_kit_id of t_kit required rule 4",
                  "t_itemvariable_1 integer -> t_itemvariable_id of t_itemvariable required rule 4", "position integer",
                  "direction integer", "index over t_kit_1", "index over t_itemvariable_1"));
  EXPECT_TRUE((std::is_base_of_v<Model::BaseItemData, Model::ProductItemData>));
  EXPECT_TRUE((std::is_base_of_v<Model::BaseItemData, Model::SuiteItemData>));
  EXPECT_TRUE((std::is_base_of_v<Model::BaseItemData, Model::ServiceItemData>));
}

TEST(ModelDeclaration, ofAssignmentsToProducts) {
  EXPECT_THAT(
      declarationOf<Model::ProductItemData>(),
      ElementsAre("t_productitemdata", "t_product_1 integer -> t_product_id of t_product required rule 4",
                  "t_itemvariable_1 integer -> t_itemvariable_id of t_itemvariable required rule 4", "position integer",
                  "direction integer", "index over t_product_1", "index over t_itemvariable_1"));
}

TEST(ModelDeclaration, ofAssignmentsToSuites) {
  EXPECT_THAT(
      declarationOf<Model::SuiteItemData>(),
      ElementsAre("t_suiteitemdata", "t_suite_1 integer -> t_suite_id of t_suite required rule 4",
                  "t_itemvariable_1 integer -> t_itemvariable_id of t_itemvariable required rule 4", "position integer",
                  "direction integer", "index over t_suite_1", "index over t_itemvariable_1"));
}

TEST(ModelDeclaration, ofAssignmentsToServices) {
  EXPECT_THAT(
      declarationOf<Model::ServiceItemData>(),
      ElementsAre("t_serviceitemdata", "t_service_1 integer -> t_service_id of t_service required rule 4",
                  "t_itemvariable_1 integer -> t_itemvariable_id of t_itemvariable required rule 4", "position integer",
                  "direction integer", "index over t_service_1", "index over t_itemvariable_1"));
}

class ModelTest : public PluginTest {
 protected:
  /// Name, type, whether required, place in the key, of every column.
  Grid columnsOf(const std::string& table) {
    return company.query("select name, type, \"notnull\", pk from pragma_table_info('" + table + "') order by cid");
  }

  /// Column, target, on-delete action, of every reference.
  Grid referencesOf(const std::string& table) {
    return company.query("select \"from\", \"table\", on_delete from pragma_foreign_key_list('" + table +
                         "') order by 1");
  }

  /// The columns of every index, parted by commas.
  Grid indexesOf(const std::string& table) {
    return company.query(
        "select (select group_concat(name) from (select name from pragma_index_info(i.name) order by seqno)) "
        "from pragma_index_list('" +
        table + "') i order by 1");
  }

  /// Everything that the module's tables are and hold.
  Grid everything() {
    Grid all = company.query("select type, name, tbl_name, sql from sqlite_master order by 1, 2, 3");
    for (const char* table :
         {"t_itemvariable", "t_invoiceitemdata", "t_productitemdata", "t_serviceitemdata", "t_suiteitemdata"})
      for (const auto& row : company.query(std::string("select * from ") + table)) all.push_back(row);
    return all;
  }
};

TEST_F(ModelTest, givesADatabaseItsFiveTables) {
  Model::initDB(&db());

  EXPECT_EQ(columnsOf("t_itemvariable"), (Grid{{"t_itemvariable_id", "INTEGER", "0", "1"},
                                               {"name", "TEXT", "0", "0"},
                                               {"type", "INTEGER", "0", "0"},
                                               {"process", "INTEGER", "0", "0"},
                                               {"mandatory", "INTEGER", "0", "0"},
                                               {"vvalue", "TEXT", "0", "0"}}));
  EXPECT_EQ(columnsOf("t_invoiceitemdata"), (Grid{{"t_invoiceitemdata_id", "INTEGER", "0", "1"},
                                                  {"t_itemvariable_1", "INTEGER", "0", "0"},
                                                  {"t_invoiceitem_1", "INTEGER", "1", "0"},
                                                  {"row", "INTEGER", "0", "0"},
                                                  {"value", "TEXT", "0", "0"}}));
  for (const char* article : {"product", "suite", "service"}) {
    const std::string table = std::string("t_") + article + "itemdata";
    const std::string reference = std::string("t_") + article + "_1";
    EXPECT_EQ(columnsOf(table), (Grid{{table + "_id", "INTEGER", "0", "1"},
                                      {reference, "INTEGER", "1", "0"},
                                      {"t_itemvariable_1", "INTEGER", "1", "0"},
                                      {"position", "INTEGER", "0", "0"},
                                      {"direction", "INTEGER", "0", "0"}}));
  }
}

TEST_F(ModelTest, makesEveryReferenceOneThatTheDatabaseKeeps) {
  Model::initDB(&db());

  EXPECT_EQ(referencesOf("t_itemvariable"), Grid{});
  EXPECT_EQ(referencesOf("t_invoiceitemdata"), (Grid{{"t_invoiceitem_1", "t_invoiceitem", "CASCADE"},
                                                     {"t_itemvariable_1", "t_itemvariable", "SET NULL"}}));
  EXPECT_EQ(referencesOf("t_productitemdata"),
            (Grid{{"t_itemvariable_1", "t_itemvariable", "CASCADE"}, {"t_product_1", "t_product", "CASCADE"}}));
  EXPECT_EQ(referencesOf("t_suiteitemdata"),
            (Grid{{"t_itemvariable_1", "t_itemvariable", "CASCADE"}, {"t_suite_1", "t_suite", "CASCADE"}}));
  EXPECT_EQ(referencesOf("t_serviceitemdata"),
            (Grid{{"t_itemvariable_1", "t_itemvariable", "CASCADE"}, {"t_service_1", "t_service", "CASCADE"}}));
}

TEST_F(ModelTest, makesAnIndexForEveryReferenceAndOneForTheLookUpOfAnEntry) {
  Model::initDB(&db());

  EXPECT_EQ(indexesOf("t_itemvariable"), Grid{});
  EXPECT_EQ(indexesOf("t_invoiceitemdata"),
            (Grid{{"t_invoiceitem_1"}, {"t_invoiceitem_1,row,t_itemvariable_1"}, {"t_itemvariable_1"}}));
  EXPECT_EQ(indexesOf("t_productitemdata"), (Grid{{"t_itemvariable_1"}, {"t_product_1"}}));
  EXPECT_EQ(indexesOf("t_suiteitemdata"), (Grid{{"t_itemvariable_1"}, {"t_suite_1"}}));
  EXPECT_EQ(indexesOf("t_serviceitemdata"), (Grid{{"t_itemvariable_1"}, {"t_service_1"}}));
}

TEST_F(ModelTest, needsNoTableOfTheHostsToBeThereBefore) {
  FXString error;
  testAccount().setDB(TarnwellDatabase::open(":memory:", error));
  ASSERT_NE(testAccount().getDB(), nullptr) << error.text();

  Model::initDB(&db());

  EXPECT_EQ(company.query("select name from sqlite_master where type='table' and name not like 'sqlite_%' order by 1"),
            (Grid{{"t_invoiceitemdata"},
                  {"t_itemvariable"},
                  {"t_productitemdata"},
                  {"t_serviceitemdata"},
                  {"t_suiteitemdata"}}));
  EXPECT_EQ(company.query(kAllVariablesSql), kQuantityRow);
}

TEST_F(ModelTest, leavesNoReferenceWithoutItsTarget) {
  Model::initDB(&db());
  EXPECT_EQ(company.query("pragma foreign_key_check"), Grid{});
}

TEST_F(ModelTest, seedsTheQuantityVariableAndNothingElse) {
  Model::initDB(&db());
  EXPECT_EQ(company.query(kAllVariablesSql), kQuantityRow);
  for (const char* table : {"t_invoiceitemdata", "t_productitemdata", "t_suiteitemdata", "t_serviceitemdata"})
    EXPECT_EQ(company.query(std::string("select count(*) from ") + table), (Grid{{"0"}})) << table;
}

TEST_F(ModelTest, seedsWithTheseStatements) {
  const std::vector<std::string> log = watch([this] { Model::initDB(&db()); });
  EXPECT_THAT(log, ElementsAre(kCountQuantity, kSeed));
}

TEST_F(ModelTest, storesTheNameOfTheQuantityInNobodysLanguage) {
  const TextCatalogue ofTheHost("messages", {{"Mennyiség", "Quantity"}});
  const TextCatalogue ofTheModule("QuillanePluginItemData", {{"Mennyiség", "Quantity"}});
  Model::initDB(&db());
  EXPECT_EQ(company.query(kAllVariablesSql), kQuantityRow);
}

TEST_F(ModelTest, failsTheTransactionWhenTheQuantityVariableCannotBeStored) {
  Model::initDB(&db());
  company.run("delete from t_itemvariable");
  company.run("create trigger refuse before insert on t_itemvariable begin select raise(abort, 'no'); end");
  ASSERT_TRUE(db().begin());
  Model::initDB(&db());
  EXPECT_FALSE(db().commit());
}

TEST_F(ModelTest, changesNothingOnASecondStart) {
  Model::initDB(&db());
  const Grid before = everything();

  const std::vector<std::string> log = watch([this] { Model::initDB(&db()); });

  EXPECT_THAT(log, ElementsAre(kCountQuantity));
  EXPECT_EQ(everything(), before);
}

TEST_F(ModelTest, leavesARenamedQuantityVariableAsItIs) {
  Model::initDB(&db());
  company.run("update t_itemvariable set name='Darabszám', mandatory=0, vvalue='x' where t_itemvariable_id=-1");

  Model::initDB(&db());

  EXPECT_EQ(company.query(kAllVariablesSql), (Grid{{"-1", "Darabszám", "-1", "1", "0", "x"}}));
}

TEST_F(ModelTest, bringsADeletedQuantityVariableBack) {
  Model::initDB(&db());
  company.run("insert into t_itemvariable (t_itemvariable_id, name, type) values (1, 'Szín', 1)");
  company.run("delete from t_itemvariable where t_itemvariable_id=-1");

  Model::initDB(&db());

  EXPECT_EQ(company.query(kAllVariablesSql), (Grid{kQuantityRow[0], {"1", "Szín", "1", "NULL", "NULL", "NULL"}}));
}

TEST_F(ModelTest, addsWhatAnOlderDatabaseLacksAndKeepsItsRows) {
  company.run("create table t_itemvariable (t_itemvariable_id integer primary key, name text)");
  company.run("insert into t_itemvariable (t_itemvariable_id, name) values (7, 'Gyári szám')");

  Model::initDB(&db());

  EXPECT_EQ(company.query(kAllVariablesSql),
            (Grid{kQuantityRow[0], {"7", "Gyári szám", "NULL", "NULL", "NULL", "NULL"}}));
}

TEST_F(ModelTest, deletesWhatBelongsToADeletedVariableAndForgetsItInRecordedValues) {
  Model::initDB(&db());
  company.run("insert into t_itemvariable (t_itemvariable_id, name, type, process) values (1, 'Szín', 1, 0)");
  company.run("insert into t_product (t_product_id, name) values (1, 'Szék')");
  company.run(
      "insert into t_productitemdata (t_product_1, t_itemvariable_1, position, direction) values (1, 1, 1, 100)");
  company.run("insert into t_invoice (t_invoice_id, t_invoicestatus_1) values (1, 101)");
  company.run("insert into t_invoiceitem (t_invoiceitem_id, t_invoice_1) values (1, 1)");
  company.run(
      "insert into t_invoiceitemdata (t_itemvariable_1, t_invoiceitem_1, row, value) values (1, 1, 0, 'piros')");

  company.run("delete from t_itemvariable where t_itemvariable_id=1");
  EXPECT_EQ(company.query("select * from t_productitemdata"), Grid{});
  EXPECT_EQ(company.query("select t_itemvariable_1, value from t_invoiceitemdata"), (Grid{{"NULL", "piros"}}));

  company.run("delete from t_invoiceitem where t_invoiceitem_id=1");
  EXPECT_EQ(company.query("select * from t_invoiceitemdata"), Grid{});
}

TEST_F(ModelTest, seedsNothingWhenTheDatabaseRefusesTheTables) {
  company.run("pragma query_only=1");
  const std::vector<std::string> log = watch([this] { Model::initDB(&db()); });
  EXPECT_THAT(log, ElementsAre(kCountQuantity)) << "a count that could not be read is no count of 0";
  company.run("pragma query_only=0");
  EXPECT_EQ(company.query("select name from sqlite_master where name like 't_%itemdata' or name='t_itemvariable'"),
            Grid{});
}

}  // namespace
}  // namespace Quillane::Plugin::ItemData
