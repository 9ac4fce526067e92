// The texts that the item data module sends have to run as they stand.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "plugin/contract/Schema.h"
#include "tests/host/database/DatabaseFixture.h"

using namespace FX;
using Quillane::Model::Column;
using Quillane::Model::Schema;
using Quillane::Model::Table;

namespace {

class ModuleTable : public Table {
 public:
  ModuleTable(Schema* schema, const FXString& tableName, std::vector<FXString> references, std::vector<FXString> plain)
      : Table(schema, tableName), referenceNames(std::move(references)), columnNames(std::move(plain)) {}

  void init() override {
    for (const FXString& target : referenceNames)
      addReference(target + "_1", Column::INTEGER, target == "t_itemvariable" && getName() == "t_invoiceitemdata",
                   target, 1, "", Column::FOLLOW_TARGET);
    for (const FXString& column : columnNames)
      addColumn(column, column == "name" || column.contains("value") ? Column::TEXT : Column::INTEGER);
  }

 private:
  std::vector<FXString> referenceNames;
  std::vector<FXString> columnNames;
};

class ModuleSql : public DatabaseFixture {
 protected:
  void SetUp() override {
    DatabaseFixture::SetUp();
    runAll(
        "create table t_invoice (t_invoice_id integer primary key, t_invoicestatus_1 integer);"
        "create table t_invoiceitem (t_invoiceitem_id integer primary key, t_invoice_1 integer, t_invoiceitem_1 "
        "integer);"
        "create table t_product (t_product_id integer primary key);"
        "create table t_suite (t_suite_id integer primary key);"
        "create table t_service (t_service_id integer primary key)");
    Schema schema;
    new ModuleTable(&schema, "t_invoiceitemdata", {"t_itemvariable", "t_invoiceitem"}, {"row", "value"});
    new ModuleTable(&schema, "t_itemvariable", {}, {"name", "type", "process", "mandatory", "vvalue"});
    for (const char* article : {"product", "suite", "service"})
      new ModuleTable(&schema, FXString("t_") + article + "itemdata", {FXString("t_") + article, "t_itemvariable"},
                      {"position", "direction"});
    ASSERT_TRUE(schema.sync(database.get())) << lastError();

    // Item 1 is the source of the others, on two closed documents, a cancelling one and a draft.
    runAll(
        "insert into t_itemvariable values (-1, 'Mennyiség', -1, 1, 1, null), (1, 'Gyári szám', 1, 1, 1, ''),"
        " (2, 'Szín', 3, 0, 0, 'piros,kék'), (3, 'Belső', 100, 0, 0, null);"
        "insert into t_product values (7); insert into t_suite values (7); insert into t_service values (7);"
        "insert into t_productitemdata values (1, 7, 1, 1, 100), (2, 7, 2, 2, 100), (3, 7, 2, 1, 200);"
        "insert into t_suiteitemdata values (1, 7, 2, 1, 100);"
        "insert into t_serviceitemdata values (1, 7, 2, 1, 100);"
        "insert into t_invoice values (10, 801), (11, 151), (12, 151), (13, 152), (14, 101);"
        "insert into t_invoiceitem values (1, 10, null), (2, 11, 1), (3, 12, 1), (4, 13, 1), (5, 14, 1);"
        "insert into t_invoiceitemdata values (1, -1, 1, 1, '10'), (2, 1, 1, 1, 'SN-1'), (3, null, 1, 0, 'orphan'),"
        " (4, -1, 2, 1, '2.5'), (5, -1, 3, 1, '0.1'), (6, -1, 4, 1, '0.2'), (7, -1, 5, 1, '5')");
  }

  void runAll(const std::string& sql) { ASSERT_TRUE(OtherProgram(file).run(sql)); }

