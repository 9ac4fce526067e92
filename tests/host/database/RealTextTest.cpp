#include "host/database/RealText.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

using Quillane::Database::kRealTextSize;
using Quillane::Database::realText;

namespace {

std::string textOf(double value) {
  char text[kRealTextSize];
  return realText(value, text);
}

struct RealCase {
  double value;
  std::string text;
};

void PrintTo(const RealCase& c, std::ostream* out) { *out << c.text; }

class RealText : public testing::TestWithParam<RealCase> {};

TEST_P(RealText, isPlain) { EXPECT_EQ(textOf(GetParam().value), GetParam().text); }

INSTANTIATE_TEST_SUITE_P(
    Values, RealText,
    testing::Values(RealCase{5.0, "5"}, RealCase{0.0, "0"}, RealCase{-0.0, "0"}, RealCase{0.1 + 0.2, "0.3"},
                    RealCase{0.3 - (0.1 + 0.2), "0"}, RealCase{-1.5, "-1.5"}, RealCase{2.25, "2.25"},
                    RealCase{1.0 / 3, "0.333333333"}, RealCase{2.0 / 3, "0.666666667"}, RealCase{100.0, "100"},
                    RealCase{1e9, "1000000000"}, RealCase{1e-9, "0.000000001"}, RealCase{4e-10, "0"},
                    RealCase{-4e-10, "0"}, RealCase{6e-10, "0.000000001"}, RealCase{1e-300, "0"},
                    RealCase{std::numeric_limits<double>::denorm_min(), "0"},
                    // Rounded once: by way of 15 digits it would end in 9 and a half, and become 0.12345679.
                    RealCase{0.1234567894999999994, "0.123456789"}, RealCase{999999.9999999999, "1000000"},
                    RealCase{123456789.123456789, "123456789.123457"}, RealCase{99999999999999.9, "99999999999999.9"},
                    RealCase{123456789012345.0, "123456789012345"}, RealCase{123456789012345.6, "123456789012346"},
                    RealCase{999999999999999.9, "1000000000000000"}, RealCase{1234567890123456.0, "1234567890123460"},
                    RealCase{-1e20, "-100000000000000000000"}));

TEST(RealTextLimits, hasNoExponentHoweverLargeTheNumber) {
  EXPECT_EQ(textOf(1e300), "1" + std::string(300, '0'));
  EXPECT_EQ(textOf(-std::numeric_limits<double>::max()), "-179769313486232" + std::string(294, '0'));
}

TEST(RealTextLimits, namesWhatIsNoNumber) {
  EXPECT_EQ(textOf(std::numeric_limits<double>::infinity()), "Inf");
  EXPECT_EQ(textOf(-std::numeric_limits<double>::infinity()), "-Inf");
  EXPECT_EQ(textOf(std::numeric_limits<double>::quiet_NaN()), "NaN");
}

}  // namespace
