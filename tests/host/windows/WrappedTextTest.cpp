// Sentences on several lines.
#include "host/windows/WrappedText.h"

#include <gtest/gtest.h>

namespace Quillane::Host {
namespace {

struct WrapCase {
  const char* text;
  int length;
  const char* wrapped;
};

class WrappedTextTest : public testing::TestWithParam<WrapCase> {};

TEST_P(WrappedTextTest, breaksLinesBetweenWords) {
  EXPECT_STREQ(wrapText(GetParam().text, GetParam().length).text(), GetParam().wrapped);
}

INSTANTIATE_TEST_SUITE_P(, WrappedTextTest,
                         testing::Values(WrapCase{"", 10, ""}, WrapCase{"egy", 10, "egy"},
                                         WrapCase{"egy kettő", 9, "egy kettő"},  // characters count, not bytes
                                         WrapCase{"egy kettő", 8, "egy\nkettő"},
                                         WrapCase{"a bb ccc dddd", 4, "a bb\nccc\ndddd"},
                                         WrapCase{"egészenhosszúszó és", 5, "egészenhosszúszó\nés"},
                                         WrapCase{"egy\nkettő három", 6, "egy\nkettő\nhárom"}));

}  // namespace
}  // namespace Quillane::Host
