// The decimal: reading, printing, arithmetic, rounding, comparing, and what it does at and behind the ends of its
// range.
#include "fxext/FXDecimal.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <cmath>
#include <cstddef>
#include <random>
#include <string>
#include <type_traits>
#include <vector>

using namespace FX;
using FXExt::EXPS;
using FXExt::FXDecimal;

namespace {

__extension__ typedef __int128 Wide;

static_assert(std::is_trivially_copyable_v<FXDecimal>, "copied member-wise, without a destructor of its own");
static_assert(!std::is_polymorphic_v<FXDecimal>);
static_assert(std::is_standard_layout_v<FXDecimal> && sizeof(FXDecimal) == 16);
static_assert(offsetof(FXDecimal, value) == 0 && offsetof(FXDecimal, exponent) == 8 &&
              offsetof(FXDecimal, precision) == 9 && offsetof(FXDecimal, unset) == 10);

// An integer argument of any width takes the integer overload.
static_assert(std::is_same_v<decltype(FXDecimal() - 1), FXDecimal>);
static_assert(std::is_same_v<decltype(FXDecimal() == 15u), bool>);

FXDecimal decimal(const char* text, char precision = 2) { return FXDecimal(FXString(text), precision); }

// A number exactly as given, not normalized.
FXDecimal raw(long long value, int exponent, int precision) {
  FXDecimal number;
  number.value = value;
  number.exponent = static_cast<signed char>(exponent);
  number.precision = static_cast<signed char>(precision);
  number.unset = 0;
  return number;
}

std::string print(const FXDecimal& number) { return number.toString().text(); }

struct Parts {
  long long value;
  int exponent;
  int precision;
};

bool operator==(const Parts& a, const Parts& b) {
  return a.value == b.value && a.exponent == b.exponent && a.precision == b.precision;
}

std::ostream& operator<<(std::ostream& out, const Parts& parts) {
  return out << parts.value << " × 10^" << parts.exponent << ", precision " << parts.precision;
}

Parts parts(const FXDecimal& number) { return {number.value, number.exponent, number.precision}; }

TEST(FXDecimal, tableHoldsThePowersOfTen) {
  static_assert(std::extent_v<decltype(EXPS)> == 16);
  Wide power = 1;
  for (const long long entry : EXPS) {
    EXPECT_EQ(entry, static_cast<long long>(power));
    power *= 10;
  }
}

// --- construction and copies

TEST(FXDecimal, isZeroWithPrecisionTwoAndUnsetByDefault) {
  const FXDecimal number;
  EXPECT_EQ(parts(number), (Parts{0, 0, 2}));
  EXPECT_EQ(number.unset, 1);
  EXPECT_EQ(print(number), "0");
}

TEST(FXDecimal, isSetWhenBuiltFromAnything) {
  EXPECT_EQ(parts(FXDecimal(0, 0, 4)), (Parts{0, 0, 4}));
  EXPECT_EQ(FXDecimal(0, 0, 4).unset, 0);
  EXPECT_EQ(decimal("").unset, 0);
  EXPECT_EQ(parts(decimal("", 4)), (Parts{0, 0, 4}));
}

TEST(FXDecimal, isNormalizedWhenBuiltFromItsParts) {
  EXPECT_EQ(parts(FXDecimal(1200, 0, 2)), (Parts{12, 2, 2}));
  EXPECT_EQ(parts(FXDecimal(1250, -2, 0)), (Parts{125, -1, 1}));
  EXPECT_EQ(parts(FXDecimal(0, -3, 2)), (Parts{0, 0, 2}));
}

TEST(FXDecimal, carriesTheUnsetFlagThroughCopiesAndOperations) {
  const FXDecimal unset;
  FXDecimal copy(unset);
  EXPECT_EQ(copy.unset, 1);
  copy += decimal("3");
  copy = 7;
  copy = FXString("1");
  EXPECT_EQ(copy.unset, 1);
  EXPECT_EQ((unset + decimal("1.5")).unset, 1);
  EXPECT_EQ((unset * 3).unset, 1);
  EXPECT_EQ(unset.round(1).unset, 1);

  FXDecimal assigned = decimal("1");
  assigned = unset;
  EXPECT_EQ(assigned.unset, 1);
  EXPECT_EQ((decimal("1") + unset).unset, 0);
}

// --- reading and printing

struct ReadingCase {
  const char* text;
  char precision;
  Parts parts;
  const char* printed;
};

const ReadingCase kReadingCases[] = {{"", 2, {0, 0, 2}, "0"},
                                     {"0", 2, {0, 0, 2}, "0"},
                                     {"0.00", 2, {0, 0, 2}, "0"},
                                     {"-0", 2, {0, 0, 2}, "0"},
                                     {"5", 4, {5, 0, 4}, "5"},
                                     {"12.50", 2, {125, -1, 2}, "12.5"},
                                     {"-0.05", 2, {-5, -2, 2}, "-0.05"},
                                     {"1200", 2, {12, 2, 2}, "1200"},
                                     {"0.5", 2, {5, -1, 2}, "0.5"},
                                     {".5", 2, {5, -1, 2}, "0.5"},
                                     {"5.", 2, {5, 0, 2}, "5"},
                                     {".", 2, {0, 0, 2}, "0"},
                                     {"007", 2, {7, 0, 2}, "7"},
                                     {"0.005", 2, {5, -3, 3}, "0.005"},
                                     {"1.23456", 4, {123456, -5, 5}, "1.23456"},
                                     {"1 000", 2, {1, 3, 2}, "1000"},
                                     {" 12 . 5 ", 2, {125, -3, 3}, "0.125"},
                                     {"1 234 567.89", 4, {123456789, -2, 4}, "1234567.89"},
                                     {"-5", 2, {-5, 0, 2}, "-5"},
                                     {"5-", 2, {5, 0, 2}, "5"},
                                     {"--5", 2, {5, 0, 2}, "5"},
                                     {"---5", 2, {-5, 0, 2}, "-5"},
                                     {"-", 2, {0, 0, 2}, "0"},
                                     {"+5", 2, {0, 0, 2}, "0"},
                                     {"abc", 2, {0, 0, 2}, "0"},
                                     {"1.5x", 2, {15, -2, 2}, "0.15"},
                                     {"0.3000", 4, {3, -1, 4}, "0.3"},
                                     {"100.001", 4, {100001, -3, 4}, "100.001"},
                                     {"123456789012345678", 2, {123456789012345678, 0, 2}, "123456789012345678"}};

TEST(FXDecimal, readsTextsAndPrintsThem) {
  for (const ReadingCase& row : kReadingCases) {
    const FXDecimal number = decimal(row.text, row.precision);
    EXPECT_EQ(parts(number), row.parts) << row.text;
    EXPECT_EQ(print(number), row.printed);
  }
}

TEST(FXDecimal, keepsOnlyTheRightPartNegatedByAMinusInsideTheText) { EXPECT_EQ(print(decimal("1-2")), "8"); }

TEST(FXDecimal, keepsThePlacesOfDigitsThatAnotherCharacterDiscards) {
  EXPECT_EQ(print(decimal("12a34")), "1200");
  EXPECT_EQ(print(decimal("1,5")), "10");
  EXPECT_EQ(print(decimal("1,000.25")), "1000");
}

TEST(FXDecimal, keepsAllDigitsOfATextWithSeveralDotsAndCountsFromTheLeftmost) {
  // The second dot is one of the three characters to the right of the first.
  EXPECT_EQ(parts(decimal("1.2.3")), (Parts{123, -3, 3}));
}

TEST(FXDecimal, takesBytesAbove127AsForeignCharacters) {
  EXPECT_EQ(print(decimal("4é2")), "40");
  EXPECT_EQ(print(decimal("4\3772")), "40");
  EXPECT_EQ(print(decimal("7\302\240000")), "7000") << "a no-break space is no blank, but discards nothing but zeros";
}

TEST(FXDecimal, takesANulCharacterInsideTheTextAsForeign) {
  EXPECT_EQ(print(FXDecimal(FXString("4\0002", 3), 2)), "40");
}

TEST(FXDecimal, countsEveryCharacterRightOfTheDotAsADecimal) { EXPECT_EQ(parts(decimal("1.5 ")), (Parts{15, -2, 2})); }

TEST(FXDecimal, parsesWithoutNormalizing) {
  FXDecimal number;
  number.parseString("12.50");
  EXPECT_EQ(parts(number), (Parts{1250, -2, 2}));
  number.parseString("");
  EXPECT_EQ(parts(number), (Parts{1250, -2, 2}));
}

struct PrintingCase {
  FXDecimal number;
  const char* printed;
};

const PrintingCase kPrintingCases[] = {{raw(1250, -2, 2), "12.50"},
                                       {raw(-1250, -2, 2), "-12.50"},
                                       {raw(0, -2, 2), "0.00"},
                                       {raw(0, -1, 2), "0.0"},
                                       {raw(0, 5, 2), "0"},
                                       {raw(5, -1, 2), "0.5"},
                                       {raw(5, -2, 2), "0.05"},
                                       {raw(-5, -3, 2), "-0.005"},
                                       {raw(12, -2, 2), "0.12"},
                                       {raw(123, -2, 2), "1.23"},
                                       {raw(12, 2, 2), "1200"},
                                       {raw(-12, 15, 2), "-12000000000000000"},
                                       {raw(LLONG_MAX, 0, 2), "9223372036854775807"},
                                       {raw(LLONG_MIN, 0, 2), "-9223372036854775808"},
                                       {raw(LLONG_MIN, -4, 2), "-922337203685477.5808"},
                                       {raw(LLONG_MIN, -19, 2), "-0.9223372036854775808"},
                                       {raw(LLONG_MIN, -20, 2), "-0.09223372036854775808"}};

TEST(FXDecimal, printsExactlyTheDecimalsOfItsExponent) {
  for (const PrintingCase& row : kPrintingCases) EXPECT_EQ(print(row.number), row.printed);
}

TEST(FXDecimal, printsTheLongestTextThatAnExponentCanAskFor) {
  EXPECT_EQ(print(raw(7, -128, 2)), "0." + std::string(127, '0') + "7");
  EXPECT_EQ(print(raw(LLONG_MIN, -128, 2)), "-0." + std::string(109, '0') + "9223372036854775808");
}

// --- conversions

TEST(FXDecimal, convertsToIntegersAndFloatingPoint) {
  struct Case {
    FXDecimal number;
    long long integer;
    double real;
  };
  const Case cases[] = {{raw(0, 0, 2), 0, 0.0},
                        {raw(125, -1, 2), 12, 12.5},
                        {raw(-125, -1, 2), -12, -12.5},
                        {raw(-9, -1, 2), 0, -0.9},
                        {raw(12, 2, 2), 1200, 1200.0},
                        {raw(3, 15, 2), 3000000000000000, 3e15},
                        {raw(17, 0, 2), 17, 17.0},
                        {raw(1, -15, 2), 0, 1e-15},
                        {raw(LLONG_MIN, 0, 2), LLONG_MIN, -9223372036854775808.0}};
  for (const Case& row : cases) {
    EXPECT_EQ(row.number.toLong(), row.integer) << print(row.number);
    EXPECT_EQ(row.number.toDouble(), row.real) << print(row.number);
  }
}

TEST(FXDecimal, padsToTheSmallerExponentAndNeverTruncates) {
  EXPECT_EQ(raw(15, -1, 2).getPaddedLong(-3), 1500);
  EXPECT_EQ(raw(15, -1, 2).getPaddedLong(-1), 15);
  EXPECT_EQ(raw(15, -1, 2).getPaddedLong(0), 15);
  EXPECT_EQ(raw(12, 2, 2).getPaddedLong(0), 1200);
  EXPECT_EQ(raw(12, 2, 2).getPaddedLong(5), 12);
}

TEST(FXDecimal, keepsAnsweringOneOrFifteenWhenAskedForItsDigits) {
  struct Case {
    long long value;
    int digits;
  };
  const Case cases[] = {{0, 15},        {1, 15}, {8, 15},    {-8, 15},    {9, 1},         {-9, 1},
                        {10, 1},        {99, 1}, {12345, 1}, {-12345, 1}, {LLONG_MAX, 1}, {LLONG_MIN + 1, 1},
                        {LLONG_MIN, 15}};
  for (const Case& row : cases) EXPECT_EQ(raw(row.value, 0, 2).getValueDigits(), row.digits) << row.value;
}

// --- normalizing, precision, rounding

TEST(FXDecimal, normalizes) {
  struct Case {
    FXDecimal before;
    Parts after;
  };
  const Case cases[] = {{raw(0, -4, 3), {0, 0, 3}},
                        {raw(0, 9, 3), {0, 0, 3}},
                        {raw(7, 0, 2), {7, 0, 2}},
                        {raw(10, 0, 2), {1, 1, 2}},
                        {raw(-1200, 0, 2), {-12, 2, 2}},
                        {raw(1010, -2, 2), {101, -1, 2}},
                        {raw(10001, -4, 2), {10001, -4, 4}},
                        {raw(1000000000000000, 0, 2), {1, 15, 2}},
                        {raw(1000000000000000000, 0, 2), {1, 18, 2}},
                        {raw(-9000000000000000000, -18, 2), {-9, 0, 2}},
                        {raw(LLONG_MIN, 0, 2), {LLONG_MIN, 0, 2}},
                        {raw(5, -3, -1), {5, -3, 3}}};
  for (const Case& row : cases) {
    FXDecimal number = row.before;
    number.normalize();
    EXPECT_EQ(parts(number), row.after);
    number.normalize();
    EXPECT_EQ(parts(number), row.after) << "a second time";
  }
}

TEST(FXDecimal, forcesItsPrecisionByTruncation) {
  struct Case {
    FXDecimal before;
    Parts after;
  };
  const Case cases[] = {{raw(12345, -3, 2), {1234, -2, 2}},  {raw(-12349, -3, 2), {-1234, -2, 2}},
                        {raw(12345, -3, 0), {12, 0, 0}},     {raw(12345, -3, 3), {12345, -3, 3}},
                        {raw(12345, -3, 4), {12345, -3, 4}}, {raw(12, 2, 2), {12, 2, 2}},
                        {raw(12345, 0, -2), {123, 2, -2}},   {raw(LLONG_MIN, -1, 0), {-922337203685477580, 0, 0}}};
  for (const Case& row : cases) {
    FXDecimal number = row.before;
    number.forcePrecision();
    EXPECT_EQ(parts(number), row.after);
  }
}

TEST(FXDecimal, appliesItsPrecisionAndExtraDecimals) {
  struct Case {
    const char* text;
    char precision;
    int extra;
    Parts after;
    const char* printed;
  };
  const Case cases[] = {{"12.50", 2, 0, {1250, -2, 2}, "12.50"},
                        {"1.5", 2, 0, {150, -2, 2}, "1.50"},
                        {"1200", 2, 0, {120000, -2, 2}, "1200.00"},
                        {"1.5", 2, 3, {150000, -5, 2}, "1.50000"},
                        {"0", 2, 0, {0, -2, 2}, "0.00"},
                        {"7", 0, 0, {7, 0, 0}, "7"},
                        {"-0.25", 4, 0, {-2500, -4, 4}, "-0.2500"},
                        {"1.234", 2, 0, {1234, -3, 3}, "1.234"}};
  for (const Case& row : cases) {
    FXDecimal number = decimal(row.text, row.precision);
    number.applyPrecision(row.extra);
    EXPECT_EQ(parts(number), row.after) << row.text;
    EXPECT_EQ(print(number), row.printed) << row.text;
  }
}

struct RoundingCase {
  const char* text;
  char precision;
  char places;
  const char* printed;
};

const RoundingCase kRoundingCases[] = {{"2.675", 2, 2, "2.68"},     {"2.674", 2, 2, "2.67"},
                                       {"2.5", 2, 0, "3"},          {"-2.5", 2, 0, "-3"},
                                       {"2.4999", 4, 0, "2"},       {"-1.25", 2, 1, "-1.3"},
                                       {"-1.24", 2, 1, "-1.2"},     {"0.5", 2, 0, "1"},
                                       {"0.4", 2, 0, "0"},          {"-0.4", 2, 0, "0"},
                                       {"9.999", 2, 2, "10"},       {"1.00004", 4, 4, "1"},
                                       {"1.00005", 4, 4, "1.0001"}, {"0.000000005", 4, 8, "0.00000001"},
                                       {"12", 2, 4, "12"},          {"1249", 2, -2, "1200"},
                                       {"1250", 2, -2, "1300"},     {"0", 2, 1, "0"}};

TEST(FXDecimal, roundsHalfAwayFromZero) {
  for (const RoundingCase& row : kRoundingCases) {
    const FXDecimal number = decimal(row.text, row.precision);
    const FXDecimal rounded = number.round(row.places);
    EXPECT_EQ(print(rounded), row.printed) << row.text;
    EXPECT_EQ(rounded.precision, row.places) << row.text;
    EXPECT_EQ(parts(number), parts(decimal(row.text, row.precision))) << "round changed its own number";
  }
}

TEST(FXDecimal, roundsInPlaceWithoutNormalizingAtTheEnd) {
  FXDecimal number = decimal("2.6049");
  number.applyRound(2);
  EXPECT_EQ(parts(number), (Parts{260, -2, 2}));
  EXPECT_EQ(print(number), "2.60");
  EXPECT_EQ(parts(decimal("2.6049").round(2)), (Parts{26, -1, 2}));
}

TEST(FXDecimal, onlySetsThePrecisionWhenRoundingZero) {
  FXDecimal number(0, 0, 4);
  number.applyRound(1);
  EXPECT_EQ(parts(number), (Parts{0, 0, 1}));
  number = raw(0, -2, 4);
  number.applyRound(3);
  EXPECT_EQ(parts(number), (Parts{0, -2, 3}));
}

// --- assignment

TEST(FXDecimal, keepsAccumulatingOnAssignmentOfText) {
  FXDecimal number = decimal("12.5");
  number = FXString("3");
  EXPECT_EQ(parts(number), (Parts{128, -1, 2}));  // 125 and 3, the exponent as it was
  number = FXString("10.00");
  EXPECT_EQ(parts(number), (Parts{1128, -2, 2}));
  number = FXString("-");
  EXPECT_EQ(parts(number), (Parts{-1128, -2, 2}));
  number = "x";
  EXPECT_EQ(parts(number), (Parts{0, -2, 2}));
}

TEST(FXDecimal, keepsTheExponentOnAssignmentOfAnInteger) {
  FXDecimal number = decimal("12.25");
  number = 7;
  EXPECT_EQ(parts(number), (Parts{7, -2, 2}));
  EXPECT_EQ(print(number), "0.07");
  number = 100;
  EXPECT_EQ(parts(number), (Parts{100, -2, 2})) << "not normalized";
}

TEST(FXDecimal, assignsAnotherNumberWithAllItsFields) {
  FXDecimal number = decimal("12.25");
  number = FXDecimal(3, 1, 4);
  EXPECT_EQ(parts(number), (Parts{3, 1, 4}));
}

// --- arithmetic

struct ArithmeticCase {
  const char* left;
  char operation;
  const char* right;
  const char* printed;
  int precision;
  char leftPrecision = 2;
  char rightPrecision = 2;
};

const ArithmeticCase kArithmeticCases[] = {{"1.25", '+', "2.5", "3.75", 2},
                                           {"1.25", '+', "-1.25", "0", 2},
                                           {"0.0001", '+', "1200", "1200.0001", 4, 4, 2},
                                           {"1200", '+', "0.0001", "1200.0001", 4, 2, 4},
                                           {"0", '+', "2.5", "2.5", 4, 4, 2},
                                           {"-1", '+', "0.999", "-0.001", 3},
                                           {"5", '-', "3", "2", 4, 4, 4},
                                           {"2.5", '-', "1.25", "1.25", 2},
                                           {"0", '-', "0.05", "-0.05", 2},
                                           {"1.5", '-', "1.5", "0", 2},
                                           {"1.5", '*', "2.5", "3.75", 2},
                                           {"1.25", '*', "1.25", "1.5625", 4},
                                           {"-0.5", '*', "0.2", "-0.1", 2},
                                           {"100", '*', "0.01", "1", 2},
                                           {"7", '*', "0", "0", 4, 2, 4},
                                           {"10", '/', "3", "3.33", 2},
                                           {"2", '/', "3", "0.66", 2},
                                           {"-2", '/', "3", "-0.66", 2},
                                           {"2", '/', "-3", "-0.66", 2},
                                           {"1", '/', "0.25", "4", 2},
                                           {"1.21", '/', "1.1", "1.1", 2},
                                           {"1", '/', "3", "0.3333", 4, 2, 4},
                                           {"0", '/', "3", "0", 2},
                                           // a divisor with a positive exponent gives that many decimals more
                                           {"1", '/', "300", "0.0033", 4},
                                           {"7", '/', "100", "0.07", 2}};

TEST(FXDecimal, givesTheExactResultAndTheLargerPrecision) {
  for (const ArithmeticCase& row : kArithmeticCases) {
    const FXDecimal left = decimal(row.left, row.leftPrecision);
    const FXDecimal right = decimal(row.right, row.rightPrecision);
    FXDecimal result;
    FXDecimal inPlace = left;
    FXDecimal* returned = &inPlace;
    switch (row.operation) {
      case '+':
        result = left + right;
        returned = &(inPlace += right);
        break;
      case '-':
        result = left - right;
        returned = &(inPlace -= right);
        break;
      case '*':
        result = left * right;
        returned = &(inPlace *= right);
        break;
      default:
        result = left / right;
        inPlace = result;
    }
    EXPECT_EQ(print(result), row.printed) << row.left << ' ' << row.operation << ' ' << row.right;
    EXPECT_EQ(result.precision, row.precision) << row.left << ' ' << row.operation << ' ' << row.right;
    EXPECT_EQ(parts(inPlace), parts(result)) << row.left << ' ' << row.operation << "= " << row.right;
    EXPECT_EQ(returned, &inPlace);
    EXPECT_EQ(parts(left), parts(decimal(row.left, row.leftPrecision))) << "the left operand changed";
  }
}

TEST(FXDecimal, addsNumbersThatHoldTrailingZeros) {
  for (const FXDecimal& one : {raw(1250, -2, 2), raw(125, -1, 2), raw(125000, -4, 4)}) {
    for (const FXDecimal& other : {raw(100, -2, 2), raw(1, 0, 2), raw(10000, -4, 4)}) {
      EXPECT_EQ(print(one + other), "13.5");
      EXPECT_EQ(print(one - other), "11.5");
      EXPECT_EQ((one + other).exponent, -1);
    }
  }
  EXPECT_EQ(print(raw(0, -2, 2) + raw(1200, 0, 4)), "1200");
  EXPECT_EQ((raw(0, -2, 2) + raw(1200, 0, 4)).exponent, 2);
}

TEST(FXDecimal, addsAndMultipliesItself) {
  FXDecimal number = decimal("1.5");
  const FXDecimal& same = number;
  number += same;
  EXPECT_EQ(print(number), "3");
  number *= same;
  EXPECT_EQ(print(number), "9");
  number -= same;
  EXPECT_EQ(print(number), "0");
  const FXDecimal quarter = decimal("0.25");
  EXPECT_EQ(print(quarter / quarter), "1");
}

TEST(FXDecimal, calculatesWithIntegers) {
  EXPECT_EQ(print(decimal("1.5") + 1), "2.5");
  EXPECT_EQ((decimal("1.5") + 1).precision, 4);
  EXPECT_EQ((decimal("1.5", 6) + 1).precision, 6);
  EXPECT_EQ(print(decimal("1.5") + -2), "-0.5");
  EXPECT_EQ(print(decimal("1200") + 1), "1201");
  EXPECT_EQ(print(decimal("1.5") * 4), "6");
  EXPECT_EQ(parts(decimal("1.25") * 3), (Parts{375, -2, 2}));
  EXPECT_EQ(print(decimal("7", 4) / 2), "3.5");
  EXPECT_EQ(print(decimal("10") / 3), "3.33");
  EXPECT_EQ(print(decimal("-10") / 3), "-3.33");
  EXPECT_EQ(print(decimal("1200") / 7), "171.42");
}

TEST(FXDecimal, keepsSubtractingAnIntegerFromTheRawValue) {
  EXPECT_EQ(print(decimal("1.5") - 1), "1.4");
  EXPECT_EQ((decimal("1.5") - 1).precision, 2);
  EXPECT_EQ(print(decimal("5") - 3), "2");
  EXPECT_EQ(print(decimal("1200") - 1), "1100");
}

TEST(FXDecimal, picksTheIntegerOperationsForEveryIntegerType) {
  const FXDecimal number = decimal("1.5");
  EXPECT_EQ(print(number - 1L), "1.4");
  EXPECT_EQ(print(number - 1u), "1.4");
  EXPECT_EQ(print(number - static_cast<short>(1)), "1.4");
  EXPECT_EQ(print(number - FXlong{1}), "1.4");
  EXPECT_TRUE(number == 15L);
  EXPECT_TRUE(number == static_cast<unsigned char>(15));
  FXDecimal assigned = number;
  assigned = 0;  // neither a null text nor a number of its own
  EXPECT_EQ(parts(assigned), (Parts{0, -1, 2}));
}

// --- comparison

struct ComparingCase {
  const char* left;
  const char* right;
  int order;  // the sign of left - right
};

const ComparingCase kComparingCases[] = {{"1.5", "1.50", 0},       {"1.5", "15", -1},       {"1200", "1200.0", 0},
                                         {"1200", "1199.9999", 1}, {"0", "0.0001", -1},     {"0", "-0.0001", 1},
                                         {"0", "0.00", 0},         {"-1", "1", -1},         {"-1.5", "-1.25", -1},
                                         {"100", "99", 1},         {"1000000", "0.0001", 1}};

TEST(FXDecimal, ordersByTheNumberWhateverThePrecision) {
  for (const ComparingCase& row : kComparingCases) {
    for (const char leftPrecision : {0, 2, 4}) {
      for (const char rightPrecision : {0, 2, 4}) {
        const FXDecimal left = decimal(row.left, leftPrecision);
        const FXDecimal right = decimal(row.right, rightPrecision);
        SCOPED_TRACE(std::string(row.left) + " and " + row.right);
        EXPECT_EQ(left == right, row.order == 0);
        EXPECT_EQ(left != right, row.order != 0);
        EXPECT_EQ(left < right, row.order < 0);
        EXPECT_EQ(left > right, row.order > 0);
        EXPECT_EQ(left <= right, row.order <= 0);
        EXPECT_EQ(left >= right, row.order >= 0);
        EXPECT_EQ(right<left, row.order> 0);
        EXPECT_EQ(right > left, row.order < 0);
      }
    }
  }
}

TEST(FXDecimal, comparesNumbersThatHoldTrailingZeros) {
  EXPECT_TRUE(raw(150, -2, 2) == raw(15, -1, 2));
  EXPECT_FALSE(raw(150, -2, 2) < raw(15, -1, 2));
  EXPECT_TRUE(raw(0, -2, 2) == raw(0, 0, 2));
}

TEST(FXDecimal, keepsComparingTheRawValueWithAnInteger) {
  EXPECT_TRUE(decimal("1.5") == 15);
  EXPECT_FALSE(decimal("1.5") == 1);
  EXPECT_FALSE(decimal("1.5") == FXDecimal(15, 0, 2));
  EXPECT_TRUE(decimal("1200") == 1200);
  EXPECT_FALSE(decimal("1200") == 12);
  EXPECT_TRUE(decimal("0") == 0);
  EXPECT_TRUE(decimal("-3") == -3);
}

// --- wrap-around and guards

TEST(FXDecimal, keepsWrappingAroundTheValue) {
  EXPECT_EQ(parts(decimal("9223372036854775808")), (Parts{LLONG_MIN, 0, 2}));
  EXPECT_EQ(parts(decimal("-9223372036854775808")), (Parts{LLONG_MIN, 0, 2}));
  EXPECT_EQ(parts(decimal("18446744073709551617")), (Parts{1, 0, 2}));
  EXPECT_EQ(parts(decimal(("1" + std::string(64, '0') + "7").c_str())), (Parts{7, 0, 2}));

  EXPECT_EQ(parts(FXDecimal(LLONG_MAX, 0, 0) + FXDecimal(1, 0, 0)), (Parts{LLONG_MIN, 0, 0}));
  EXPECT_EQ(parts(FXDecimal(LLONG_MIN, 0, 0) - FXDecimal(1, 0, 0)), (Parts{LLONG_MAX, 0, 0}));
  EXPECT_EQ(parts(FXDecimal(LLONG_MIN, 0, 0) - 1), (Parts{LLONG_MAX, 0, 0}));
  EXPECT_EQ(parts(FXDecimal(LLONG_MAX, 0, 0) - -1), (Parts{LLONG_MIN, 0, 0}));
  EXPECT_EQ(parts(FXDecimal(LLONG_MAX, 0, 0) * 2), (Parts{-2, 0, 0}));
  EXPECT_EQ(parts(FXDecimal(LLONG_MIN, 0, 0) * FXDecimal(-1, 0, 0)), (Parts{LLONG_MIN, 0, 0}));
  EXPECT_EQ(parts(FXDecimal(LLONG_MIN, 0, 0) * -1), (Parts{LLONG_MIN, 0, 0}));
  EXPECT_EQ(raw(LLONG_MAX, 1, 0).toLong(), -10);
  EXPECT_EQ(raw(LLONG_MAX, 1, 0).toDouble(), -10.0);
  EXPECT_EQ(print(raw(LLONG_MAX, 1, 0)), "-10");

  FXDecimal negated = FXDecimal(LLONG_MIN, 0, 0);
  negated.parseString("-");
  EXPECT_EQ(negated.value, LLONG_MIN);
}

TEST(FXDecimal, keepsWrappingAroundTheEightBitFields) {
  EXPECT_EQ(parts(FXDecimal(1, 100, 0) * FXDecimal(1, 100, 0)), (Parts{1, -56, 56}));
  EXPECT_EQ(parts(FXDecimal(10, 127, 0)), (Parts{1, -128, -128}));
  FXDecimal parsed;
  parsed.parseString(("." + std::string(200, '7')).c_str());
  EXPECT_EQ(parsed.exponent, 56) << "200 decimals";
}

TEST(FXDecimal, scalesBeyondTheTableAsIfItWentOn) {
  EXPECT_EQ(print(FXDecimal(1000000000000000000, 0, 2)), "1000000000000000000");
  EXPECT_EQ(print(FXDecimal(-9000000000000000000, 0, 2)), "-9000000000000000000");
  EXPECT_EQ(FXDecimal(10000000000000000, 0, 2).toLong(), 10000000000000000);
  EXPECT_EQ(FXDecimal(10000000000000000, 0, 2).toDouble(), 1e16);
  EXPECT_TRUE(FXDecimal(10000000000000000, 0, 2) > FXDecimal(1, 0, 2));
  EXPECT_EQ(raw(1, 0, 2).getPaddedLong(-18), 1000000000000000000);

  FXDecimal wide = decimal("1.5", 16);
  wide.applyPrecision(1);
  EXPECT_EQ(parts(wide), (Parts{150000000000000000, -17, 16}));
  EXPECT_EQ(print(wide), "1.50000000000000000");

  EXPECT_EQ(raw(1, 19, 2).toLong(), static_cast<long long>(10000000000000000000ull)) << "modulo 2^64";
  EXPECT_EQ(raw(1, 63, 2).toLong(), LLONG_MIN) << "modulo 2^64";
  EXPECT_EQ(raw(1, 64, 2).toLong(), 0);
  EXPECT_EQ(raw(3, 127, 2).toLong(), 0);
  EXPECT_EQ(print(raw(3, 127, 2)), "0");
}

TEST(FXDecimal, dividesByPowersBeyondTheTable) {
  EXPECT_EQ(raw(LLONG_MAX, -16, 2).toLong(), 922);
  EXPECT_EQ(raw(LLONG_MIN, -18, 2).toLong(), -9);
  EXPECT_EQ(raw(LLONG_MIN, -19, 2).toLong(), 0);
  EXPECT_EQ(raw(LLONG_MAX, -128, 2).toLong(), 0);
  EXPECT_DOUBLE_EQ(raw(5, -16, 2).toDouble(), 5e-16);
  EXPECT_DOUBLE_EQ(raw(-5, -128, 2).toDouble(), -5e-128);

  FXDecimal cut = decimal("1239.99", 2);
  cut.applyPrecision(-3);
  EXPECT_EQ(parts(cut), (Parts{123, 1, 2})) << "a negative power truncates";
  FXDecimal negative = decimal("-1239.99", 2);
  negative.applyPrecision(-3);
  EXPECT_EQ(parts(negative), (Parts{-123, 1, 2}));
  EXPECT_EQ(raw(7, 100, 2).getPaddedLong(-100), 0) << "200 is -56 in 8 bits";
}

TEST(FXDecimal, survivesAnyNumberOfExtraDecimals) {
  for (const int extra : {INT_MIN, INT_MIN + 1, -1000, -129, 127, 128, 256, INT_MAX - 1, INT_MAX}) {
    FXDecimal number = decimal("12.5");
    number.applyPrecision(extra);
    EXPECT_EQ(number.value, 0) << extra;
    EXPECT_EQ(number.exponent, static_cast<signed char>(-(2LL + extra))) << extra;
  }
}

TEST(FXDecimal, givesZeroWhenDividedByZero) {
  EXPECT_EQ(parts(decimal("7.5") / decimal("0", 4)), (Parts{0, 0, 4}));
  EXPECT_EQ(parts(decimal("7.5") / 0), (Parts{0, 0, 2}));
  EXPECT_EQ(parts(decimal("0") / decimal("0")), (Parts{0, 0, 2}));
  EXPECT_EQ(parts(decimal("7") / raw(0, -3, 2)), (Parts{0, 0, 2}));
}

TEST(FXDecimal, givesTheMostNegativeValueBackWhenDividedByMinusOne) {
  EXPECT_EQ(parts(FXDecimal(LLONG_MIN, 0, 0) / FXDecimal(-1, 0, 0)), (Parts{LLONG_MIN, 0, 0}));
  EXPECT_EQ(parts(FXDecimal(LLONG_MIN, 0, 0) / -1), (Parts{LLONG_MIN, 0, 0}));
  EXPECT_EQ(parts(FXDecimal(LLONG_MAX, 0, 0) / -1), (Parts{-LLONG_MAX, 0, 0}));
}

// Every operation on every pair of extreme numbers: nothing to compare with, but the sanitizers watch, and what is
// normalized must be so.
TEST(FXDecimal, survivesEveryOperationOnExtremeNumbers) {
  const long long values[] = {0, 1, -1, 5, -10, 1000000000000000000, LLONG_MAX, LLONG_MIN, LLONG_MIN + 1};
  const int bytes[] = {-128, -127, -19, -16, -15, -4, -1, 0, 1, 4, 15, 16, 64, 126, 127};
  std::vector<FXDecimal> numbers;
  for (const long long value : values)
    for (const int exponent : bytes)
      for (const int precision : {-128, -3, 0, 4, 127}) numbers.push_back(raw(value, exponent, precision));

  for (const FXDecimal& number : numbers) {
    EXPECT_LE(number.toString().length(), 132);
    EXPECT_TRUE(std::isfinite(number.toDouble()));
    EXPECT_TRUE(number.getValueDigits() == 1 || number.getValueDigits() == 15);
    for (const int byte : bytes) {
      const char places = static_cast<char>(byte);
      const FXDecimal rounded = number.round(places);
      EXPECT_TRUE(rounded.value == 0 || rounded.value % 10 != 0);
      FXDecimal changed = number;
      changed.applyPrecision(byte);
      changed.forcePrecision();
      changed.parseString("-9223372036854775809.5");
      EXPECT_TRUE(number.getPaddedLong(places) == number.value || number.exponent > byte);
    }
    for (const long long value : values) {
      for (const FXDecimal& result : {number + value, number - value, number * value, number / value})
        EXPECT_TRUE(result.value == 0 ? result.exponent == 0 : result.value % 10 != 0);
      EXPECT_EQ(number == value, number.getPaddedLong(0) == value);
    }
  }
  for (const FXDecimal& a : numbers) {
    for (const FXDecimal& b : numbers) {
      for (const FXDecimal& result : {a + b, a - b, a * b, a / b})
        ASSERT_TRUE(result.value == 0 ? result.exponent == 0 : result.value % 10 != 0);
      ASSERT_NE(a == b, a != b);
      ASSERT_LE((a < b) + (a > b) + (a == b), 1);
    }
  }
}

// --- random numbers against 128-bit arithmetic

struct RandomNumber {
  long long units;  // of 10^-decimals
  int decimals;

