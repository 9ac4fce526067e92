#include "host/document/IssueDate.h"

#include <gtest/gtest.h>

#include <ctime>

using namespace FX;

namespace Quillane::Host {
namespace {

FXString readClock() {
  char today[16];
  const std::time_t now = std::time(nullptr);
  std::strftime(today, sizeof(today), "%Y-%m-%d", std::localtime(&now));
  return today;
}

TEST(IssueDate, isTodayInTheFormInWhichItIsStored) {
  const FXString before = readClock();
  const FXString today = todayAsIssueDate();
  EXPECT_TRUE(today == before || today == readClock()) << today.text();  // midnight may pass in between
}

TEST(IssueDate, isShownWithPoints) {
  EXPECT_EQ(displayDate("2025-03-11"), "2025.03.11.");
  for (const char* stored : {"", "tegnap", "2025.03.11", "2025-3-11", "2025-03-11x", "2025-02-30"})
    EXPECT_EQ(displayDate(stored), stored);
}

TEST(IssueDate, isReadAsPeopleTypeIt) {
  for (const char* typed :
       {"2025.03.11", "2025.03.11.", "2025-03-11", "2025. 3. 11.", "2025.3.11", "2025/03/11", "  2025.03.11  "}) {
    FXString stored;
    FXString error;
    EXPECT_TRUE(parseIssueDate(typed, stored, error)) << typed;
    EXPECT_EQ(stored, "2025-03-11") << typed;
  }
}

TEST(IssueDate, mayBeEmpty) {
  FXString stored = "2025-03-11";
  FXString error;
  EXPECT_TRUE(parseIssueDate("  ", stored, error));
  EXPECT_EQ(stored, "");
}

TEST(IssueDate, isRefusedWhenThereIsNoSuchDay) {
  for (const char* typed : {"2025.02.29", "2025.02.30", "2025.04.31", "2025.13.01", "2025.00.10", "2025.01.00",
                            "0000.01.01", "25.03.11", "2025.03", "2025.03.11.12", "20250311", "ma"}) {
    FXString stored = "as before";
    FXString error;
    EXPECT_FALSE(parseIssueDate(typed, stored, error)) << typed;
    EXPECT_EQ(stored, "as before");
    EXPECT_GE(error.find(typed), 0) << error.text();
  }
}

TEST(IssueDate, knowsLeapYears) {
  EXPECT_TRUE(isCalendarDay(2024, 2, 29));
  EXPECT_TRUE(isCalendarDay(2000, 2, 29));
  EXPECT_FALSE(isCalendarDay(1900, 2, 29));
  EXPECT_FALSE(isCalendarDay(2025, 2, 29));
  EXPECT_TRUE(isCalendarDay(2025, 12, 31));
}

}  // namespace
}  // namespace Quillane::Host
