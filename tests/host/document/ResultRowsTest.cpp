#include "host/document/ResultRows.h"

#include <gtest/gtest.h>

#include "plugin/contract/Statement.h"
#include "tests/support/TestCompany.h"

using namespace FX;

namespace Quillane::Host {
namespace {

TEST(ResultRows, keepTheRowsOfAResult) {
  const TestCompany company;
  ResultRows rows;
  ASSERT_TRUE(Statement(company.getDB(), "select 1, 'a' union all select 2, null").execute(&rows, 1));
  ASSERT_EQ(rows.getNumRows(), 2);
  EXPECT_EQ(rows.getInt(0, 0), 1);
  EXPECT_EQ(rows.getText(0, 1), "a");
  EXPECT_EQ(rows.getInt(1, 0), 2);
  EXPECT_EQ(rows.getText(1, 1), "");
}

TEST(ResultRows, readIntegersAsFarAsTheyAre) {
  const std::pair<const char*, int> cases[] = {
      {"NULL", 0},
      {"7", 7},
      {"-7", -7},
      {"'12'", 12},
      {"1.9", 1},
      {"'x'", 0},
      {"''", 0},
      {"'3x'", 3},
      {"2147483647", 2147483647},
      {"2147483648", 2147483647},
      {"-99999999999", -2147483647 - 1},
      {"9223372036854775807", 2147483647},
  };
  const TestCompany company;
  for (const auto& [value, number] : cases) {
    SCOPED_TRACE(value);
    ResultRows rows;
    ASSERT_TRUE(Statement(company.getDB(), FXString("select ") + value).execute(&rows, 1));
    EXPECT_EQ(rows.getInt(0, 0), number);
  }
}

}  // namespace
}  // namespace Quillane::Host
