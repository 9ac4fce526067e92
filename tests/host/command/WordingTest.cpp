// Foreign texts in sentences.
#include "host/command/Wording.h"

#include <gtest/gtest.h>

#include <string>

using namespace FX;

namespace Quillane::Commands {
namespace {

TEST(Wording, leavesShortTextsAsTheyAre) {
  EXPECT_STREQ(quoteText("").text(), "");
  EXPECT_STREQ(quoteText("Gyári szám %s").text(), "Gyári szám %s");
  const std::string longest(80, 'x');
  EXPECT_EQ(quoteText(longest.c_str()).text(), longest);
}

TEST(Wording, putsTextsOnOneLine) { EXPECT_STREQ(quoteText("a\nb\tc\r\x1b[2J").text(), "a b c  [2J"); }

TEST(Wording, shortensLongTexts) {
  EXPECT_EQ(quoteText(std::string(81, 'x').c_str()).text(), std::string(80, 'x') + "…");
  EXPECT_EQ(quoteText(std::string(100 * 1024, 'x').c_str()).text(), std::string(80, 'x') + "…");
}

TEST(Wording, doesNotCutLettersApart) {
  EXPECT_EQ(quoteText((std::string(79, 'x') + "ééé").c_str()).text(), std::string(79, 'x') + "…");
  EXPECT_EQ(quoteText((std::string(78, 'x') + "😀😀").c_str()).text(), std::string(78, 'x') + "…");
  EXPECT_EQ(quoteText((std::string(78, 'x') + "éé").c_str()).text(), std::string(78, 'x') + "é…");
  EXPECT_EQ(quoteText(std::string(100, '\x80').c_str()).text(), std::string("…"));
}

}  // namespace
}  // namespace Quillane::Commands
