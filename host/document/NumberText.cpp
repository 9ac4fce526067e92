// Stored numbers as people read them, and what the items of a document come to.
//
// The sum is reckoned in decimals of 64 bits. A product or a sum that may not fit is not reckoned at all, and there is
// no sum from then on: no number is better than a wrong one. Amounts that occur have room to spare.
#include "host/document/NumberText.h"

#include <algorithm>
#include <string>

#include "host/document/ExactNumber.h"
#include "host/document/TypedNumber.h"

using namespace FX;

namespace Quillane::Host {

using FXExt::FXDecimal;

namespace {

constexpr char kGroupBlank[] = "\xC2\xA0";  // no-break
constexpr std::size_t kGroupDigits = 3;
constexpr int kShownDecimals = 2;

/// What rounding adds to a number before it cuts the decimals off that are not shown.
const FXDecimal kHalf(5, -kShownDecimals - 1, 4);

bool canBeRounded(const FXDecimal& number) {
  return countDecimals(number) <= kShownDecimals || isSumExact(number, kHalf);
}

bool areDigits(const std::string& text) {
  return !text.empty() && text.find_first_not_of("0123456789") == std::string::npos;
}

std::string grouped(const std::string& digits) {
  std::string result;
  for (std::size_t i = 0; i < digits.size(); ++i) {
    if (i > 0 && (digits.size() - i) % kGroupDigits == 0) result += kGroupBlank;
    result += digits[i];
  }
  return result;
}

/// The number in plain notation; a sum has more digits than can be typed and is in plain notation already.
std::string toPlain(const FXString& stored) {
  FXString number;
  FXString error;
  return parseTypedNumber(stored, number, error) ? number.text() : stored.text();
}

}  // namespace

FXString displayNumber(const FXString& stored) {
  const std::string plain = toPlain(stored);
  const std::size_t sign = plain.rfind('-', 0) == 0 ? 1 : 0;
  const std::size_t point = std::min(plain.find('.'), plain.size());
  const std::string whole = plain.substr(sign, point - sign);
  const std::string decimals = point < plain.size() ? plain.substr(point + 1) : "0";
  if (!areDigits(whole) || !areDigits(decimals)) return stored;
  std::string shown = plain.substr(0, sign) + grouped(whole);
  if (point < plain.size()) shown += ',' + decimals;
  return shown.c_str();
}

void ValueSum::add(const FXString& quantity, const FXString& price) {
  const FXDecimal count = readStoredNumber(quantity);
  const FXDecimal each = readStoredNumber(price);
  exact = exact && isProductExact(count, each);
  if (!exact) return;
  const FXDecimal value = count * each;
  exact = isSumExact(sum, value);
  if (!exact) return;
  sum += value;
  exact = canBeRounded(sum);
}

FXString ValueSum::getText(int sign) const {
  if (!exact) return FXString();
  const FXDecimal rounded = countDecimals(sum) > kShownDecimals ? sum.round(kShownDecimals) : sum;
  return (rounded * static_cast<long long>(sign)).toString();
}

FXString getItemValue(const FXString& quantity, const FXString& price) {
  ValueSum value;
  value.add(quantity, price);
  return value.getText();
}

}  // namespace Quillane::Host
