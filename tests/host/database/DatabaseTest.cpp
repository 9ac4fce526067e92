#include "plugin/contract/Database.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <climits>
#include <fstream>
#include <string>

#include "host/database/Connection.h"
#include "plugin/contract/Statement.h"
#include "tests/host/database/DatabaseFixture.h"

using namespace FX;
using testing::AllOf;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

namespace {

class DatabaseTest : public DatabaseFixture {
 protected:
  void SetUp() override {
    DatabaseFixture::SetUp();
    ASSERT_TRUE(run("create table t_x (t_x_id integer primary key, name text unique)"));
    ASSERT_TRUE(run("create table t_y (t_y_id integer primary key, t_x_1 integer not null references t_x (t_x_id))"));
    ASSERT_TRUE(run("insert into t_x values (1, 'before')"));
  }

  // The error of an opening that must not succeed.
  static std::string openingError(const std::string& where) {
    FXString error;
    std::unique_ptr<TarnwellDatabase> opened(TarnwellDatabase::open(where.c_str(), error));
    EXPECT_EQ(opened, nullptr) << where;
    return error.text();
  }

  Rows names() { return rows("select name from t_x order by t_x_id"); }
  const Rows asBefore{{"before"}};
};

// Opening

TEST_F(DatabaseTest, makesTheFileWhenThereIsNone) {
  const std::string fresh = folder + "/fresh file: 100% new.db";
  FXString error = "left over";
  {
    std::unique_ptr<TarnwellDatabase> opened(TarnwellDatabase::open(fresh.c_str(), error));
    ASSERT_NE(opened, nullptr) << error.text();
    EXPECT_TRUE(error.empty());
    EXPECT_TRUE(Statement(opened.get(), "create table t (a)").execute(nullptr, 0));
  }
  EXPECT_TRUE(std::filesystem::is_regular_file(fresh));
}

TEST_F(DatabaseTest, opensAnEmptyFileAndARelativePath) {
  const std::string empty = folder + "/empty.db";
  std::ofstream(empty).close();
  FXString error;
  std::unique_ptr<TarnwellDatabase> opened(TarnwellDatabase::open(empty.c_str(), error));
  ASSERT_NE(opened, nullptr) << error.text();
  const auto here = std::filesystem::current_path();
  std::filesystem::current_path(folder);
  for (const char* name : {"relative.db", "file:odd?mode=memory", "-x.db"}) {
    opened.reset(TarnwellDatabase::open(name, error));
    ASSERT_NE(opened, nullptr) << error.text();
    EXPECT_TRUE(Statement(opened.get(), "create table t (a)").execute(nullptr, 0));
    EXPECT_TRUE(std::filesystem::exists(folder + "/" + name)) << name;
  }
  std::filesystem::current_path(here);
}

TEST_F(DatabaseTest, opensADatabaseInMemory) {
  FXString error;
  std::unique_ptr<TarnwellDatabase> one(TarnwellDatabase::open(":memory:", error));
  std::unique_ptr<TarnwellDatabase> other(TarnwellDatabase::open(":memory:", error));
  ASSERT_NE(one, nullptr);
  ASSERT_NE(other, nullptr);
  EXPECT_TRUE(Statement(one.get(), "create table t (a)").execute(nullptr, 0));
  EXPECT_FALSE(Statement(other.get(), "select * from t").execute(nullptr, 0));
  EXPECT_FALSE(std::filesystem::exists(":memory:"));
}

TEST_F(DatabaseTest, saysWhyAPathCannotBeOpened) {
  EXPECT_THAT(openingError(""), Not(IsEmpty()));
  EXPECT_THAT(openingError(folder), AllOf(HasSubstr("mappa"), HasSubstr(folder)));
  EXPECT_THAT(openingError(folder + "/missing/company.db"),
              AllOf(HasSubstr("Nincs ilyen mappa"), HasSubstr("/missing")));
  EXPECT_FALSE(std::filesystem::exists(folder + "/missing"));
  EXPECT_THAT(openingError(file + "/company.db"), HasSubstr("Nincs ilyen mappa"));
  ASSERT_EQ(mkfifo((folder + "/pipe").c_str(), 0600), 0);
  EXPECT_THAT(openingError(folder + "/pipe"), HasSubstr("nem fájl"));
  std::filesystem::create_symlink(folder + "/nowhere/at/all", folder + "/dangling");
  EXPECT_THAT(openingError(folder + "/dangling"), Not(IsEmpty()));
}

TEST_F(DatabaseTest, saysThatAFileIsNoDatabaseAndLeavesItAlone) {
  const std::string text = folder + "/letter.txt";
  const std::string content = "Tisztelt Partnerünk! " + std::string(5000, '.');
  std::ofstream(text) << content;
  EXPECT_THAT(openingError(text), AllOf(HasSubstr("nem adatbázis"), HasSubstr(text)));
  std::ifstream read(text);
  EXPECT_EQ(std::string(std::istreambuf_iterator<char>(read), {}), content);
}

TEST_F(DatabaseTest, saysThatAnotherProgramLocksTheFile) {
  database.reset();
  OtherProgram other(file);
  ASSERT_TRUE(other.run("begin exclusive"));
  EXPECT_THAT(openingError(file), HasSubstr("egy másik program zárolja"));
}

// As somebody who may do nothing: root may do everything.
TEST_F(DatabaseTest, saysThatAPermissionIsMissing) {
  const std::string closed = folder + "/closed";
  std::filesystem::create_directory(closed);
  const std::string hidden = closed + "/company.db";
  std::ofstream(hidden).close();
  chmod(folder.c_str(), 0755);
  chmod(closed.c_str(), 0755);
  chmod(hidden.c_str(), 0);
  const pid_t child = fork();
  if (child == 0) {
    if (geteuid() == 0 && (setegid(65534) != 0 || seteuid(65534) != 0)) _exit(3);
    FXString error;
    TarnwellDatabase* opened = TarnwellDatabase::open(hidden.c_str(), error);
    TarnwellDatabase* made = TarnwellDatabase::open((closed + "/new.db").c_str(), error);
    const bool clear = error.contains("jogosultsága") && error.contains("new.db");
    _exit(opened ? 1 : (geteuid() == 65534 && made) ? 2 : clear || made ? 0 : 4);
  }
  int status = 0;
  ASSERT_EQ(waitpid(child, &status, 0), child);
  EXPECT_EQ(WEXITSTATUS(status), 0);
}

TEST_F(DatabaseTest, readsAFileThatMayNotBeWritten) {
  database.reset();
  chmod(folder.c_str(), 0555);
  chmod(file.c_str(), 0444);
  const pid_t child = fork();
  if (child == 0) {
    if (geteuid() == 0 && (setegid(65534) != 0 || seteuid(65534) != 0)) _exit(3);
    FXString error;
    TarnwellDatabase* opened = TarnwellDatabase::open(file.c_str(), error);
    if (!opened) _exit(1);
    if (opened->queryScalar("select count(*) from t_x", 1, -1) != 1) _exit(2);
    if (Statement(opened, "delete from t_x").execute(nullptr, 0)) _exit(4);
    _exit(opened->getLastError().contains("csak olvasható") ? 0 : 5);
  }
  int status = 0;
  ASSERT_EQ(waitpid(child, &status, 0), child);
  chmod(folder.c_str(), 0755);
  EXPECT_EQ(WEXITSTATUS(status), 0);
}

TEST_F(DatabaseTest, enforcesForeignKeys) {
  EXPECT_FALSE(run("insert into t_y values (1, 99)"));
  EXPECT_THAT(lastError(), AllOf(HasSubstr("szabályát"), HasSubstr("FOREIGN KEY")));
  EXPECT_TRUE(run("insert into t_y values (1, 1)"));
}

TEST_F(DatabaseTest, hasNoErrorBeforeTheFirstFailure) {
  database.reset();
  openDatabase();
  EXPECT_THAT(lastError(), IsEmpty());
  EXPECT_FALSE(run("nonsense"));
  const std::string error = lastError();
  EXPECT_TRUE(run("select 1"));
  EXPECT_EQ(lastError(), error);
}

// queryScalar

TEST_F(DatabaseTest, queriesTheFirstColumnOfARow) {
  EXPECT_EQ(database->queryScalar("select count(1) from t_x where t_x_id=-1", 1, -1), 0);
  EXPECT_EQ(database->queryScalar("select 7, 8 union all select 9, 10", 1, -1), 7);
  EXPECT_EQ(database->queryScalar("select 7, 8 union all select 9, 10", 2, -1), 9);
  EXPECT_EQ(database->queryScalar("select null", 1, -1), 0);
  EXPECT_EQ(database->queryScalar("select '12x'", 1, -1), 12);
  EXPECT_EQ(database->queryScalar("select 1e12", 1, -1), INT_MAX);
}

TEST_F(DatabaseTest, answersTheFallbackWhereThereIsNoRowOrTheQueryFails) {
  EXPECT_EQ(database->queryScalar("select 7", 2, -1), -1);
  EXPECT_EQ(database->queryScalar("select 7", 0, 5), 5);
  EXPECT_EQ(database->queryScalar("select 7 where 0", 1, 5), 5);
  EXPECT_EQ(database->queryScalar("select count(1) from nonsense", 1, -1), -1);
  EXPECT_EQ(database->queryScalar("select %unbound", 1, -1), -1);
  EXPECT_EQ(database->queryScalar("", 1, -1), -1);
}

TEST_F(DatabaseTest, doesNotFailTheTransactionWithAScalarThatHasAFallback) {
  ASSERT_TRUE(database->begin());
  EXPECT_EQ(database->queryScalar("select count(1) from nonsense", 1, -1), -1);
  EXPECT_TRUE(database->commit());
}

// nextKey

TEST_F(DatabaseTest, givesKeysFromOneOn) {
  ASSERT_TRUE(run("delete from t_x"));
  EXPECT_EQ(database->nextKey("t_x"), 1);
  EXPECT_EQ(database->nextKey("t_x"), 2);
  EXPECT_EQ(database->nextKey("t_y"), 1);
}

TEST_F(DatabaseTest, givesNoKeyInUse) {
  ASSERT_TRUE(run("insert into t_x values (41, 'x')"));
  EXPECT_EQ(database->nextKey("t_x"), 42);
  ASSERT_TRUE(run("insert into t_x values (43, 'y')"));
  EXPECT_EQ(database->nextKey("t_x"), 44);
}

TEST_F(DatabaseTest, isNotDisturbedByKeysBelowOne) {
  ASSERT_TRUE(run("delete from t_x"));
  ASSERT_TRUE(run("insert into t_x values (-1, 'quantity'), (0, 'zero')"));
  EXPECT_EQ(database->nextKey("t_x"), 1);
}

TEST_F(DatabaseTest, givesNoKeyThatAnotherProgramUsed) {
  EXPECT_EQ(database->nextKey("t_x"), 2);
  OtherProgram other(file);
  ASSERT_TRUE(other.run("insert into t_x values (3, 'other')"));
  EXPECT_EQ(database->nextKey("t_x"), 4);
}

TEST_F(DatabaseTest, givesDifferentKeysInsideATransaction) {
  ASSERT_TRUE(database->begin());
  EXPECT_EQ(database->nextKey("t_x"), 2);
  EXPECT_EQ(database->nextKey("t_x"), 3);
  ASSERT_TRUE(run("insert into t_x values (2, 'a')"));
  EXPECT_EQ(database->nextKey("t_x"), 4);
  ASSERT_TRUE(database->rollback());
  EXPECT_EQ(database->nextKey("t_x"), 5);
}

TEST_F(DatabaseTest, givesAnUnusedKeyWhenTheLargestIsTaken) {
  ASSERT_TRUE(run("insert into t_x values (2147483647, 'largest'), (2, 'b'), (4, 'd')"));
  EXPECT_EQ(database->nextKey("t_x"), 3);
  EXPECT_EQ(database->nextKey("t_x"), 5);
  EXPECT_EQ(database->nextKey("t_x"), 6);
  ASSERT_TRUE(run("insert into t_x values (9223372036854775807, 'beyond')"));
  EXPECT_EQ(database->nextKey("t_x"), 7);
  ASSERT_TRUE(run("delete from t_x where t_x_id > 4"));
  EXPECT_EQ(database->nextKey("t_x"), 5) << "there is room above again";
}

TEST_F(DatabaseTest, givesTheLargestKeyAndThenTheFirstGap) {
  ASSERT_TRUE(run("insert into t_x values (2147483646, 'last but one')"));
  EXPECT_EQ(database->nextKey("t_x"), INT_MAX);
  EXPECT_EQ(database->nextKey("t_x"), 2);
}

TEST_F(DatabaseTest, failsTheTransactionWhenItCannotTellAKey) {
  EXPECT_EQ(database->nextKey("nonsense"), 0);
  EXPECT_EQ(database->nextKey("t_x; drop table t_x"), 0);
  EXPECT_EQ(database->nextKey(""), 0);
  ASSERT_TRUE(database->begin());
  EXPECT_EQ(database->nextKey("nonsense"), 0);
  EXPECT_FALSE(database->commit());
  EXPECT_THAT(lastError(), HasSubstr("nonsense"));
}

// Transactions

TEST_F(DatabaseTest, commitsWhatWasWritten) {
  EXPECT_FALSE(database->isInTransaction());
  ASSERT_TRUE(database->begin());
  EXPECT_TRUE(database->isInTransaction());
  ASSERT_TRUE(run("insert into t_x values (2, 'new')", 1));
  EXPECT_TRUE(database->commit()) << lastError();
  EXPECT_FALSE(database->isInTransaction());
  EXPECT_EQ(OtherProgram(file).rows("select name from t_x order by 1"), (Rows{{"before"}, {"new"}}));
}

TEST_F(DatabaseTest, rollsBackWhatWasWritten) {
  ASSERT_TRUE(database->begin());
  ASSERT_TRUE(run("insert into t_x values (2, 'new')", 1));
  ASSERT_TRUE(run("create table t_z (a)", 1));
  EXPECT_TRUE(database->rollback());
  EXPECT_FALSE(database->isInTransaction());
  EXPECT_EQ(names(), asBefore);
  EXPECT_FALSE(run("select * from t_z"));
}

TEST_F(DatabaseTest, rollsBackWhatIsOpenWhenItIsClosed) {
  ASSERT_TRUE(database->begin());
  ASSERT_TRUE(run("insert into t_x values (2, 'new')", 1));
  database.reset();
  openDatabase();
  EXPECT_EQ(names(), asBefore);
}

TEST_F(DatabaseTest, refusesACommitOrRollbackWithoutATransaction) {
  EXPECT_FALSE(database->commit());
  EXPECT_THAT(lastError(), HasSubstr("Nincs mit véglegesíteni"));
  EXPECT_FALSE(database->rollback());
  EXPECT_THAT(lastError(), HasSubstr("Nincs mit visszavonni"));
}

TEST_F(DatabaseTest, refusesASecondTransactionAndGoesOnWithTheFirst) {
  ASSERT_TRUE(database->begin());
  ASSERT_TRUE(run("insert into t_x values (2, 'new')", 1));
  EXPECT_FALSE(database->begin());
  EXPECT_THAT(lastError(), HasSubstr("Már fut"));
  EXPECT_TRUE(database->commit()) << lastError();
  EXPECT_EQ(names(), (Rows{{"before"}, {"new"}}));
}

TEST_F(DatabaseTest, remembersTheFirstStatementThatFailed) {
  ASSERT_TRUE(database->begin());
  ASSERT_TRUE(run("insert into t_x values (2, 'new')", 1));
  EXPECT_FALSE(run("insert into t_x values (3, 'before')", 1));
  EXPECT_FALSE(run("insert into t_y values (1, 99)", 1));
  EXPECT_TRUE(run("insert into t_x values (4, 'later')", 1));
  EXPECT_FALSE(database->commit());
  EXPECT_FALSE(database->isInTransaction());
  EXPECT_THAT(lastError(), AllOf(HasSubstr("szabályát"), HasSubstr("UNIQUE constraint failed: t_x.name"),
                                 HasSubstr("insert into t_x values (3, 'before')")));
  EXPECT_EQ(names(), asBefore);
}

TEST_F(DatabaseTest, failsTheTransactionByWhateverStatementCounts) {
  const auto fails = [this](const char* what, bool statementFailed) {
    EXPECT_TRUE(statementFailed) << what;
    EXPECT_FALSE(database->commit()) << what;
  };
  ASSERT_TRUE(database->begin());
  fails("a text that is none", !run("nonsense", 1));
  ASSERT_TRUE(database->begin());
  fails("a parameter without a value", !run("select %a", 1));
  ASSERT_TRUE(database->begin());
  fails("a delete of everything", !DeleteStatement(database.get(), "t_x").execute(nullptr, 1));
  ASSERT_TRUE(database->begin());
  UpdateStatement update(database.get(), "t_x", "t_x_id=%t_x_id");
  update.setInt("t_x_id", 77);
  update.setString("name", "x");
  fails("an update of a row that is gone", !update.execute(nullptr, 1));
  ASSERT_TRUE(database->begin());
  fails("a query for an integer", Statement(database.get(), "select nonsense").queryInt(0) == 0);
  EXPECT_EQ(names(), asBefore);
}

TEST_F(DatabaseTest, leavesAFailureThatDoesNotCountToItsCaller) {
  ASSERT_TRUE(database->begin());
  ASSERT_TRUE(run("insert into t_x values (2, 'new')", 1));
  EXPECT_FALSE(run("insert into t_x values (3, 'before')", 0));
  EXPECT_TRUE(database->commit()) << lastError();
  EXPECT_EQ(names(), (Rows{{"before"}, {"new"}}));
}

TEST_F(DatabaseTest, forgetsAFailureWithItsTransaction) {
  EXPECT_FALSE(run("nonsense", 1)) << "outside of any transaction";
  ASSERT_TRUE(database->begin());
  EXPECT_FALSE(run("nonsense", 1));
  EXPECT_TRUE(database->rollback());
  ASSERT_TRUE(database->begin());
  EXPECT_TRUE(database->commit()) << lastError();
}

TEST_F(DatabaseTest, writesNothingMoreAfterTheDatabaseGaveTheTransactionUp) {
  ASSERT_TRUE(database->begin());
  ASSERT_TRUE(run("insert into t_x values (2, 'new')", 1));
  EXPECT_FALSE(run("insert or rollback into t_x values (3, 'before')", 0));
  EXPECT_FALSE(run("insert into t_x values (4, 'stray')", 0)) << "it would last at once, whatever becomes of the rest";
  EXPECT_THAT(lastError(), HasSubstr("visszavonta"));
  EXPECT_EQ(names(), asBefore) << "reading goes on";
  EXPECT_TRUE(database->isInTransaction());
  EXPECT_FALSE(database->commit());
  EXPECT_THAT(lastError(), HasSubstr("insert or rollback into t_x"));
  EXPECT_EQ(names(), asBefore);
  ASSERT_TRUE(database->begin());
  ASSERT_TRUE(run("insert into t_x values (5, 'again')", 1));
  EXPECT_TRUE(database->commit()) << lastError();
}

TEST_F(DatabaseTest, canBeRolledBackAfterTheDatabaseGaveTheTransactionUp) {
  ASSERT_TRUE(database->begin());
  EXPECT_FALSE(run("insert or rollback into t_x values (3, 'before')", 1));
  EXPECT_TRUE(database->rollback());
  EXPECT_TRUE(run("insert into t_x values (4, 'next')", 0));
}

TEST_F(DatabaseTest, noticesATransactionThatWasEndedBehindItsBack) {
  ASSERT_TRUE(database->begin());
  ASSERT_TRUE(run("commit", 1));
  EXPECT_FALSE(database->commit());
  EXPECT_THAT(lastError(), HasSubstr("már lezárta"));
  EXPECT_TRUE(database->begin()) << lastError();
}

TEST_F(DatabaseTest, rollsBackWhatBreaksARuleOnlyInTheEnd) {
  ASSERT_TRUE(run("create table t_late (a integer references t_x (t_x_id) deferrable initially deferred)"));
  ASSERT_TRUE(database->begin());
  ASSERT_TRUE(run("insert into t_x values (2, 'new')", 1));
  ASSERT_TRUE(run("insert into t_late values (99)", 1));
  EXPECT_FALSE(database->commit());
  EXPECT_THAT(lastError(), HasSubstr("FOREIGN KEY"));
  EXPECT_FALSE(database->isInTransaction());
  EXPECT_EQ(names(), asBefore);
}

TEST_F(DatabaseTest, rollsBackFromWithinAReading) {
  class RollingBack : public DataBaseValueLoader {
   public:
    explicit RollingBack(TarnwellDatabase* rolledBack) : db(rolledBack) {}
    bool processValue(int column, const char* name, const char* value) override {
      db->rollback();
      return DataBaseValueLoader::processValue(column, name, value);
    }

   private:
    TarnwellDatabase* db;
  };
  ASSERT_TRUE(database->begin());
  ASSERT_TRUE(run("insert into t_x values (2, 'new')", 1));
  RollingBack loader(database.get());
  Statement(database.get(), "select name from t_x order by t_x_id").execute(&loader, 0);
  EXPECT_GE(loader.getNumRows(), 1);
  EXPECT_FALSE(database->isInTransaction());
  EXPECT_EQ(names(), asBefore);
}

// Reading from one state

TEST_F(DatabaseTest, readsFromOneStateUntilTheReadingEnds) {
  OtherProgram other(file);
  database->getConnection().beginReading();
  EXPECT_EQ(names(), asBefore);
  EXPECT_FALSE(other.run("insert into t_x values (2, 'other')"));
  EXPECT_EQ(names(), asBefore);
  database->getConnection().endReading();
  EXPECT_TRUE(other.run("insert into t_x values (2, 'other')"));
  EXPECT_EQ(names(), (Rows{{"before"}, {"other"}}));
}

TEST_F(DatabaseTest, keepsWhatIsWrittenWhileItReads) {
  database->getConnection().beginReading();
  ASSERT_TRUE(run("insert into t_x values (2, 'new')"));
  database->getConnection().endReading();
  EXPECT_EQ(OtherProgram(file).rows("select name from t_x order by t_x_id"), (Rows{{"before"}, {"new"}}));
}

TEST_F(DatabaseTest, endsTheReadingWhenATransactionBegins) {
  database->getConnection().beginReading();
  EXPECT_EQ(names(), asBefore);
  ASSERT_TRUE(database->begin()) << lastError();
  ASSERT_TRUE(run("insert into t_x values (2, 'new')", 1));
  database->getConnection().endReading();
  ASSERT_TRUE(database->rollback());
  EXPECT_EQ(names(), asBefore);
}

TEST_F(DatabaseTest, leavesARunningTransactionAloneWhenItReads) {
  ASSERT_TRUE(database->begin());
  ASSERT_TRUE(run("insert into t_x values (2, 'new')", 1));
  database->getConnection().beginReading();
  database->getConnection().endReading();
  ASSERT_TRUE(database->rollback());
  EXPECT_EQ(names(), asBefore);
}

TEST_F(DatabaseTest, saysAtOnceThatWhatIsWrittenWhileItReadsCannotStay) {
  OtherProgram other(file);
  ASSERT_TRUE(other.run("begin"));
  EXPECT_EQ(other.rows("select name from t_x"), asBefore);
  database->getConnection().beginReading();
  EXPECT_EQ(names(), asBefore);
  EXPECT_FALSE(run("insert into t_x values (2, 'new')"));
  EXPECT_THAT(lastError(), HasSubstr("Az adatbázist egy másik program zárolja."));
  database->getConnection().endReading();
  ASSERT_TRUE(other.run("commit"));
  EXPECT_EQ(names(), asBefore);
  EXPECT_TRUE(other.run("insert into t_x values (2, 'other')"));
}

TEST_F(DatabaseTest, showsOthersAtOnceWhatIsWrittenWhileItReads) {
  OtherProgram other(file);
  database->getConnection().beginReading();
  EXPECT_EQ(names(), asBefore);
  ASSERT_TRUE(run("insert into t_x values (2, 'new')"));
  EXPECT_EQ(other.rows("select name from t_x order by t_x_id"), (Rows{{"before"}, {"new"}}));
  EXPECT_TRUE(other.run("insert into t_x values (3, 'other')"));
  EXPECT_EQ(names(), (Rows{{"before"}, {"new"}, {"other"}}));
  database->getConnection().endReading();
}

TEST_F(DatabaseTest, writesWhileAStatementOfTheReadingStillRuns) {
  class Writing : public GridLoader {
   public:
    explicit Writing(TarnwellDatabase* written) : db(written) {}

    bool processValue(int column, const char* name, const char* value) override {
      EXPECT_TRUE(Statement(db, "update t_y set t_x_1 = 1").execute(nullptr, 0)) << db->getLastError().text();
      return GridLoader::processValue(column, name, value);
    }

   private:
    TarnwellDatabase* db;
  };
  ASSERT_TRUE(run("insert into t_x values (2, 'second')"));
  database->getConnection().beginReading();
  Writing loader(database.get());
  EXPECT_TRUE(Statement(database.get(), "select name from t_x order by t_x_id").execute(&loader, 0)) << lastError();
  EXPECT_EQ(loader.grid, (Rows{{"before"}, {"second"}}));
  database->getConnection().endReading();
  EXPECT_TRUE(OtherProgram(file).run("insert into t_x values (3, 'other')"));
}

TEST_F(DatabaseTest, readsOnInTheReadingThatAnotherBeginsIn) {
  OtherProgram other(file);
  EXPECT_TRUE(database->getConnection().beginReading());
  EXPECT_EQ(names(), asBefore);
  EXPECT_FALSE(database->getConnection().beginReading());
  EXPECT_FALSE(other.run("insert into t_x values (2, 'other')"));
  database->getConnection().endReading();
  ASSERT_TRUE(database->begin());
  EXPECT_FALSE(database->getConnection().beginReading());
  ASSERT_TRUE(database->rollback());
}

// Others in the way, no room

TEST_F(DatabaseTest, takesTheWriteLockWhenItBegins) {
  ASSERT_TRUE(database->begin());
  OtherProgram other(file);
  EXPECT_FALSE(other.run("insert into t_x values (2, 'other')"));
  EXPECT_EQ(other.rows("select name from t_x"), asBefore);
  ASSERT_TRUE(database->commit());
  EXPECT_TRUE(other.run("insert into t_x values (2, 'other')"));
}

TEST_F(DatabaseTest, saysThatAnotherProgramIsWriting) {
  OtherProgram other(file);
  ASSERT_TRUE(other.run("begin immediate; insert into t_x values (2, 'other')"));
  EXPECT_FALSE(database->begin());
  EXPECT_THAT(lastError(), HasSubstr("Az adatbázist egy másik program zárolja."));
  EXPECT_FALSE(database->isInTransaction());
  EXPECT_FALSE(run("insert into t_x values (3, 'ours')", 1));
  EXPECT_THAT(lastError(), HasSubstr("Az adatbázist egy másik program zárolja."));
  EXPECT_EQ(names(), asBefore) << "reading is possible";
  ASSERT_TRUE(other.run("commit"));
  EXPECT_TRUE(run("insert into t_x values (3, 'ours')", 1)) << lastError();
}

TEST_F(DatabaseTest, rollsBackWhenAReaderIsInTheWayOfTheCommit) {
  OtherProgram other(file);
  ASSERT_TRUE(other.run("begin"));
  EXPECT_EQ(other.rows("select name from t_x"), asBefore);
  ASSERT_TRUE(database->begin());
  ASSERT_TRUE(run("insert into t_x values (2, 'new')", 1));
  EXPECT_FALSE(database->commit());
  EXPECT_THAT(lastError(), HasSubstr("Az adatbázist egy másik program zárolja."));
  EXPECT_FALSE(database->isInTransaction());
  ASSERT_TRUE(other.run("commit"));
  EXPECT_EQ(names(), asBefore);
  ASSERT_TRUE(database->begin());
  EXPECT_TRUE(database->commit());
}

TEST_F(DatabaseTest, waitsForAnotherProgramForAWhile) {
  database.reset();
  FXString error;
  database.reset(TarnwellDatabase::open(file.c_str(), error));
  EXPECT_GE(database->queryScalar("pragma busy_timeout", 1, 0), 2000);
  EXPECT_LE(database->queryScalar("pragma busy_timeout", 1, 0), 10000);
}

TEST_F(DatabaseTest, isAsBeforeWhenTheDatabaseIsFull) {
  ASSERT_TRUE(database->begin());
  ASSERT_TRUE(run("pragma max_page_count = 8", 1));
  ASSERT_TRUE(run("insert into t_x values (2, 'new')", 1));
  InsertStatement insert(database.get(), "t_x");
  insert.setString("name", std::string(100000, 'x').c_str());
  EXPECT_FALSE(insert.execute(nullptr, 1));
  run("insert into t_x values (4, 'after')", 1);
  EXPECT_FALSE(database->commit());
  EXPECT_THAT(lastError(), AllOf(HasSubstr("megtelt"), HasSubstr("insert into t_x (name) values (%name)")));
  EXPECT_EQ(names(), asBefore);
  EXPECT_TRUE(run("insert into t_x values (5, 'small')", 1)) << lastError();
  EXPECT_EQ(rows("pragma integrity_check"), (Rows{{"ok"}}));
}

TEST_F(DatabaseTest, isAsBeforeWhenAStatementFailsInTheMiddleOfMany) {
  ASSERT_TRUE(database->begin());
  for (int i = 2; i < 2000; ++i) {
    InsertStatement insert(database.get(), "t_x");
    insert.setInt("t_x_id", i);
    insert.setString("name", i == 1000 ? FXString("before") : FXStringVal(i));
    EXPECT_EQ(insert.execute(nullptr, 1), i != 1000);
  }
  EXPECT_FALSE(database->commit());
  EXPECT_EQ(names(), asBefore);
}

}  // namespace
