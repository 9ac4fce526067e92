#include "plugin/contract/Tarnwell.h"

#include <gtest/gtest.h>

#include "plugin/contract/Database.h"
#include "plugin/contract/Statement.h"
#include "tests/support/TestCompany.h"

using namespace FX;

namespace Quillane {
namespace {

TarnwellDatabase* openInMemory() {
  FXString error;
  return TarnwellDatabase::open(":memory:", error);
}

TEST(Tarnwell, hasNoDatabaseWhileNoCompanyIsOpen) { EXPECT_EQ(testAccount().getDB(), nullptr); }

TEST(Tarnwell, givesTheDatabaseThatWasSet) {
  TarnwellDatabase* database = openInMemory();
  ASSERT_NE(database, nullptr);
  testAccount().setDB(database);
  EXPECT_EQ(testAccount().getDB(), database);
  testAccount().setDB(database);  // again: stays open
  EXPECT_EQ(database->queryScalar("select 5", 1, -1), 5);
  testAccount().setDB(nullptr);
  EXPECT_EQ(testAccount().getDB(), nullptr);
}

TEST(Tarnwell, closesTheDatabaseThatIsReplaced) {
  const TestCompany company(TestCompany::IN_FILE);
  const auto other = company.openAgain();
  ASSERT_TRUE(Statement(other.get(), "pragma busy_timeout=0").execute(nullptr, 1));
  ASSERT_TRUE(company.getDB()->begin());
  EXPECT_FALSE(other->begin());
  testAccount().setDB(openInMemory());
  EXPECT_TRUE(other->begin());
}

TEST(Tarnwell, isTheToolkitsApplication) { EXPECT_EQ(FXApp::instance(), &testAccount()); }

}  // namespace
}  // namespace Quillane
