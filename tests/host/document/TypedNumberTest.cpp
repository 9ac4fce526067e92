#include "host/document/TypedNumber.h"

#include <gtest/gtest.h>

#include <string>

using namespace FX;

namespace Quillane::Host {
namespace {

TEST(TypedNumber, isReadAsPeopleTypeIt) {
  const std::pair<const char*, const char*> cases[] = {
      {"0", "0"},
      {"5", "5"},
      {"1 234,5", "1234.5"},
      {"1 234.5", "1234.5"},
      {"1234,50", "1234.5"},
      {"1 990,00", "1990"},
      {"1\xC2\xA0"
       "234\xE2\x80\xAF"
       "567,8",
       "1234567.8"},
      {" 12 ", "12"},
      {"\xC2\xA0"
       "12,5 ",
       "12.5"},
      {",5", "0.5"},
      {"5,", "5"},
      {"-3", "-3"},
      {"- 3,25", "-3.25"},
      {"+3", "3"},
      {"-0", "0"},
      {"-0,00", "0"},
      {"007", "7"},
      {"000,100", "0.1"},
      {"0,0001", "0.0001"},
      {"10", "10"},
      {"1 000 000", "1000000"},
      {"123456789012345", "123456789012345"},
      {"0000123456789012345,000", "123456789012345"},
      {"1234567890,12345", "1234567890.12345"},
  };
  for (const auto& [typed, expected] : cases) {
    SCOPED_TRACE(typed);
    FXString number;
    FXString error;
    EXPECT_TRUE(parseTypedNumber(typed, number, error));
    EXPECT_EQ(number, expected);
    EXPECT_EQ(error, "");
  }
}

TEST(TypedNumber, refusesWhatIsNone) {
  for (const char* typed :
       {"",        " ",   "-",  "+",   ",",    ".",     "-,",   "abc", "1a",   "a1",   "1,2,3",        "1.234,5",
        "1,234.5", "--1", "1-", "1e5", "0x10", "1,5 5", "1, 5", "1\t", "1\n2", "\xC2", "\xEF\xBC\x91", "%d",
        "½",       "−1"}) {
    SCOPED_TRACE(typed);
    FXString number = "as before";
    FXString error;
    EXPECT_FALSE(parseTypedNumber(typed, number, error));
    EXPECT_EQ(number, "as before");
    EXPECT_EQ(error, FXString("Ez nem szám: „") + typed + "”.");
  }
}

TEST(TypedNumber, refusesMoreDigitsThanACalculationHolds) {
  for (const char* typed : {"1234567890123456", "1234567890,123456", "0,0000000000000001"}) {
    FXString number;
    FXString error;
    EXPECT_FALSE(parseTypedNumber(typed, number, error));
    EXPECT_EQ(error, FXString("Túl sok számjegy: „") + typed + "”. Legfeljebb 15 lehet.");
  }
}

TEST(TypedNumber, refusesATextThatGoesOnBehindANul) {
  FXString number;
  FXString error;
  EXPECT_FALSE(parseTypedNumber(FXString("1\0002", 3), number, error));
}

}  // namespace
}  // namespace Quillane::Host
