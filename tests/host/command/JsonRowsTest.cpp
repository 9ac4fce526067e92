// The rows of a result as JSON.
#include "host/command/JsonRows.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

namespace Quillane::Commands {
namespace {

TEST(JsonRows, knowsNullFromEmptyAndZero) {
  JsonRows rows;
  const std::vector<std::pair<const char*, const char*>> results = {{"x", "5"}, {nullptr, nullptr}, {"", "0"}};
  for (const auto& [text, number] : results) {
    EXPECT_TRUE(rows.processValue(0, "a", text));
    EXPECT_TRUE(rows.processValue(1, "b", number));
  }
  ASSERT_EQ(rows.getNumRows(), 3);
  EXPECT_EQ(rows.getTextJson(0, 0), "x");
  EXPECT_EQ(rows.getIntegerJson(0, 1), 5);
  EXPECT_TRUE(rows.getTextJson(1, 0).is_null());
  EXPECT_TRUE(rows.getIntegerJson(1, 1).is_null());
  EXPECT_EQ(rows.getTextJson(2, 0), "");
  EXPECT_EQ(rows.getIntegerJson(2, 1), 0);
  EXPECT_EQ(rows.getInt(1, 1), 0);
}

}  // namespace
}  // namespace Quillane::Commands
