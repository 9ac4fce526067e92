#include "plugin/contract/Statement.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <climits>
#include <string>
#include <vector>

#include "host/database/Connection.h"
#include "tests/host/database/DatabaseFixture.h"

using namespace FX;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

namespace {

class StatementTest : public DatabaseFixture {
 protected:
  void SetUp() override {
    DatabaseFixture::SetUp();
    ASSERT_TRUE(
        run("create table t_x (t_x_id integer primary key, name text, row integer, \"order\" text, value text)"));
    database->setObserver(&observer);
  }

  void insert(int id, const FXString& name) {
    InsertStatement statement(database.get(), "t_x");
    statement.setInt("t_x_id", id);
    statement.setString("name", name);
    ASSERT_TRUE(statement.execute(nullptr, 0)) << lastError();
  }

  void TearDown() override {
    database->setObserver(nullptr);
    DatabaseFixture::TearDown();
  }

  RecordingObserver observer;
};

// Parameters

TEST_F(StatementTest, bindsIntegersAsIntegersAndStringsAsText) {
  Statement statement(database.get(), "select typeof(%i), %i, typeof(%s), %s, typeof(%n), %n, typeof(%t), %t");
  statement.setInt("i", -7);
  statement.setString("s", "7");
  statement.setInt("n", "");
  statement.setInt("t", "42");
  GridLoader grid;
  ASSERT_TRUE(statement.execute(&grid, 0)) << lastError();
  EXPECT_EQ(grid.grid, (Rows{{"integer", "-7", "text", "7", "null", "(null)", "integer", "42"}}));
}

TEST_F(StatementTest, bindsOneValueToEveryUseOfAName) {
  Statement statement(database.get(), "select %a, %b, %a || %b, %a");
  statement.setString("a", "x");
  statement.setString("b", "y");
  GridLoader grid;
  ASSERT_TRUE(statement.execute(&grid, 0));
  EXPECT_EQ(grid.grid, (Rows{{"x", "y", "xy", "x"}}));
}

TEST_F(StatementTest, leavesPercentSignsOfOtherKindsAlone) {
  EXPECT_EQ(rows("select 7 % 4, 7%4, 'a%b', 'xabcx' like '%abc%', 1 /* %c */ -- %d"),
            (Rows{{"3", "3", "a%b", "1", "1"}}));
}

TEST_F(StatementTest, namesAParameterThatWasNeverBound) {
  Statement statement(database.get(), "select %given, %missing");
  statement.setInt("given", 1);
  EXPECT_FALSE(statement.execute(nullptr, 0));
  EXPECT_THAT(lastError(), HasSubstr("\"missing\""));
  EXPECT_THAT(lastError(), HasSubstr("select %given, %missing"));
  statement.setInt("missing", 2);
  EXPECT_TRUE(statement.execute(nullptr, 0));
}

TEST_F(StatementTest, doesNotMindANameThatTheTextDoesNotUse) {
  Statement statement(database.get(), "select %a");
  statement.setInt("a", 1);
  statement.setString("unused", "x");
  EXPECT_EQ(statement.queryInt(0), 1);
  EXPECT_THAT(observer.lines, ElementsAre("select %a {a=1, unused=x}"));
}

TEST_F(StatementTest, replacesAValueThatIsBoundAgain) {
  Statement statement(database.get(), "select %a, %b");
  statement.setString("a", "first");
  statement.setInt("b", 1);
  statement.setInt("a", 2);
  statement.setString("b", "second");
  GridLoader grid;
  ASSERT_TRUE(statement.execute(&grid, 0));
  EXPECT_EQ(grid.grid, (Rows{{"2", "second"}}));
  statement.setInt("a", "");
  GridLoader again;
  ASSERT_TRUE(statement.execute(&again, 0));
  EXPECT_EQ(again.grid, (Rows{{"(null)", "second"}}));
  EXPECT_THAT(observer.lines, ElementsAre("select %a, %b {a=2, b=second}", "select %a, %b {a=(null), b=second}"));
}

TEST_F(StatementTest, bindsManyParameters) {
  FXString sql = "select 0";
  for (int i = 0; i < 100; ++i) sql += "+%p" + FXStringVal(i);
  Statement statement(database.get(), sql);
  for (int i = 99; i >= 0; --i) statement.setInt("p" + FXStringVal(i), i);
  EXPECT_EQ(statement.queryInt(0), 4950);
}

TEST_F(StatementTest, knowsUpperAndLowerCaseOfParametersApart) {
  Statement statement(database.get(), "select %a - %A");
  statement.setInt("A", 1);
  statement.setInt("a", 10);
  EXPECT_EQ(statement.queryInt(0), 9);
}

TEST_F(StatementTest, refusesParametersOfTheDatabasesOwnKind) {
  for (const char* sql : {"select ?", "select :a", "select @a", "select $a", "select %a, :b"}) {
    Statement statement(database.get(), sql);
    statement.setInt("a", 1);
    EXPECT_FALSE(statement.execute(nullptr, 0)) << sql;
    EXPECT_THAT(lastError(), HasSubstr("százalékjel")) << sql;
  }
}

struct IntegerTextCase {
  const char* text;
  const char* stored;  // null: refused
};

void PrintTo(const IntegerTextCase& c, std::ostream* out) { *out << testing::PrintToString(std::string(c.text)); }

class IntegerText : public StatementTest, public testing::WithParamInterface<IntegerTextCase> {};

TEST_P(IntegerText, isBoundOrRefused) {
  Statement statement(database.get(), "select %i");
  statement.setInt("i", FXString(GetParam().text));
  GridLoader grid;
  const bool done = statement.execute(&grid, 0);
  if (GetParam().stored) {
    EXPECT_TRUE(done) << lastError();
    EXPECT_EQ(grid.grid, (Rows{{GetParam().stored}}));
    return;
  }
  EXPECT_FALSE(done);
  EXPECT_THAT(lastError(), HasSubstr("\"i\""));
  EXPECT_THAT(lastError(), HasSubstr("\"" + std::string(GetParam().text) + "\""));
}

INSTANTIATE_TEST_SUITE_P(Texts, IntegerText,
                         testing::Values(IntegerTextCase{"0", "0"}, IntegerTextCase{"-1", "-1"},
                                         IntegerTextCase{"+5", "5"}, IntegerTextCase{"007", "7"},
                                         IntegerTextCase{"", "(null)"},
                                         IntegerTextCase{"9223372036854775807", "9223372036854775807"},
                                         IntegerTextCase{"9223372036854775808", nullptr}, IntegerTextCase{"x", nullptr},
                                         IntegerTextCase{"1x", nullptr}, IntegerTextCase{"1.5", nullptr},
                                         IntegerTextCase{" ", nullptr}, IntegerTextCase{" 1", nullptr},
                                         IntegerTextCase{"+", nullptr}, IntegerTextCase{"-", nullptr},
                                         IntegerTextCase{"+-1", nullptr}));

TEST_F(StatementTest, runsAgainWhenABadIntegerIsBoundAnew) {
  Statement statement(database.get(), "select %i");
  statement.setInt("i", "abc");
  EXPECT_FALSE(statement.execute(nullptr, 0));
  statement.setInt("i", "12");
  EXPECT_EQ(statement.queryInt(0), 12);
  EXPECT_THAT(observer.lines, ElementsAre("select %i {i=abc}", "select %i {i=12}"));
}

// Hostile values

class HostileValue : public StatementTest, public testing::WithParamInterface<std::string> {};

TEST_P(HostileValue, isWrittenAndReadBackUnchanged) {
  const std::string& value = GetParam();
  InsertStatement statement(database.get(), "t_x");
  statement.setInt("t_x_id", 1);
  statement.setString("name", FXString(value.data(), static_cast<FXint>(value.size())));
  ASSERT_TRUE(statement.execute(nullptr, 1)) << lastError();
  EXPECT_EQ(rows("select name from t_x"), (Rows{{value}}));

  Statement search(database.get(), "select t_x_id from t_x where name=%name and name<>'%name'");
  search.setString("name", FXString(value.data(), static_cast<FXint>(value.size())));
  EXPECT_EQ(search.queryInt(0), value == "%name" ? 0 : 1);
  EXPECT_EQ(rows("select count(*) from t_x"), (Rows{{"1"}}));
}

INSTANTIATE_TEST_SUITE_P(Texts, HostileValue,
                         testing::Values("", "'", "''", "\"", "`", "it's \"so\"", "%name", "%t_x_id", "100%", "%s%n%d",
                                         "'); drop table t_x; --", "a;b", "back\\slash\\n", "\\", "line\nend\r\n\ttab",
                                         "?1", ":name", "-- comment", "/* comment */", std::string(100000, 'x'),
                                         "árvíztűrő tükörfúrógép", "😀 👨‍👩‍👧",
                                         "\xff\xfe\x80 invalid \xc3", "\xc3", "NULL", " blanks "));

TEST_F(StatementTest, refusesATextWithANulByteThatCouldNotBeReadBackWhole) {
  InsertStatement statement(database.get(), "t_x");
  statement.setString("name", FXString("a\0b", 3));
  EXPECT_FALSE(statement.execute(nullptr, 0));
  EXPECT_THAT(lastError(), HasSubstr("\"name\""));
  EXPECT_EQ(rows("select * from t_x"), Rows());
  statement.setString("name", "ab");
  EXPECT_TRUE(statement.execute(nullptr, 0));
}

// Values of a result

TEST_F(StatementTest, handsValuesOverAsText) {
  EXPECT_EQ(
      rows("select 9223372036854775807, -9223372036854775807-1, 0.1+0.2, 5.0, 0.3-(0.1+0.2), 1e20, 'x', '', null, "
           "x'616263', 9e999, 1.0/3"),
      (Rows{{"9223372036854775807", "-9223372036854775808", "0.3", "5", "0", "100000000000000000000", "x", "", "(null)",
             "abc", "Inf", "0.333333333"}}));
}

TEST_F(StatementTest, handsTheNamesOfColumnsOver) {
  GridLoader grid;
  ASSERT_TRUE(Statement(database.get(), "select 1 as one, t_x_id from t_x union select 2, 3").execute(&grid, 0));
  EXPECT_THAT(grid.names, ElementsAre("one", "t_x_id"));
}

TEST_F(StatementTest, endsATextAtItsFirstNulByte) { EXPECT_EQ(rows("select 'a' || char(0) || 'b'"), (Rows{{"a"}})); }

TEST_F(StatementTest, countsRowsByDefault) {
  DataBaseValueLoader loader;
  EXPECT_EQ(loader.getNumRows(), 0);
  ASSERT_TRUE(Statement(database.get(), "select 1, 2 union select 3, 4 union select 5, 6").execute(&loader, 1));
  EXPECT_EQ(loader.getNumRows(), 3);
  EXPECT_TRUE(loader.processValue(1, "x", nullptr));
  EXPECT_EQ(loader.getNumRows(), 3);
}

TEST_F(StatementTest, runsWithoutALoaderAndIgnoresRows) {
  EXPECT_TRUE(Statement(database.get(), "select 1").execute(nullptr, 1));
}

class StoppingLoader : public GridLoader {
 public:
  bool processValue(int column, const char* name, const char* value) override {
    GridLoader::processValue(column, name, value);
    return --left > 0;
  }
  int left = 3;
};

TEST_F(StatementTest, endsTheReadingWhenTheLoaderSaysSo) {
  StoppingLoader loader;
  EXPECT_TRUE(Statement(database.get(), "select 1, 2 union select 3, 4 union select 5, 6").execute(&loader, 1));
  EXPECT_EQ(loader.grid, (Rows{{"1", "2"}, {"3"}}));
}

TEST_F(StatementTest, leavesNoLockBehindWhenTheLoaderStops) {
  for (int i = 1; i <= 10; ++i) insert(i, "x");
  StoppingLoader loader;
  Statement statement(database.get(), "select name from t_x");
  ASSERT_TRUE(statement.execute(&loader, 1));
  OtherProgram other(file);
  EXPECT_TRUE(other.run("begin exclusive; insert into t_x (name) values ('other'); commit"));
  EXPECT_TRUE(run("drop table t_x")) << lastError();
}

// A loader that runs the same text again for every row, up to a depth.
class RecursiveLoader : public DataBaseValueLoader {
 public:
  RecursiveLoader(TarnwellDatabase* database, Statement* shared, int maximum)
      : db(database), statement(shared), depth(maximum) {}

