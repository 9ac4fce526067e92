// Arguments as people write them.
#include "host/command/ArgumentText.h"

#include <gtest/gtest.h>

using namespace FX;

namespace Quillane::Commands {
namespace {

TEST(ArgumentText, readsWholeNumbers) {
  int number = 0;
  EXPECT_TRUE(readNumber("ID", "1", number).succeeded());
  EXPECT_EQ(number, 1);
  EXPECT_TRUE(readNumber("ID", "0042", number).succeeded());
  EXPECT_EQ(number, 42);
  EXPECT_TRUE(readNumber("ID", "999999999", number).succeeded());
  EXPECT_EQ(number, 999999999);
}

TEST(ArgumentText, refusesWhatIsNoWholeNumber) {
  for (const char* text : {"", "0", "-1", "+1", " 1", "1 ", "1.0", "1e3", "0x10", "1234567890", "egy", "１"}) {
    int number = 7;
    const Outcome outcome = readNumber("--document", text, number);
    EXPECT_EQ(outcome.status, Outcome::WRONG_CALL) << text;
    EXPECT_EQ(outcome.sentence.find("--document: "), 0) << text;
  }
}

TEST(ArgumentText, readsCalendarDays) {
  for (const char* text : {"2025-01-01", "2024-02-29", "2000-02-29", "2025-12-31", "0001-01-01", "9999-04-30"}) {
    FXString date;
    EXPECT_TRUE(readDate("--date", text, date).succeeded()) << text;
    EXPECT_EQ(date, text);
  }
}

TEST(ArgumentText, refusesDaysThatNoCalendarHas) {
  for (const char* text :
       {"", "2025-02-29", "1900-02-29", "2025-04-31", "2025-00-01", "2025-13-01", "2025-01-00", "2025-01-32",
        "0000-01-01", "2025/01/01", "2025-1-01", "2025-01-01x", "20250101", "x025-01-01"}) {
    FXString date;
    const Outcome outcome = readDate("--date", text, date);
    EXPECT_EQ(outcome.status, Outcome::WRONG_CALL) << text;
    EXPECT_EQ(outcome.sentence.find("--date: "), 0) << text;
  }
}

TEST(ArgumentText, readsNumbersWithBlanksAndAComma) {
  FXString decimal;
  EXPECT_TRUE(readDecimal("--price", "1 234,50", decimal).succeeded());
  EXPECT_STREQ(decimal.text(), "1234.5");
  const Outcome outcome = readDecimal("--price", "olcsó", decimal);
  EXPECT_EQ(outcome.status, Outcome::WRONG_CALL);
  EXPECT_EQ(outcome.sentence.find("--price: "), 0);
}

}  // namespace
}  // namespace Quillane::Commands
