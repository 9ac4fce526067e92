// What keeps sums and products of stored numbers from wrapping around.
#include "host/document/ExactNumber.h"

#include <algorithm>

#include "host/document/TypedNumber.h"

using namespace FX;

namespace Quillane::Host {

using FXExt::FXDecimal;

namespace {

int countDigits(long long number) {
  int digits = 0;
  for (; number != 0; number /= 10) ++digits;
  return digits;
}

/// A sum is reckoned with as many decimals as either number was ever meant to have, also when they are zeros by now.
int countReckonedDecimals(const FXDecimal& number) {
  return std::max(countDecimals(number), static_cast<int>(number.precision));
}

}  // namespace

FXDecimal readStoredNumber(const FXString& stored) {
  FXString number;
  FXString error;
  return FXDecimal(parseTypedNumber(stored, number, error) ? number : "0", 0);
}

int countDecimals(const FXDecimal& number) { return std::max(0, -number.exponent); }

int countWholeDigits(const FXDecimal& number) { return std::max(0, countDigits(number.value) + number.exponent); }

bool isSumExact(const FXDecimal& a, const FXDecimal& b) {
  return std::max(countWholeDigits(a), countWholeDigits(b)) +
             std::max(countReckonedDecimals(a), countReckonedDecimals(b)) <=
         kExactDigits;
}

bool isProductExact(const FXDecimal& a, const FXDecimal& b) {
  return countDigits(a.value) + countDigits(b.value) <= kExactDigits;
}

}  // namespace Quillane::Host