  bool processValue(int column, const char*, const char* value) override {
    DataBaseValueLoader::processValue(column, nullptr, nullptr);
    seen.push_back(std::string(depth, '>') + value);
    if (depth == 0) return true;
    RecursiveLoader inner(db, statement, depth - 1);
    if (statement) {
      statement->setString("name", "changed while it runs");
      EXPECT_TRUE(statement->execute(&inner, 1));
    } else {
      Statement again(db, "select t_x_id from t_x where t_x_id < %limit order by 1");
      again.setInt("limit", 3);
      EXPECT_TRUE(again.execute(&inner, 1));
    }
    seen.insert(seen.end(), inner.seen.begin(), inner.seen.end());
    return true;
  }

  std::vector<std::string> seen;

 private:
  TarnwellDatabase* db;
  Statement* statement;
  int depth;
};

TEST_F(StatementTest, runsTheSameTextFromWithinALoader) {
  for (int i = 1; i <= 5; ++i) insert(i, "x");
  Statement statement(database.get(), "select t_x_id from t_x where t_x_id < %limit order by 1");
  statement.setInt("limit", 3);
  RecursiveLoader loader(database.get(), nullptr, 2);
  ASSERT_TRUE(statement.execute(&loader, 1));
  EXPECT_THAT(loader.seen, ElementsAre(">>1", ">1", "1", "2", ">2", "1", "2", ">>2", ">1", "1", "2", ">2", "1", "2"));
}

TEST_F(StatementTest, runsTheSameObjectFromWithinItsLoader) {
  for (int i = 1; i <= 2; ++i) insert(i, "m");
  Statement statement(database.get(), "select t_x_id from t_x where name < %name order by t_x_id");
  statement.setString("name", std::string(5000, 'n').c_str());
  RecursiveLoader loader(database.get(), &statement, 1);
  ASSERT_TRUE(statement.execute(&loader, 1));
  // The outer run goes on with what was bound when it began; with "changed ..." nothing is found.
  EXPECT_THAT(loader.seen, ElementsAre(">1", ">2"));
}

TEST_F(StatementTest, mayBeDestroyedByItsLoader) {
  for (int i = 1; i <= 2; ++i) insert(i, "x");
  class DestroyingLoader : public DataBaseValueLoader {
   public:
    bool processValue(int column, const char* name, const char* value) override {
      delete statement;
      statement = nullptr;
      return DataBaseValueLoader::processValue(column, name, value);
    }
    Statement* statement = nullptr;
  };
  DestroyingLoader loader;
  loader.statement = new Statement(database.get(), "select name from t_x where name=%name");
  loader.statement->setString("name", "x");
  EXPECT_TRUE(loader.statement->execute(&loader, 1));
  EXPECT_EQ(loader.getNumRows(), 2);
}

TEST_F(StatementTest, readsOnWhileItsTableIsWrittenByTheLoader) {
  for (int i = 1; i <= 3; ++i) insert(i, "old");
  class UpdatingLoader : public DataBaseValueLoader {
   public:
    explicit UpdatingLoader(TarnwellDatabase* database) : db(database) {}
    bool processValue(int column, const char* name, const char* value) override {
      UpdateStatement update(db, "t_x", "t_x_id=%id");
      update.setInt("id", FXString(value));
      update.setString("name", "new");
      EXPECT_TRUE(update.execute(nullptr, 1));
      return DataBaseValueLoader::processValue(column, name, value);
    }

   private:
    TarnwellDatabase* db;
  };
  UpdatingLoader loader(database.get());
  ASSERT_TRUE(Statement(database.get(), "select t_x_id from t_x").execute(&loader, 1));
  EXPECT_EQ(loader.getNumRows(), 3);
  EXPECT_EQ(rows("select distinct name from t_x"), (Rows{{"new"}}));
}

// queryInt

TEST_F(StatementTest, queriesTheIntegerOfAColumnOfTheFirstRow) {
  EXPECT_EQ(Statement(database.get(), "select 1, 22, '33x' union all select 4, 5, 6").queryInt(1), 22);
  EXPECT_EQ(Statement(database.get(), "select 1, 22, '33x'").queryInt(2), 33);
  EXPECT_EQ(Statement(database.get(), "select 257").queryInt(0), 257);
}

TEST_F(StatementTest, queriesZeroWhereThereIsNoInteger) {
  EXPECT_EQ(Statement(database.get(), "select null").queryInt(0), 0);
  EXPECT_EQ(Statement(database.get(), "select 5 where 1=0").queryInt(0), 0);
  EXPECT_EQ(Statement(database.get(), "select 'x'").queryInt(0), 0);
  EXPECT_EQ(Statement(database.get(), "select 5 union all select 6").queryInt(1), 0);
  EXPECT_EQ(Statement(database.get(), "select 5").queryInt(-1), 0);
  EXPECT_EQ(Statement(database.get(), "select nonsense").queryInt(0), 0);
  EXPECT_THAT(lastError(), HasSubstr("nonsense"));
}

TEST_F(StatementTest, queriesTheNearestIntegerThatFits) {
  EXPECT_EQ(Statement(database.get(), "select 99999999999").queryInt(0), INT_MAX);
  EXPECT_EQ(Statement(database.get(), "select -1e300").queryInt(0), INT_MIN);
  EXPECT_EQ(Statement(database.get(), "select 2.9").queryInt(0), 2);
}

// What is not a statement

TEST_F(StatementTest, failsWithoutAText) {
  Statement statement(database.get());
  statement.setInt("a", 1);
  EXPECT_FALSE(statement.execute(nullptr, 1));
  EXPECT_THAT(lastError(), Not(IsEmpty()));
  for (const char* sql : {"", "  ", ";", "-- nothing", "/* nothing */ ;"}) {
    EXPECT_FALSE(run(sql)) << sql;
    EXPECT_THAT(lastError(), HasSubstr("üres")) << sql;
  }
}

TEST_F(StatementTest, runsNoMoreThanOneStatement) {
  EXPECT_TRUE(run("select 1; -- and nothing else\n /* at all */ ; "));
  EXPECT_FALSE(run("delete from t_x; drop table t_x"));
  EXPECT_THAT(lastError(), HasSubstr("egy"));
  EXPECT_FALSE(run("select 1; nonsense"));
  EXPECT_TRUE(run("select * from t_x"));
}

TEST_F(StatementTest, saysWhatIsWrongWithTheText) {
  EXPECT_FALSE(run("select nonsense from t_x"));
  EXPECT_THAT(lastError(), HasSubstr("no such column: nonsense"));
  EXPECT_THAT(lastError(), HasSubstr("select nonsense from t_x"));
  EXPECT_FALSE(run("select 'never closed"));
  EXPECT_FALSE(run("select \"nonsense\" from t_x")) << "a misspelt name became a text";
}

TEST_F(StatementTest, showsNoMoreThanTheBeginningOfALongTextInItsMessage) {
  FXString sql = "select nonsense, '";
  for (int i = 0; i < 1000; ++i) sql += "ű";
  EXPECT_FALSE(run(sql + "'"));
  EXPECT_THAT(lastError(), HasSubstr("select nonsense, 'űűű"));
  EXPECT_THAT(lastError(), testing::EndsWith("ű…"));
  EXPECT_LT(lastError().size(), 700u);
}

TEST_F(StatementTest, failsWithoutADatabase) {
  Statement statement(nullptr, "select %a");
  statement.setInt("a", 1);
  statement.setInt("a", FXString("1"));
  statement.setString("a", "x");
  EXPECT_FALSE(statement.execute(nullptr, 1));
  EXPECT_EQ(statement.queryInt(0), 0);
  InsertStatement insertNowhere(nullptr, "t_x");
  insertNowhere.setInt("a", 1);
  EXPECT_FALSE(insertNowhere.execute(nullptr, 1));
}

TEST_F(StatementTest, failsAfterItsDatabaseWasClosed) {
  Statement statement(database.get(), "select %a");
  InsertStatement insertLater(database.get(), "t_x");
  insertLater.setInt("t_x_id", 1);
  ASSERT_TRUE(insertLater.execute(nullptr, 1));
  statement.setInt("a", 1);
  database.reset();
  statement.setInt("a", 2);
  insertLater.setInt("row", 2);
  EXPECT_FALSE(statement.execute(nullptr, 1));
  EXPECT_FALSE(insertLater.execute(nullptr, 1));
  openDatabase();
  EXPECT_EQ(rows("select t_x_id, row from t_x"), (Rows{{"1", "(null)"}}));
}

// Insert, update, delete

TEST_F(StatementTest, insertsARow) {
  InsertStatement statement(database.get(), "t_x");
  statement.setInt("t_x_id", -1);
  statement.setString("name", "Mennyiség");
  statement.setInt("row", "");
  statement.setString("order", "quoted");
  ASSERT_TRUE(statement.execute(nullptr, 1)) << lastError();
  EXPECT_THAT(observer.lines,
              ElementsAre("insert into t_x (t_x_id, name, row, \"order\") values (%t_x_id, %name, %row, %order) "
                          "{t_x_id=-1, name=Mennyiség, row=(null), order=quoted}"));
  EXPECT_EQ(rows("select * from t_x"), (Rows{{"-1", "Mennyiség", "(null)", "quoted", "(null)"}}));
}

TEST_F(StatementTest, insertsAgainWithWhatIsBoundAnew) {
  InsertStatement statement(database.get(), "t_x");
  statement.setString("name", "a");
  ASSERT_TRUE(statement.execute(nullptr, 1));
  statement.setString("name", "b");
  ASSERT_TRUE(statement.execute(nullptr, 1));
  statement.setInt("row", 3);
  ASSERT_TRUE(statement.execute(nullptr, 1));
  EXPECT_EQ(rows("select name, row from t_x order by t_x_id"), (Rows{{"a", "(null)"}, {"b", "(null)"}, {"b", "3"}}));
  EXPECT_THAT(
      observer.lines,
      ElementsAre("insert into t_x (name) values (%name) {name=a}", "insert into t_x (name) values (%name) {name=b}",
                  "insert into t_x (name, row) values (%name, %row) {name=b, row=3}", testing::_));
}

TEST_F(StatementTest, insertsNothingWithoutAColumn) {
  InsertStatement statement(database.get(), "t_x");
  EXPECT_FALSE(statement.execute(nullptr, 0));
  EXPECT_THAT(lastError(), HasSubstr("t_x"));
  EXPECT_EQ(rows("select * from t_x"), Rows());
}

TEST_F(StatementTest, updatesTheRowsThatMatch) {
  insert(1, "a");
  insert(2, "b");
  observer.lines.clear();
  UpdateStatement statement(database.get(), "t_x", "t_x_id=%t_x_id");
  statement.setInt("t_x_id", 2);
  statement.setString("name", "B");
  statement.setInt("row", 5);
  ASSERT_TRUE(statement.execute(nullptr, 1)) << lastError();
  EXPECT_THAT(observer.lines,
              ElementsAre("update t_x set name=%name, row=%row where t_x_id=%t_x_id {t_x_id=2, name=B, row=5}"));
  EXPECT_EQ(rows("select t_x_id, name, row from t_x"), (Rows{{"1", "a", "(null)"}, {"2", "B", "5"}}));
}

TEST_F(StatementTest, neverSetsAColumnThatTheConditionUses) {
  insert(1, "a");
  UpdateStatement statement(database.get(), "t_x", "t_x_id = %assignId and name=%name");
  statement.setString("name", "a");
  statement.setInt("row", 9);
  statement.setInt("assignId", 1);
  ASSERT_TRUE(statement.execute(nullptr, 1)) << lastError();
  EXPECT_EQ(observer.lines.back(),
            "update t_x set row=%row where t_x_id = %assignId and name=%name {name=a, row=9, assignId=1}");
}

TEST_F(StatementTest, keepsStatementsAndBindsThemAnewForEveryRow) {
  InsertStatement insertion(database.get(), "t_x");
  UpdateStatement update(database.get(), "t_x", "t_x_id=%t_x_id");
  DeleteStatement removal(database.get(), "t_x");
  for (int id = 1; id <= 3; ++id) {
    insertion.setInt("t_x_id", id);
    insertion.setString("name", "new");
    ASSERT_TRUE(insertion.execute(nullptr, 1)) << lastError();
    update.setInt("t_x_id", id);
    update.setString("name", FXStringVal(id));
    update.setInt("row", FXStringVal(id * 10));
    update.setString("value", "");
    ASSERT_TRUE(update.execute(nullptr, 1)) << lastError();
  }
  removal.setInt("t_x_id", 1);
  ASSERT_TRUE(removal.execute(nullptr, 1));
  removal.setInt("t_x_id", 3);
  ASSERT_TRUE(removal.execute(nullptr, 1));
  EXPECT_EQ(rows("select t_x_id, name, row, value from t_x"), (Rows{{"2", "2", "20", ""}}));
}

TEST_F(StatementTest, updatesNothingWithoutAColumnOrACondition) {
  insert(1, "a");
  UpdateStatement noColumn(database.get(), "t_x", "t_x_id=%t_x_id");
  noColumn.setInt("t_x_id", 1);
  EXPECT_FALSE(noColumn.execute(nullptr, 0));
  UpdateStatement noCondition(database.get(), "t_x", " ");
  noCondition.setString("name", "b");
  EXPECT_FALSE(noCondition.execute(nullptr, 0));
  EXPECT_EQ(rows("select name from t_x"), (Rows{{"a"}}));
}

TEST_F(StatementTest, namesAParameterOfTheConditionThatWasNeverBound) {
  UpdateStatement statement(database.get(), "t_x", "t_x_id=%key");
  statement.setString("name", "b");
  EXPECT_FALSE(statement.execute(nullptr, 0));
  EXPECT_THAT(lastError(), HasSubstr("\"key\""));
}

TEST_F(StatementTest, failsToUpdateByKeyARowThatIsNoLongerThere) {
  insert(1, "a");
  UpdateStatement statement(database.get(), "t_x", "t_x_id=%t_x_id");
  statement.setString("name", "b");
  statement.setInt("t_x_id", 2);
  EXPECT_FALSE(statement.execute(nullptr, 0));
  EXPECT_THAT(lastError(), HasSubstr("már nincs meg"));
  EXPECT_THAT(lastError(), HasSubstr("t_x"));
  statement.setInt("t_x_id", 1);
  EXPECT_TRUE(statement.execute(nullptr, 0));
  statement.setString("name", "b");
  EXPECT_TRUE(statement.execute(nullptr, 0)) << "a row that has the value already is there all the same";
}

TEST_F(StatementTest, mayFindNoRowWhenItUpdatesByAnythingElse) {
  UpdateStatement statement(database.get(), "t_x", "name=%old");
  statement.setString("name", "b");
  statement.setString("old", "a");
  EXPECT_TRUE(statement.execute(nullptr, 1)) << lastError();
  EXPECT_TRUE(Statement(database.get(), "update t_x set name='b' where t_x_id=77").execute(nullptr, 1));
}

TEST_F(StatementTest, deletesTheRowsThatHaveEveryBoundValue) {
  insert(1, "a");
  insert(2, "a");
  insert(3, "b");
  observer.lines.clear();
  DeleteStatement statement(database.get(), "t_x");
  statement.setString("name", "a");
  statement.setInt("t_x_id", 2);
  ASSERT_TRUE(statement.execute(nullptr, 1)) << lastError();
  EXPECT_THAT(observer.lines, ElementsAre("delete from t_x where name=%name and t_x_id=%t_x_id {name=a, t_x_id=2}"));
  EXPECT_EQ(rows("select t_x_id from t_x"), (Rows{{"1"}, {"3"}}));
}

TEST_F(StatementTest, deletesNothingWithoutAParameter) {
  insert(1, "a");
  DeleteStatement statement(database.get(), "t_x");
  EXPECT_FALSE(statement.execute(nullptr, 0));
  EXPECT_THAT(lastError(), HasSubstr("t_x"));
  EXPECT_EQ(rows("select t_x_id from t_x"), (Rows{{"1"}}));
}

TEST_F(StatementTest, deletesWhatIsNotThereWithoutFailing) {
  DeleteStatement statement(database.get(), "t_x");
  statement.setInt("t_x_id", 5);
  EXPECT_TRUE(statement.execute(nullptr, 1));
}

TEST_F(StatementTest, refusesNamesThatAreNoColumns) {
  insert(1, "a");
  for (const char* name : {"name) values ('x'); --", "a b", "", "1", "na%me", "name=name--"}) {
    InsertStatement insertion(database.get(), "t_x");
    insertion.setString(name, "x");
    EXPECT_FALSE(insertion.execute(nullptr, 0)) << name;
    EXPECT_THAT(lastError(), HasSubstr("\"" + std::string(name) + "\""));
    UpdateStatement update(database.get(), "t_x", "t_x_id=1");
    update.setString(name, "x");
    EXPECT_FALSE(update.execute(nullptr, 0)) << name;
    DeleteStatement removal(database.get(), "t_x");
    removal.setString(name, "x");
    EXPECT_FALSE(removal.execute(nullptr, 0)) << name;
  }
  EXPECT_EQ(rows("select name from t_x"), (Rows{{"a"}}));
}

TEST_F(StatementTest, quotesATableNameThatNeedsIt) {
  ASSERT_TRUE(run("create table \"odd; name\" (a integer)"));
  InsertStatement statement(database.get(), "odd; name");
  statement.setInt("a", 1);
  EXPECT_TRUE(statement.execute(nullptr, 0)) << lastError();
  InsertStatement nowhere(database.get(), "");
  nowhere.setInt("a", 1);
  EXPECT_FALSE(nowhere.execute(nullptr, 0));
  EXPECT_EQ(rows("select a from \"odd; name\""), (Rows{{"1"}}));
}

TEST_F(StatementTest, tellsGeneratedTextsApartFromEachOtherAndFromWrittenOnes) {
  InsertStatement one(database.get(), "t_x");
  one.setInt("t_x_id", 1);
  one.setString("name", "a");
  ASSERT_TRUE(one.execute(nullptr, 1));
  InsertStatement other(database.get(), "t_x");
  other.setString("name", "b");
  other.setInt("t_x_id", 2);
  ASSERT_TRUE(other.execute(nullptr, 1));
  DeleteStatement removal(database.get(), "t_x");
  removal.setInt("t_x_id", 1);
  removal.setString("name", "a");
  ASSERT_TRUE(removal.execute(nullptr, 1));
  UpdateStatement update(database.get(), "t_x", "t_x_id=%t_x_id");
  update.setInt("t_x_id", 2);
  update.setString("name", "c");
  ASSERT_TRUE(update.execute(nullptr, 1));
  UpdateStatement elsewhere(database.get(), "t_x", "t_x_id>%t_x_id");
  elsewhere.setInt("t_x_id", 1);
  elsewhere.setString("name", "d");
  ASSERT_TRUE(elsewhere.execute(nullptr, 1));
  EXPECT_EQ(rows("select t_x_id, name from t_x"), (Rows{{"2", "d"}}));
}

// The observer

TEST_F(StatementTest, showsFailingStatementsToTheObserverToo) {
  EXPECT_FALSE(run("select nonsense"));
  EXPECT_FALSE(Statement(database.get(), "select %a").execute(nullptr, 0));
  InsertStatement statement(database.get(), "t_x");
  statement.setInt("nonsense", 1);
  EXPECT_FALSE(statement.execute(nullptr, 0));
  database->queryScalar("select count(1) from nonsense", 1, -1);
  EXPECT_THAT(observer.lines, ElementsAre("select nonsense {}", "select %a {}",
                                          "insert into t_x (nonsense) values (%nonsense) {nonsense=1}",
                                          "select count(1) from nonsense {}"));
}

TEST_F(StatementTest, showsStatementsInTheOrderInWhichTheyBegin) {
  insert(1, "a");
  observer.lines.clear();
  RecursiveLoader loader(database.get(), nullptr, 1);
  ASSERT_TRUE(Statement(database.get(), "select t_x_id from t_x").execute(&loader, 1));
  EXPECT_THAT(observer.lines, ElementsAre("select t_x_id from t_x {}",
                                          "select t_x_id from t_x where t_x_id < %limit order by 1 {limit=3}"));
}

TEST_F(StatementTest, showsTheObserverNothingOfTransactionsAndKeys) {
  ASSERT_TRUE(database->begin());
  EXPECT_EQ(database->nextKey("t_x"), 1);
  ASSERT_TRUE(database->commit());
  EXPECT_THAT(observer.lines, IsEmpty());
}

TEST_F(StatementTest, showsNothingWhenTheObserverWasTakenAway) {
  database->setObserver(nullptr);
  EXPECT_TRUE(run("select 1"));
  EXPECT_THAT(observer.lines, IsEmpty());
}

// The cache behind

TEST_F(StatementTest, keepsTheNumberOfKnownTextsInBounds) {
  for (int i = 0; i < 3000; ++i) ASSERT_TRUE(run("select " + FXStringVal(i)));
  EXPECT_LE(database->getConnection().getCacheSize(), 256u);
  EXPECT_TRUE(run("select 0"));
}

TEST_F(StatementTest, preparesATextOnlyOnce) {
  if (!run("select 1 from sqlite_stmt")) GTEST_SKIP() << "this SQLite does not tell its statements";
  for (int i = 0; i < 3; ++i) {
    ASSERT_TRUE(run("select 'kept'"));
    insert(i, "x");
  }
  EXPECT_EQ(rows("select run from sqlite_stmt where sql like 'select _kept_' or sql like 'insert into t_x %'"),
            (Rows{{"3"}, {"3"}}));
}

TEST_F(StatementTest, survivesMoreLivingStatementsThanTheCacheHolds) {
  std::vector<std::unique_ptr<Statement>> many;
  for (int i = 0; i < 1000; ++i) {
    many.push_back(std::make_unique<Statement>(database.get(), "select %a + " + FXStringVal(i)));
    many.back()->setInt("a", 1);
  }
  for (int i = 0; i < 1000; ++i) EXPECT_EQ(many[i]->queryInt(0), i + 1);
  many.clear();
  EXPECT_LE(database->getConnection().getCacheSize(), 256u);
}

TEST_F(StatementTest, noticesThatATableChangedUnderAKnownText) {
  Statement statement(database.get(), "select * from t_x");
  insert(1, "a");
  DataBaseValueLoader before;
  ASSERT_TRUE(statement.execute(&before, 0));
  ASSERT_TRUE(run("alter table t_x add column more text default 'm'"));
  GridLoader after;
  ASSERT_TRUE(statement.execute(&after, 0));
  EXPECT_EQ(after.grid, (Rows{{"1", "a", "(null)", "(null)", "(null)", "m"}}));
  ASSERT_TRUE(run("drop table t_x"));
  EXPECT_FALSE(statement.execute(&after, 0));
  ASSERT_TRUE(run("create table t_x (only text)"));
  EXPECT_TRUE(statement.execute(&after, 0)) << lastError();
}

TEST_F(StatementTest, forgetsBindingsWithTheObject) {
  {
    Statement statement(database.get(), "select %a");
    statement.setInt("a", 1);
    EXPECT_EQ(statement.queryInt(0), 1);
  }
  Statement statement(database.get(), "select %a");
  EXPECT_FALSE(statement.execute(nullptr, 0));
}

}  // namespace
