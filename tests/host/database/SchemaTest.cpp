#include "plugin/contract/Schema.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <string>
#include <utility>

#include "tests/host/database/DatabaseFixture.h"

using namespace FX;
using Quillane::Model::Column;
using Quillane::Model::Schema;
using Quillane::Model::Table;
using testing::ElementsAre;
using testing::HasSubstr;

namespace {

// A table whose declaration is written where it is used.
class AnyTable : public Table {
 public:
  AnyTable(Schema* schema, const FXString& tableName, std::function<void(Table&)> declaration)
      : Table(schema, tableName), declare(std::move(declaration)) {}
  void init() override {
    ++inits;
    declare(*this);
  }
  int inits = 0;

 private:
  std::function<void(Table&)> declare;
};

void declareVariable(Table& table) {
  table.addColumn("name", Column::TEXT);
  table.addColumn("type", Column::INTEGER);
  table.addColumn("order", Column::TEXT);
}

void declareItem(Table& table) { table.addColumn("name", Column::TEXT); }

void declareData(Table& table) {
  table.addReference("t_variable_1", Column::INTEGER, 1, "t_variable", 1, "", Column::FOLLOW_TARGET);
  table.addReference("t_item_1", Column::INTEGER, 0, "t_item", 1, "", Column::FOLLOW_TARGET);
  table.addColumn("row", Column::INTEGER);
  table.addColumn("value", Column::TEXT);
  table.addIndex("i_t_data_entry", {"t_item_1", "t_variable_1", "row"});
}

class SchemaTest : public DatabaseFixture {
 protected:
  // Brings the database in line with the three tables; reversed: those that are referred to come first.
  bool sync(bool reversed = false) {
    Schema schema;
    std::vector<std::pair<const char*, void (*)(Table&)>> tables = {
        {"t_data", declareData}, {"t_item", declareItem}, {"t_variable", declareVariable}};
    if (reversed) std::reverse(tables.begin(), tables.end());
    for (const auto& [name, declare] : tables) new AnyTable(&schema, name, declare);
    return schema.sync(database.get());
  }

  Rows columns(const FXString& table) {
    return rows("select name, type, \"notnull\", pk from pragma_table_info('" + table + "')");
  }

  Rows references(const FXString& table) {
    return rows("select \"from\", \"table\", \"to\", on_delete from pragma_foreign_key_list('" + table +
                "') order by 1");
  }

  // The columns of an index in their order.
  Rows indexed(const FXString& index) { return rows("select name from pragma_index_info('" + index + "')"); }

  Rows indexes() { return rows("select name, tbl_name from sqlite_master where type='index' order by 1"); }

  Rows whole() { return rows("select type, name, tbl_name, rootpage, sql from sqlite_master"); }

  // What tells whether anything was written.
  std::string marks() {
    return rows("select total_changes()")[0][0] + "/" + rows("pragma schema_version")[0][0] + "/" +
           rows("pragma data_version")[0][0];
  }

  void expectComplete() {
    EXPECT_EQ(columns("t_data"), (Rows{{"t_data_id", "INTEGER", "0", "1"},
                                       {"t_variable_1", "INTEGER", "0", "0"},
                                       {"t_item_1", "INTEGER", "1", "0"},
                                       {"row", "INTEGER", "0", "0"},
                                       {"value", "TEXT", "0", "0"}}));
    EXPECT_EQ(columns("t_variable"), (Rows{{"t_variable_id", "INTEGER", "0", "1"},
                                           {"name", "TEXT", "0", "0"},
                                           {"type", "INTEGER", "0", "0"},
                                           {"order", "TEXT", "0", "0"}}));
    expectReferencesAndIndexes();
  }