  Wide scaledTo(int wanted) const {
    Wide result = units;
    for (int i = decimals; i < wanted; ++i) result *= 10;
    return result;
  }

  // As a person writes it, with all its decimals.
  std::string text() const {
    std::string digits = std::to_string(units < 0 ? -units : units);
    if (decimals > 0) {
      if (static_cast<int>(digits.size()) <= decimals) digits.insert(0, decimals + 1 - digits.size(), '0');
      digits.insert(digits.size() - decimals, 1, '.');
    }
    return units < 0 ? "-" + digits : digits;
  }
};

// A number of 10^-decimals units as the shortest plain text.
std::string shortest(Wide units, int decimals) {
  while (decimals > 0 && units % 10 == 0) {
    units /= 10;
    --decimals;
  }
  return RandomNumber{static_cast<long long>(units), decimals}.text();
}

TEST(FXDecimal, agreesWithWideIntegersOnRandomNumbers) {
  std::mt19937_64 random(20130102);
  constexpr int kDecimals = 4;
  const auto draw = [&random] {
    const int bits = static_cast<int>(random() % 45);
    const long long units = static_cast<long long>(random() & ((1ull << bits) - 1));
    return RandomNumber{random() % 2 ? units : -units, static_cast<int>(random() % (kDecimals + 1))};
  };
  for (int i = 0; i < 50000; ++i) {
    const RandomNumber x = draw();
    const RandomNumber y = i % 7 == 0 ? x : draw();
    const FXDecimal a = decimal(x.text().c_str(), kDecimals);
    const FXDecimal b = decimal(y.text().c_str(), kDecimals);
    const Wide wideX = x.scaledTo(kDecimals);
    const Wide wideY = y.scaledTo(kDecimals);
    SCOPED_TRACE(x.text() + " and " + y.text());

    ASSERT_EQ(print(a), shortest(wideX, kDecimals));
    ASSERT_EQ(print(a + b), shortest(wideX + wideY, kDecimals));
    ASSERT_EQ(print(a - b), shortest(wideX - wideY, kDecimals));
    ASSERT_EQ(a == b, wideX == wideY);
    ASSERT_EQ(a < b, wideX < wideY);
    ASSERT_EQ(a > b, wideX > wideY);
    ASSERT_EQ(a <= b, wideX <= wideY);
    ASSERT_EQ(a >= b, wideX >= wideY);
    ASSERT_EQ(a.toLong(), static_cast<long long>(wideX / EXPS[kDecimals]));
    ASSERT_EQ(parts(decimal(print(a).c_str(), kDecimals)), parts(a)) << "printed and read again";

    FXDecimal padded = a;
    padded.applyPrecision(0);
    ASSERT_EQ(print(padded), (RandomNumber{static_cast<long long>(wideX), kDecimals}.text()));

    const Wide half = wideX < 0 ? -50 : 50;
    ASSERT_EQ(print(a.round(2)), shortest((wideX + half) / 100, 2)) << "rounded";
  }
}

TEST(FXDecimal, agreesWithWideIntegersOnRandomProductsAndQuotients) {
  std::mt19937_64 random(452);
  for (int i = 0; i < 50000; ++i) {
    const RandomNumber x{static_cast<long long>(random() % 2000000000) - 1000000000, static_cast<int>(random() % 4)};
    const RandomNumber y{static_cast<long long>(random() % 200000) - 100000, static_cast<int>(random() % 4)};
    const FXDecimal a = decimal(x.text().c_str());
    const FXDecimal b = decimal(y.text().c_str());
    SCOPED_TRACE(x.text() + " and " + y.text());
    ASSERT_EQ(print(a * b), shortest(Wide{x.units} * y.units, x.decimals + y.decimals));

    if (y.units == 0 || b.exponent > 0) continue;  // a positive exponent gives more decimals, tested by the table
    const int decimals = std::max(a.precision, b.precision);
    const Wide quotient = x.scaledTo(decimals + y.decimals + 3) / (Wide{y.units} * 1000);
    ASSERT_EQ(print(a / b), shortest(quotient, decimals));
  }
}

}  // namespace
