#include "host/document/Transaction.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "plugin/contract/Statement.h"
#include "tests/support/TestCompany.h"

using namespace FX;
using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

namespace Quillane::Host {
namespace {

class TransactionTest : public testing::Test {
 protected:
  bool run(const Transaction::Work& work) { return Transaction::run(*company.getDB(), reason, work); }

  bool execute(const char* sql) { return Statement(company.getDB(), sql).execute(nullptr, 1); }

  std::string countPartners() { return company.query("select count(*) from t_partner")[0][0]; }

  TestCompany company;
  FXString reason = "earlier";
};

TEST_F(TransactionTest, commitsWhatWasDone) {
  EXPECT_TRUE(run([&](FXString&) { return execute("insert into t_partner (name) values ('A')"); }));
  EXPECT_EQ(reason, "");
  EXPECT_EQ(countPartners(), "1");
  EXPECT_FALSE(company.getDB()->isInTransaction());
}

TEST_F(TransactionTest, takesBackWhatWasDoneBeforeARefusal) {
  EXPECT_FALSE(run([&](FXString& refusal) {
    execute("insert into t_partner (name) values ('A')");
    refusal = "Nem szabad.";
    return false;
  }));
  EXPECT_EQ(reason, "Nem szabad.");
  EXPECT_EQ(countPartners(), "0");
  EXPECT_FALSE(company.getDB()->isInTransaction());
}

TEST_F(TransactionTest, namesTheFirstStatementThatFailedAndNotTheLast) {
  for (const bool stops : {true, false}) {
    EXPECT_FALSE(run([&](FXString&) {
      execute("insert into t_partner (name) values ('A')");
      execute("insert into t_first values (1)");
      execute("insert into t_second values (1)");
      return !stops;
    }));
    EXPECT_THAT(reason.text(), AllOf(HasSubstr("t_first"), Not(HasSubstr("t_second"))));
    EXPECT_EQ(countPartners(), "0");
    EXPECT_FALSE(company.getDB()->isInTransaction());
  }
}

TEST_F(TransactionTest, keepsNothingWhenWorkFailsWithoutAReasonOrAFailedStatement) {
  EXPECT_FALSE(run([&](FXString&) {
    execute("insert into t_partner (name) values ('A')");
    return false;
  }));
  EXPECT_EQ(reason, "A művelet félbeszakadt.");
  EXPECT_EQ(countPartners(), "0");
  EXPECT_FALSE(company.getDB()->isInTransaction());
}

TEST_F(TransactionTest, namesTheRealReasonWhenTheDatabaseGaveUpByItself) {
  const int pages = std::stoi(company.query("pragma page_count")[0][0]);
  company.run("pragma max_page_count = " + std::to_string(pages + 2));
  company.run("pragma cache_size = 2");
  EXPECT_FALSE(run([&](FXString&) {
    execute("insert into t_partner (name) values (hex(randomblob(100000)))");
    return execute("insert into t_partner (name) values ('A')");
  }));
  EXPECT_THAT(reason.text(), HasSubstr("Az adatbázis megtelt"));
}

TEST_F(TransactionTest, leavesTheTransactionOfSomebodyElseAlone) {
  ASSERT_TRUE(company.getDB()->begin());
  execute("insert into t_partner (name) values ('A')");
  bool worked = false;
  EXPECT_FALSE(run([&](FXString&) { return worked = true; }));
  EXPECT_FALSE(worked);
  EXPECT_THAT(reason.text(), HasSubstr("Már fut egy művelet"));
  EXPECT_TRUE(company.getDB()->commit());
  EXPECT_EQ(countPartners(), "1");
}

}  // namespace
}  // namespace Quillane::Host
