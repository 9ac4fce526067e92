#include "host/document/NumberText.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace FX;

namespace Quillane::Host {
namespace {

/// text with "_" for every no-break blank.
std::string visible(const FXString& text) {
  FXString result = text;
  return result.substitute("\xC2\xA0", "_").text();
}

TEST(NumberText, isShownWithACommaAndInGroups) {
  const std::pair<const char*, const char*> cases[] = {
      {"0", "0"},
      {"5", "5"},
      {"999", "999"},
      {"1000", "1_000"},
      {"1234.5", "1_234,5"},
      {"-1234.5", "-1_234,5"},
      {"-100", "-100"},
      {"0.0001", "0,0001"},
      {"1234567.89", "1_234_567,89"},
      {"123456789012345", "123_456_789_012_345"},
      {"123456789012345678", "123_456_789_012_345_678"},
      {"-1234567890123456.75", "-1_234_567_890_123_456,75"},
      {"1 234,50", "1_234,5"},
  };
  for (const auto& [stored, shown] : cases) EXPECT_EQ(visible(displayNumber(stored)), shown) << stored;
}

TEST(NumberText, isShownAsItIsWhenItSaysNoNumber) {
  for (const char* stored : {"", "sok", "1e5", "-", ".", "1.2.3", "12 db", "--1", "1234567890123456789x"})
    EXPECT_EQ(visible(displayNumber(stored)), stored);
}

struct Product {
  const char* quantity;
  const char* price;
  const char* value;
};

class ItemValue : public testing::TestWithParam<Product> {};

TEST_P(ItemValue, isQuantityTimesPrice) {
  EXPECT_STREQ(getItemValue(GetParam().quantity, GetParam().price).text(), GetParam().value);
}

INSTANTIATE_TEST_SUITE_P(
    NumberText, ItemValue,
    testing::Values(Product{"3", "289900", "869700"}, Product{"12.5", "689.5", "8618.75"},
                    Product{"0.1", "0.2", "0.02"}, Product{"0", "100", "0"}, Product{"-2", "4250", "-8500"},
                    Product{"1000000", "1000000", "1000000000000"},
                    // Half of the last decimal goes away from zero.
                    Product{"1", "0.005", "0.01"}, Product{"1", "0.0049", "0"}, Product{"-1", "0.005", "-0.01"},
                    Product{"1", "1.995", "2"}, Product{"0.333", "0.333", "0.11"},
                    // As people write them into another program.
                    Product{"1 000", "2,5", "2500"},
                    // No numbers.
                    Product{"", "100", "0"}, Product{"sok", "100", "0"}, Product{"3", "", "0"},
                    // As many digits as fit, and one more.
                    Product{"999999999", "999999999", "999999998000000001"}, Product{"9999999999", "999999999", ""},
                    Product{"123456789012345", "123456789012345", ""},
                    // Rounding needs room.
                    Product{"999999999", "999999.999", ""}, Product{"99999999", "999999.999", "99999998900000"},
                    Product{"99999999.9", "99999999.9", "9999999980000000.01"}));

struct Addition {
  std::vector<std::pair<const char*, const char*>> items;
  const char* sum;
};

class ItemSum : public testing::TestWithParam<Addition> {};

TEST_P(ItemSum, isExactOrNone) {
  ValueSum sum;
  for (const auto& [quantity, price] : GetParam().items) sum.add(quantity, price);
  EXPECT_STREQ(sum.getText().text(), GetParam().sum);
  EXPECT_EQ(sum.isExact(), *GetParam().sum != '\0');
}

INSTANTIATE_TEST_SUITE_P(
    NumberText, ItemSum,
    testing::Values(Addition{{}, "0"}, Addition{{{"1", "0.1"}, {"1", "0.2"}}, "0.3"},
                    // Rounded once, at the end.
                    Addition{{{"1", "0.004"}, {"1", "0.004"}}, "0.01"}, Addition{{{"3", "100"}, {"-3", "100"}}, "0"},
                    Addition{{{"1", "999999999999999"}, {"0.001", "0.001"}}, ""},
                    Addition{{{"999999999", "999999999"}, {"999999999", "999999999"}}, "1999999996000000002"},
                    Addition{{{"999999999", "999999999"}, {"999999999", "999999999"}, {"1", "1"}}, ""},
                    // The decimals that are gone are reckoned with all the same.
                    Addition{{{"1", "0.000000000001"}, {"1", "0.999999999999"}, {"1", "10000000"}}, ""},
                    // What comes after does not make it right again.
                    Addition{{{"9999999999", "999999999"}, {"1", "1"}}, ""}));

TEST(NumberText, hasTheSignOfTheDocument) {
  ValueSum sum;
  sum.add("3", "4250.5");
  EXPECT_EQ(sum.getText(-1), "-12751.5");
  EXPECT_EQ(ValueSum().getText(-1), "0");
}

}  // namespace
}  // namespace Quillane::Host