  // Runs sql with integers bound by name.
  Rows query(const FXString& sql, const std::vector<std::pair<const char*, int>>& values) {
    Statement statement(database.get(), sql);
    for (const auto& [name, value] : values) statement.setInt(name, value);
    GridLoader grid;
    EXPECT_TRUE(statement.execute(&grid, 1)) << lastError();
    return grid.grid;
  }
};

TEST_F(ModuleSql, readsAnEntry) {
  EXPECT_EQ(
      query("select value, t_invoiceitemdata_id from t_invoiceitemdata where t_invoiceitem_1=%t_invoiceitem_1 and "
            "t_itemvariable_1=%t_itemvariable_1 and row=%row",
            {{"t_itemvariable_1", 1}, {"t_invoiceitem_1", 1}, {"row", 1}}),
      (Rows{{"SN-1", "2"}}));
  EXPECT_EQ(query("select value, 0 from t_invoiceitemdata where t_invoiceitem_1=%t_invoiceitem_1 and "
                  "t_itemvariable_1=%t_itemvariable_1 and row=%row",
                  {{"t_itemvariable_1", 1}, {"t_invoiceitem_1", 1}, {"row", 1}}),
            (Rows{{"SN-1", "0"}}));
}

TEST_F(ModuleSql, readsAnEntryWithoutAVariable) {
  EXPECT_EQ(
      query("select value, t_invoiceitemdata_id from t_invoiceitemdata where t_invoiceitem_1=%t_invoiceitem_1 and "
            "t_itemvariable_1 is NULL and row=%row",
            {{"t_invoiceitem_1", 1}, {"row", 0}}),
      (Rows{{"orphan", "3"}}));
  EXPECT_EQ(
      query("select value, 0 from t_invoiceitemdata where t_invoiceitem_1=%t_invoiceitem_1 and t_itemvariable_1 is "
            "NULL and row=%row",
            {{"t_invoiceitem_1", 1}, {"row", 0}}),
      (Rows{{"orphan", "0"}}));
}

TEST_F(ModuleSql, readsTheRemainingQuantity) {
  const FXString sql =
      "select iid.value-ifnull(rst.value,0) as value, 0 from t_invoiceitemdata iid left join ( select "
      "(ifnull(n.value,0)+ifnull(s.value,0)) as value, %t_invoiceitem_1 as item from ( select sum(value) value, row "
      "from "
      "t_invoiceitemdata iid where  t_itemvariable_1=%t_itemvariable_1 and iid.row=%row and iid.t_invoiceitem_1 in ( "
      "select t_invoiceitem_id from t_invoiceitem ii join t_invoice i on ii.t_invoice_1=i.t_invoice_id and "
      "i.t_invoicestatus_1=%closed and ii.t_invoiceitem_1=%t_invoiceitem_1) ) n left join ( select sum(-1*value) "
      "value, "
      "row  from t_invoiceitemdata iid where t_itemvariable_1=%t_itemvariable_1 and row=%row and iid.t_invoiceitem_1 "
      "in "
      "(select t_invoiceitem_id from t_invoiceitem ii join t_invoice i on ii.t_invoice_1=i.t_invoice_id and "
      "i.t_invoicestatus_1=%storno and ii.t_invoiceitem_1=%t_invoiceitem_1) ) s on (s.row=n.row) ) rst on "
      "iid.t_invoiceitem_1=rst.item where t_itemvariable_1=%t_itemvariable_1 and t_invoiceitem_1=%t_invoiceitem_1 and "
      "row=%row";
  const std::vector<std::pair<const char*, int>> values = {
      {"closed", 151}, {"storno", 152}, {"t_itemvariable_1", -1}, {"t_invoiceitem_1", 1}, {"row", 1}};
  // 10 - (2.5 + 0.1 - 0.2), as a plain number.
  EXPECT_EQ(query(sql, values), (Rows{{"7.6", "0"}}));
  ASSERT_TRUE(run("delete from t_invoiceitemdata where t_invoiceitemdata_id in (5, 6)"));
  ASSERT_TRUE(run("update t_invoiceitemdata set value='3' where t_invoiceitemdata_id=4"));
  EXPECT_EQ(query(sql, values), (Rows{{"7", "0"}}));
  ASSERT_TRUE(run("delete from t_invoiceitemdata where t_invoiceitemdata_id > 3"));
  EXPECT_EQ(query(sql, values), (Rows{{"10", "0"}}));
}

TEST_F(ModuleSql, readsTheVariablesOfAnArticle) {
  EXPECT_EQ(
      query("select type,null,t_itemvariable_1,name,mandatory,process,vvalue from t_productitemdata join "
            "t_itemvariable on  t_itemvariable_1= t_itemvariable_id where direction=%direction and t_product_1=%id "
            "order by process, position",
            {{"id", 7}, {"direction", 100}}),
      (Rows{{"3", "(null)", "2", "Szín", "0", "0", "piros,kék"}, {"1", "(null)", "1", "Gyári szám", "1", "1", ""}}));
  for (const FXString article : {"suite", "service"}) {
    EXPECT_EQ(
        query("select type,null,t_itemvariable_1,name,mandatory,process,vvalue from t_" + article +
                  "itemdata join t_itemvariable on  t_itemvariable_1= t_itemvariable_id where direction=%direction "
                  "and t_" +
                  article + "_1=%id order by process, position",
              {{"id", 7}, {"direction", 100}}),
        (Rows{{"3", "(null)", "2", "Szín", "0", "0", "piros,kék"}}));
  }
}

TEST_F(ModuleSql, readsTheRowsOfAnItem) {
  EXPECT_EQ(
      query("select type,t_invoiceitemdata_id,t_itemvariable_1,name,mandatory,row,value from t_invoiceitemdata left "
            "join t_itemvariable on t_itemvariable_1=t_itemvariable_id where t_invoiceitem_1=%id order by row, "
            "t_invoiceitemdata_id",
            {{"id", 1}}),
      (Rows{{"(null)", "3", "(null)", "(null)", "(null)", "0", "orphan"},
            {"-1", "1", "-1", "Mennyiség", "1", "1", "10"},
            {"1", "2", "1", "Gyári szám", "1", "1", "SN-1"}}));
  EXPECT_EQ(
      query("select type,0,t_itemvariable_1,name,mandatory,row,value from t_invoiceitemdata left join t_itemvariable "
            "on t_itemvariable_1=t_itemvariable_id where t_invoiceitem_1=%id order by row, t_invoiceitemdata_id",
            {{"id", 1}})
          .size(),
      3u);
}

TEST_F(ModuleSql, readsTheVariablesThatCanBeEdited) {
  EXPECT_EQ(
      query("select t_itemvariable_id, name, type, process, mandatory, vvalue from t_itemvariable where type < 100 and "
            "type>0;",
            {}),
      (Rows{{"1", "Gyári szám", "1", "1", "1", ""}, {"2", "Szín", "3", "0", "0", "piros,kék"}}));
}

TEST_F(ModuleSql, countsTheUsesOfAVariable) {
  const FXString sql =
      "select count(*) from t_itemvariable left join t_productitemdata pid on t_itemvariable_id=pid.t_itemvariable_1 "
      "left "
      "join t_serviceitemdata sid on t_itemvariable_id=sid.t_itemvariable_1 left join t_suiteitemdata suid on "
      "t_itemvariable_id=suid.t_itemvariable_1 where pid.t_itemvariable_1=%id or sid.t_itemvariable_1=%id or "
      "suid.t_itemvariable_1=%id;";
  const auto uses = [this, &sql](int id) {
    Statement statement(database.get(), sql);
    statement.setInt("id", id);
    return statement.queryInt(0);
  };
  EXPECT_EQ(uses(1), 1);
  EXPECT_EQ(uses(2), 2);
  EXPECT_EQ(uses(3), 0);
}

TEST_F(ModuleSql, readsTheAssignmentsOfAnArticle) {
  const FXString before =
      "select iv.t_itemvariable_id, t_productitemdata_id, coalesce(sid.t_itemvariable_1,0) tick, "
      "coalesce(sid.position,0), "
      "%direction , %productid , iv.name, iv.mandatory, iv.type, iv.process from t_itemvariable iv left join "
      "t_productitemdata sid on sid.t_itemvariable_1=iv.t_itemvariable_id and t_product_1=%productid and "
      "sid.direction=%direction where iv.type>0 order by sid.position";
  EXPECT_EQ(query(before, {{"productid", 7}, {"direction", 200}}),
            (Rows{{"1", "(null)", "0", "0", "200", "7", "Gyári szám", "1", "1", "1"},
                  {"3", "(null)", "0", "0", "200", "7", "Belső", "0", "100", "0"},
                  {"2", "3", "2", "1", "200", "7", "Szín", "0", "3", "0"}}));
  EXPECT_EQ(query(before + ";", {{"productid", 7}, {"direction", 100}}).size(), 3u);
}

TEST_F(ModuleSql, findsTheQuantityVariable) {
  EXPECT_EQ(database->queryScalar("select count(1) from t_itemvariable where t_itemvariable_id=-1", 1, -1), 1);
}

TEST_F(ModuleSql, savesAnEntry) {
  InsertStatement insert(database.get(), "t_invoiceitemdata");
  insert.setInt("t_invoiceitem_1", 5);
  insert.setString("value", "x");
  insert.setInt("row", 2);
  ASSERT_TRUE(insert.execute(nullptr, 1)) << lastError();
  UpdateStatement update(database.get(), "t_invoiceitemdata", "t_invoiceitemdata_id=%t_invoiceitemdata_id");
  update.setInt("t_invoiceitemdata_id", 8);
  update.setInt("t_itemvariable_1", 1);
  update.setInt("t_invoiceitem_1", 5);
  update.setString("value", "y");
  update.setInt("row", 3);
  ASSERT_TRUE(update.execute(nullptr, 1)) << lastError();
  EXPECT_EQ(rows("select * from t_invoiceitemdata where t_invoiceitemdata_id=8"), (Rows{{"8", "1", "5", "3", "y"}}));
  DeleteStatement removal(database.get(), "t_invoiceitemdata");
  removal.setInt("t_invoiceitemdata_id", 8);
  ASSERT_TRUE(removal.execute(nullptr, 1)) << lastError();
  EXPECT_EQ(rows("select count(*) from t_invoiceitemdata"), (Rows{{"7"}}));
}

TEST_F(ModuleSql, movesAnAssignment) {
  UpdateStatement update(database.get(), "t_productitemdata", "t_productitemdata_id = %assignId");
  update.setInt("assignId", 3);
  update.setInt("position", 4);
  ASSERT_TRUE(update.execute(nullptr, 1)) << lastError();
  EXPECT_EQ(rows("select position from t_productitemdata"), (Rows{{"1"}, {"2"}, {"4"}}));
  update.setInt("assignId", 99);
  EXPECT_FALSE(update.execute(nullptr, 0));
}

TEST_F(ModuleSql, deletesTheDataOfADeletedItemAndKeepsThoseOfADeletedVariable) {
  ASSERT_TRUE(run("delete from t_invoiceitem where t_invoiceitem_id=5"));
  ASSERT_TRUE(run("delete from t_itemvariable where t_itemvariable_id=1"));
  EXPECT_EQ(
      rows("select t_invoiceitemdata_id, t_itemvariable_1 from t_invoiceitemdata where t_invoiceitemdata_id in (2, 7)"),
      (Rows{{"2", "(null)"}}));
}

}  // namespace
