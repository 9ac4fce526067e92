#include "host/database/StatementText.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using Quillane::Database::comparesWithParameter;
using Quillane::Database::parseStatement;
using Quillane::Database::StatementText;

struct TextCase {
  std::string sql;
  std::string native;
  std::vector<std::string> parameters;
};

void PrintTo(const TextCase& c, std::ostream* out) { *out << testing::PrintToString(c.sql); }

class ParsedText : public testing::TestWithParam<TextCase> {};

TEST_P(ParsedText, hasItsParametersNumbered) {
  const StatementText text = parseStatement(GetParam().sql);
  EXPECT_EQ(text.sql, GetParam().sql);
  EXPECT_EQ(text.native, GetParam().native);
  EXPECT_EQ(text.parameters, GetParam().parameters);
}

INSTANTIATE_TEST_SUITE_P(Parameters, ParsedText,
                         testing::Values(TextCase{"", "", {}}, TextCase{"select 1", "select 1", {}},
                                         TextCase{"select %a", "select ?1", {"a"}},
                                         TextCase{"a=%a and b=%b", "a=?1 and b=?2", {"a", "b"}},
                                         TextCase{"%a %b %a", "?1 ?2 ?1", {"a", "b"}},
                                         TextCase{"%t_invoiceitem_1,%_x9", "?1,?2", {"t_invoiceitem_1", "_x9"}},
                                         TextCase{"%id %id2 %i", "?1 ?2 ?3", {"id", "id2", "i"}},
                                         TextCase{"%A %a", "?1 ?2", {"A", "a"}}, TextCase{"%név=1", "?1=1", {"név"}},
                                         TextCase{"%id;", "?1;", {"id"}}, TextCase{"(%id)", "(?1)", {"id"}}));

INSTANTIATE_TEST_SUITE_P(PercentSigns, ParsedText,
                         testing::Values(TextCase{"7 % 3", "7 % 3", {}}, TextCase{"7%3", "7%3", {}},
                                         TextCase{"a%", "a%", {}}, TextCase{"%", "%", {}},
                                         TextCase{"%%a", "%?1", {"a"}}, TextCase{"a % %b", "a % ?1", {"b"}},
                                         TextCase{"7%b", "7?1", {"b"}}, TextCase{"% a", "% a", {}}));

INSTANTIATE_TEST_SUITE_P(
    LeftAlone, ParsedText,
    testing::Values(TextCase{"like '%x%'", "like '%x%'", {}}, TextCase{"'it''s %a' %b", "'it''s %a' ?1", {"b"}},
                    TextCase{"'' %a ''", "'' ?1 ''", {"a"}}, TextCase{"\"%a\" %b", "\"%a\" ?1", {"b"}},
                    TextCase{"\"a\"\"%b\" %c", "\"a\"\"%b\" ?1", {"c"}}, TextCase{"`%a` %b", "`%a` ?1", {"b"}},
                    TextCase{"[%a] %b", "[%a] ?1", {"b"}}, TextCase{"-- %a\n%b", "-- %a\n?1", {"b"}},
                    TextCase{"-- %a", "-- %a", {}}, TextCase{"1 - -%a", "1 - -?1", {"a"}},
                    TextCase{"/* %a */ %b", "/* %a */ ?1", {"b"}},
                    TextCase{"/* %a ' */ %b '%c'", "/* %a ' */ ?1 '%c'", {"b"}}, TextCase{"6 / %a", "6 / ?1", {"a"}},
                    TextCase{"/*/ %a */ %b", "/*/ %a */ ?1", {"b"}},
                    TextCase{"'never closed %a", "'never closed %a", {}},
                    TextCase{"/* never closed %a", "/* never closed %a", {}},
                    TextCase{"[never closed %a", "[never closed %a", {}}, TextCase{"-", "-", {}},
                    TextCase{"/", "/", {}}, TextCase{"'-- ' %a", "'-- ' ?1", {"a"}}));

TEST(StatementText, findsTheComparisonOfAKey) {
  EXPECT_TRUE(comparesWithParameter("t_x_id=%t_x_id", "t_x_id"));
  EXPECT_TRUE(comparesWithParameter("t_x_id = %assignId", "t_x_id"));
  EXPECT_TRUE(comparesWithParameter("%key\n=\tT_X_ID", "t_x_id"));
  EXPECT_TRUE(comparesWithParameter("version=%version and t_x_id=%id", "t_x_id"));
  EXPECT_TRUE(comparesWithParameter("(t_x_id=%id)", "t_x_id"));
}

TEST(StatementText, findsNoComparisonOfAKeyWhereThereIsNone) {
  EXPECT_FALSE(comparesWithParameter("", "t_x_id"));
  EXPECT_FALSE(comparesWithParameter("t_x_id=1", "t_x_id"));
  EXPECT_FALSE(comparesWithParameter("t_x_id>%id", "t_x_id"));
  EXPECT_FALSE(comparesWithParameter("t_x_idea=%id", "t_x_id"));
  EXPECT_FALSE(comparesWithParameter("at_x_id=%id", "t_x_id"));
  EXPECT_FALSE(comparesWithParameter("name=%name", "t_x_id"));
  EXPECT_FALSE(comparesWithParameter("name='t_x_id=%id'", "t_x_id"));
  EXPECT_FALSE(comparesWithParameter("t_x_id /* = */ and %id", "t_x_id"));
}

}  // namespace