  void expectReferencesAndIndexes() {
    EXPECT_EQ(references("t_data"), (Rows{{"t_item_1", "t_item", "t_item_id", "CASCADE"},
                                          {"t_variable_1", "t_variable", "t_variable_id", "SET NULL"}}));
    EXPECT_EQ(
        indexes(),
        (Rows{{"i_t_data_entry", "t_data"}, {"i_t_data_t_item_1", "t_data"}, {"i_t_data_t_variable_1", "t_data"}}));
    EXPECT_EQ(indexed("i_t_data_entry"), (Rows{{"t_item_1"}, {"t_variable_1"}, {"row"}}));
    EXPECT_EQ(indexed("i_t_data_t_item_1"), (Rows{{"t_item_1"}}));
  }
};

TEST_F(SchemaTest, makesEverythingInAnEmptyDatabase) {
  ASSERT_TRUE(sync()) << lastError();
  expectComplete();
}

TEST_F(SchemaTest, acceptsTheTablesInAnyOrder) {
  ASSERT_TRUE(sync(true)) << lastError();
  expectComplete();
}

TEST_F(SchemaTest, writesNothingInASecondRun) {
  ASSERT_TRUE(sync());
  const Rows before = whole();
  const std::string marksBefore = marks();
  ASSERT_TRUE(sync()) << lastError();
  ASSERT_TRUE(sync(true)) << lastError();
  EXPECT_EQ(whole(), before);
  EXPECT_EQ(marks(), marksBefore);
}

TEST_F(SchemaTest, needsNoWriteLockWhenNothingIsMissing) {
  ASSERT_TRUE(sync());
  OtherProgram other(file);
  ASSERT_TRUE(other.run("begin immediate; insert into t_item (name) values ('x')"));
  EXPECT_TRUE(sync()) << lastError();
}

TEST_F(SchemaTest, saysThatAnotherProgramIsInTheWayOfWhatIsMissing) {
  OtherProgram other(file);
  ASSERT_TRUE(other.run("begin immediate"));
  EXPECT_FALSE(sync());
  EXPECT_THAT(lastError(), HasSubstr("Az adatbázist egy másik program zárolja."));
  EXPECT_FALSE(database->isInTransaction());
  ASSERT_TRUE(other.run("commit"));
  EXPECT_TRUE(sync());
}

TEST_F(SchemaTest, showsTheObserverNothing) {
  RecordingObserver observer;
  database->setObserver(&observer);
  ASSERT_TRUE(sync());
  ASSERT_TRUE(sync());
  database->setObserver(nullptr);
  EXPECT_THAT(observer.lines, testing::IsEmpty());
}

TEST_F(SchemaTest, makesAMissingTable) {
  ASSERT_TRUE(sync());
  ASSERT_TRUE(run("drop table t_variable"));
  ASSERT_TRUE(sync()) << lastError();
  expectComplete();
}

TEST_F(SchemaTest, makesAMissingIndex) {
  ASSERT_TRUE(sync());
  ASSERT_TRUE(run("drop index i_t_data_t_item_1"));
  ASSERT_TRUE(run("drop index i_t_data_entry"));
  ASSERT_TRUE(sync()) << lastError();
  expectComplete();
}

TEST_F(SchemaTest, addsMissingColumnsAndLeavesTheRowsAlone) {
  ASSERT_TRUE(run("create table t_variable (t_variable_id integer primary key, type integer, extra text default 'e')"));
  ASSERT_TRUE(run("insert into t_variable values (-1, 7, 'kept'), (3, null, 'too')"));
  ASSERT_TRUE(sync()) << lastError();
  EXPECT_EQ(rows("select t_variable_id, type, extra, name, \"order\" from t_variable"),
            (Rows{{"-1", "7", "kept", "(null)", "(null)"}, {"3", "(null)", "too", "(null)", "(null)"}}));
  expectReferencesAndIndexes();
}

TEST_F(SchemaTest, addsMissingReferencesAsNullableWithTheirRule) {
  ASSERT_TRUE(run("create table t_data (t_data_id integer primary key, row integer, value text)"));
  ASSERT_TRUE(run("insert into t_data values (1, 0, 'kept')"));
  ASSERT_TRUE(sync()) << lastError();
  expectReferencesAndIndexes();
  EXPECT_EQ(rows("select * from t_data"), (Rows{{"1", "0", "kept", "(null)", "(null)"}}));
  ASSERT_TRUE(run("insert into t_item values (5, 'item')"));
  ASSERT_TRUE(run("update t_data set t_item_1=5"));
  EXPECT_FALSE(run("update t_data set t_item_1=6"));
  ASSERT_TRUE(run("delete from t_item"));
  EXPECT_EQ(rows("select * from t_data"), Rows()) << "a required reference follows its target, also when added later";
}

TEST_F(SchemaTest, makesAColumnThatExistsAReference) {
  ASSERT_TRUE(
      run("create table t_data (t_data_id integer primary key, t_variable_1 integer, t_item_1 integer not null, "
          "row integer, value text default 'a)b', check (row >= 0 or value <> ')' /* ) */))"));
  ASSERT_TRUE(run("create trigger watch after insert on t_data begin select 1; end"));
  ASSERT_TRUE(run("create table t_item (t_item_id integer primary key, name text)"));
  ASSERT_TRUE(run("insert into t_item values (5, 'item')"));
  ASSERT_TRUE(run("insert into t_data values (1, null, 5, 0, 'kept'), (2, null, 77, 0, 'dangling')"));
  ASSERT_TRUE(sync()) << lastError();
  expectReferencesAndIndexes();
  EXPECT_EQ(rows("select * from t_data"),
            (Rows{{"1", "(null)", "5", "0", "kept"}, {"2", "(null)", "77", "0", "dangling"}}));
  EXPECT_EQ(rows("pragma integrity_check"), (Rows{{"ok"}}));
  EXPECT_EQ(rows("pragma writable_schema"), (Rows{{"0"}}));
  EXPECT_FALSE(run("update t_data set t_item_1=6 where t_data_id=1"));
  EXPECT_FALSE(run("insert into t_data values (3, null, 5, -1, ')')")) << "the other rules of the table still hold";
  ASSERT_TRUE(run("delete from t_item"));
  EXPECT_EQ(rows("select t_data_id from t_data"), (Rows{{"2"}}));
  const std::string before = marks();
  ASSERT_TRUE(sync());
  EXPECT_EQ(marks(), before);
  EXPECT_EQ(OtherProgram(file).rows("select count(*) from pragma_foreign_key_list('t_data')"), (Rows{{"2"}}));
}

TEST_F(SchemaTest, enforcesAtOnceAReferenceThatWasAllThatWasMissing) {
  ASSERT_TRUE(run("create table t_item (t_item_id integer primary key)"));
  ASSERT_TRUE(run("create table t_data (t_data_id integer primary key, t_item_1 integer)"));
  ASSERT_TRUE(run("insert into t_data values (1, null)"));
  Schema schema;
  new AnyTable(&schema, "t_data", [](Table& table) {
    table.addReference("t_item_1", Column::INTEGER, 1, "t_item", 0, "", Column::FOLLOW_TARGET);
  });
  ASSERT_TRUE(schema.sync(database.get())) << lastError();
  EXPECT_EQ(references("t_data"), (Rows{{"t_item_1", "t_item", "t_item_id", "SET NULL"}}));
  EXPECT_FALSE(run("insert into t_data values (2, 5)"));
  EXPECT_FALSE(run("update t_data set t_item_1=5"));
}

TEST_F(SchemaTest, takesAReferenceBackWithTheTransaction) {
  ASSERT_TRUE(run("create table t_data (t_data_id integer primary key, t_variable_1 integer, t_item_1 integer)"));
  ASSERT_TRUE(database->begin());
  ASSERT_TRUE(sync()) << lastError();
  EXPECT_EQ(references("t_data").size(), 2u);
  ASSERT_TRUE(database->rollback());
  EXPECT_EQ(references("t_data"), Rows());
  ASSERT_TRUE(run("insert into t_data values (1, 2, 3)")) << lastError();
  ASSERT_TRUE(run("delete from t_data"));
  EXPECT_TRUE(sync()) << lastError();
  EXPECT_EQ(references("t_data").size(), 2u);
}

TEST_F(SchemaTest, leavesTablesAndColumnsThatItDoesNotKnowAlone) {
  ASSERT_TRUE(run("create table other (a text)"));
  ASSERT_TRUE(run("insert into other values ('x')"));
  ASSERT_TRUE(sync());
  EXPECT_EQ(rows("select * from other"), (Rows{{"x"}}));
}

TEST_F(SchemaTest, doesNotMindUpperAndLowerCase) {
  ASSERT_TRUE(run("create table T_ITEM (T_Item_ID integer primary key, NAME text)"));
  ASSERT_TRUE(sync()) << lastError();
  EXPECT_EQ(columns("t_item"), (Rows{{"T_Item_ID", "INTEGER", "0", "1"}, {"NAME", "TEXT", "0", "0"}}));
}

TEST_F(SchemaTest, deletesARowWithTheTargetOfARequiredReferenceAndClearsANullableOne) {
  ASSERT_TRUE(sync());
  ASSERT_TRUE(run("insert into t_item values (1, 'a'), (2, 'b')"));
  ASSERT_TRUE(run("insert into t_variable (t_variable_id) values (1), (2)"));
  ASSERT_TRUE(run("insert into t_data (t_data_id, t_item_1, t_variable_1) values (1, 1, 1), (2, 2, 1), (3, 2, 2)"));
  ASSERT_TRUE(run("delete from t_item where t_item_id=1"));
  ASSERT_TRUE(run("delete from t_variable where t_variable_id=1"));
  EXPECT_EQ(rows("select t_data_id, t_item_1, t_variable_1 from t_data"),
            (Rows{{"2", "2", "(null)"}, {"3", "2", "2"}}));
}

TEST_F(SchemaTest, refersToATableOfAnotherSchemaByItsKey) {
  ASSERT_TRUE(run("create table t_item (t_item_id integer primary key)"));
  Schema schema;
  new AnyTable(&schema, "t_data", declareData);
  ASSERT_TRUE(schema.sync(database.get())) << lastError();
  EXPECT_EQ(references("t_data")[0], (std::vector<std::string>{"t_item_1", "t_item", "t_item_id", "CASCADE"}));
  ASSERT_TRUE(run("insert into t_item values (4)"));
  EXPECT_FALSE(run("insert into t_data (t_item_1) values (5)"));
}

TEST_F(SchemaTest, refersToAnotherColumnThanTheKey) {
  ASSERT_TRUE(run("create table t_item (t_item_id integer primary key, code text unique)"));
  Schema schema;
  new AnyTable(&schema, "t_data", [](Table& table) {
    table.addReference("code", Column::TEXT, 1, "t_item", 0, "code", Column::FOLLOW_TARGET);
  });
  ASSERT_TRUE(schema.sync(database.get())) << lastError();
  EXPECT_EQ(references("t_data"), (Rows{{"code", "t_item", "code", "SET NULL"}}));
  EXPECT_EQ(columns("t_data")[1], (std::vector<std::string>{"code", "TEXT", "0", "0"}));
  EXPECT_EQ(rows("select name from sqlite_master where type='index' and tbl_name='t_data'"), Rows());
}

TEST_F(SchemaTest, acceptsCirclesAndTablesThatReferToThemselves) {
  Schema schema;
  new AnyTable(&schema, "t_a", [](Table& table) {
    table.addReference("t_b_1", Column::INTEGER, 1, "t_b", 1, "", Column::FOLLOW_TARGET);
    table.addReference("t_a_1", Column::INTEGER, 1, "t_a", 1, "", Column::FOLLOW_TARGET);
  });
  new AnyTable(&schema, "t_b", [](Table& table) {
    table.addReference("t_a_1", Column::INTEGER, 0, "t_a", 1, "", Column::FOLLOW_TARGET);
  });
  ASSERT_TRUE(schema.sync(database.get())) << lastError();
  ASSERT_TRUE(run("insert into t_a values (1, null, 1)"));
  ASSERT_TRUE(run("insert into t_b values (1, 1)"));
  ASSERT_TRUE(run("update t_a set t_b_1=1")) << lastError();
  ASSERT_TRUE(run("delete from t_a")) << lastError();
  EXPECT_EQ(rows("select * from t_b"), Rows());
}

TEST_F(SchemaTest, quotesNamesThatNeedIt) {
  Schema schema;
  new AnyTable(&schema, "group", [](Table& table) {
    table.addColumn("select", Column::TEXT);
    table.addColumn("two \"words\"", Column::TEXT);
    table.addReference("from", Column::INTEGER, 1, "group", 1, "", Column::FOLLOW_TARGET);
  });
  ASSERT_TRUE(schema.sync(database.get())) << lastError();
  ASSERT_TRUE(run("insert into \"group\" (\"select\", \"two \"\"words\"\"\") values ('a', 'b')")) << lastError();
  const std::string before = marks();
  ASSERT_TRUE(schema.sync(database.get())) << lastError();
  EXPECT_EQ(marks(), before);
  EXPECT_EQ(indexes(), (Rows{{"i_group_from", "group"}}));
}

TEST_F(SchemaTest, findsAnotherNameForAnIndexWhoseNameIsTaken) {
  const auto declare = [](const char* column) {
    return
        [column](Table& table) { table.addReference(column, Column::INTEGER, 1, "t_a", 1, "", Column::FOLLOW_TARGET); };
  };
  for (int run = 0; run < 2; ++run) {
    Schema schema;
    new AnyTable(&schema, "t_a", declare("b_c"));
    new AnyTable(&schema, "t_a_b", declare("c"));
    ASSERT_TRUE(schema.sync(database.get())) << lastError();
    EXPECT_EQ(indexes(), (Rows{{"i_t_a_b_c", "t_a"}, {"i_t_a_b_c_2", "t_a_b"}}));
  }
}

TEST_F(SchemaTest, takesTwoDeclarationsOfOneTableOrColumnAsOne) {
  Schema schema;
  new AnyTable(&schema, "t_item", declareItem);
  new AnyTable(&schema, "t_item", [](Table& table) {
    table.addColumn("Name", Column::TEXT);
    table.addColumn("more", Column::TEXT);
    table.addColumn("more", Column::TEXT);
  });
  ASSERT_TRUE(schema.sync(database.get())) << lastError();
  EXPECT_EQ(columns("t_item").size(), 3u);
}

TEST_F(SchemaTest, makesATableOfNothingButItsKey) {
  Schema schema;
  new AnyTable(&schema, "t_bare", [](Table&) {});
  ASSERT_TRUE(schema.sync(database.get())) << lastError();
  EXPECT_EQ(columns("t_bare"), (Rows{{"t_bare_id", "INTEGER", "0", "1"}}));
}

TEST_F(SchemaTest, asksEveryTableOnceForItsColumns) {
  Schema schema;
  auto* table = new AnyTable(&schema, "t_item", declareItem);
  ASSERT_TRUE(schema.sync(database.get()));
  ASSERT_TRUE(schema.sync(database.get()));
  EXPECT_EQ(table->inits, 1);
  EXPECT_EQ(table->getColumns().no(), 1);
}

TEST_F(SchemaTest, changesNothingWhenSomethingCannotBeMade) {
  Schema schema;
  new AnyTable(&schema, "t_item", declareItem);
  new AnyTable(&schema, "t_bad", [](Table& table) { table.addIndex("i_bad", {"missing"}); });
  EXPECT_FALSE(schema.sync(database.get()));
  EXPECT_THAT(lastError(), HasSubstr("missing"));
  EXPECT_FALSE(database->isInTransaction());
  EXPECT_EQ(whole(), Rows());
}

TEST_F(SchemaTest, saysThatATableHasNoKey) {
  ASSERT_TRUE(run("create table t_item (name text)"));
  EXPECT_FALSE(sync());
  EXPECT_THAT(lastError(), HasSubstr("t_item_id"));
}

TEST_F(SchemaTest, doesNotTakeAViewForATable) {
  ASSERT_TRUE(run("create view t_item as select 1 as t_item_id"));
  EXPECT_FALSE(sync());
  EXPECT_THAT(lastError(), HasSubstr("t_item"));
}

TEST_F(SchemaTest, worksInsideATransactionOfTheCaller) {
  ASSERT_TRUE(database->begin());
  ASSERT_TRUE(sync()) << lastError();
  EXPECT_TRUE(database->isInTransaction());
  expectComplete();
  ASSERT_TRUE(database->rollback());
  EXPECT_EQ(whole(), Rows());
}

TEST_F(SchemaTest, failsTheTransactionOfTheCaller) {
  ASSERT_TRUE(run("create view t_item as select 1 as t_item_id"));
  ASSERT_TRUE(database->begin());
  EXPECT_FALSE(sync());
  EXPECT_TRUE(database->isInTransaction());
  EXPECT_FALSE(database->commit());
}

TEST_F(SchemaTest, failsWithoutADatabase) {
  Schema schema;
  EXPECT_FALSE(schema.sync(nullptr));
  EXPECT_TRUE(schema.sync(database.get())) << "a model without tables needs nothing";
}

TEST_F(SchemaTest, ownsItsTables) {
  class CountedTable : public Table {
   public:
    CountedTable(Schema* schema, int& toCount) : Table(schema, "t_counted"), count(toCount) { ++count; }
    ~CountedTable() override { --count; }
    void init() override {}

   private:
    int& count;
  };
  int living = 0;
  {
    Schema schema;
    new CountedTable(&schema, living);
    new CountedTable(&schema, living);
    EXPECT_EQ(living, 2);
    EXPECT_EQ(schema.getTables().no(), 2);
  }
  EXPECT_EQ(living, 0);
}

TEST_F(SchemaTest, keepsWhatWasDeclared) {
  Schema schema;
  AnyTable& table = *new AnyTable(&schema, "t_data", declareData);
  table.init();
  ASSERT_EQ(table.getColumns().no(), 4);
  const Column& required = *table.getColumns().at(1);
  EXPECT_EQ(required.getName(), "t_item_1");
  EXPECT_EQ(required.getTargetTable(), "t_item");
  EXPECT_EQ(required.getTargetColumn(), "t_item_id");
  EXPECT_EQ(required.getOnDelete(), Column::FOLLOW_TARGET);
  EXPECT_TRUE(required.isReference());
  EXPECT_FALSE(required.isNullable());
  EXPECT_TRUE(table.getColumns().at(0)->isNullable());
  EXPECT_FALSE(table.getColumns().at(2)->isReference());
  EXPECT_EQ(table.getColumns().at(3)->getType(), Column::TEXT);
  ASSERT_EQ(table.getIndexes().no(), 3);
  EXPECT_EQ(table.getIndexes().at(2)->getName(), "i_t_data_entry");
  EXPECT_THAT(table.getIndexes().at(2)->getColumns(), ElementsAre("t_item_1", "t_variable_1", "row"));
  EXPECT_EQ(table.getKeyName(), "t_data_id");
}

TEST_F(SchemaTest, hasTheNumbersThatModulesWereBuiltWith) {
  EXPECT_EQ(Column::TEXT, 0);
  EXPECT_EQ(Column::INTEGER, 1);
  EXPECT_EQ(Column::FOLLOW_TARGET, 4);
}

}  // namespace
