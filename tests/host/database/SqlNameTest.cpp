#include "host/database/SqlName.h"

#include <gtest/gtest.h>

namespace {

using namespace Quillane::Database;

TEST(SqlName, isWrittenBareWhereThatIsPossible) {
  EXPECT_EQ(quotedName("t_invoice"), "t_invoice");
  EXPECT_EQ(quotedName("row"), "row");
  EXPECT_EQ(quotedName("value"), "value");
  EXPECT_EQ(quotedName("név"), "név");
}

TEST(SqlName, isQuotedWhereItWouldBeReadOtherwise) {
  EXPECT_EQ(quotedName("order"), "\"order\"");
  EXPECT_EQ(quotedName("Group"), "\"Group\"");
  EXPECT_EQ(quotedName("add"), "\"add\"");
  EXPECT_EQ(quotedName("where"), "\"where\"");
  EXPECT_EQ(quotedName("two words"), "\"two words\"");
  EXPECT_EQ(quotedName("1st"), "\"1st\"");
  EXPECT_EQ(quotedName(""), "\"\"");
  EXPECT_EQ(quotedName("a\"; drop table t"), "\"a\"\"; drop table t\"");
}

TEST(SqlName, isPlainWhenMadeOfLettersDigitsAndUnderscores) {
  EXPECT_TRUE(isPlainName("_1"));
  EXPECT_TRUE(isPlainName("Árvíztűrő"));
  EXPECT_FALSE(isPlainName("1a"));
  EXPECT_FALSE(isPlainName("a-b"));
  EXPECT_FALSE(isPlainName("a%"));
  EXPECT_FALSE(isPlainName(std::string_view("a\0b", 3)));
  EXPECT_FALSE(isPlainName(""));
}

TEST(SqlName, isTheSameInUpperAndLowerCase) {
  EXPECT_TRUE(sameName("T_Invoice", "t_iNVOICE"));
  EXPECT_FALSE(sameName("t_invoice", "t_invoic"));
  EXPECT_FALSE(sameName("t_invoice", "t_invoicf"));
}

}  // namespace
