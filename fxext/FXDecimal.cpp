// Fixed-point arithmetic on 64-bit integers.
#include "fxext/FXDecimal.h"

#include <algorithm>
#include <charconv>
#include <cmath>

using namespace FX;

namespace FXExt {

const long long EXPS[16] = {1,
                            10,
                            100,
                            1'000,
                            10'000,
                            100'000,
                            1'000'000,
                            10'000'000,
                            100'000'000,
                            1'000'000'000,
                            10'000'000'000,
                            100'000'000'000,
                            1'000'000'000'000,
                            10'000'000'000'000,
                            100'000'000'000'000,
                            1'000'000'000'000'000};

namespace {

using Bits = unsigned long long;

constexpr int kLastPower = 15;
constexpr int kLastFittingPower = 18;                              // 10^19 is greater than every 64-bit value
constexpr int kVanishingPower = 64;                                // 10^64 is a multiple of 2^64
constexpr int kMostDigits = 20;                                    // of an unsigned 64-bit integer
constexpr int kMostDecimals = 128;                                 // of an 8-bit exponent
constexpr int kLongestText = 1 + kMostDigits + 1 + kMostDecimals;  // sign, whole part, point, decimals

// On purpose: what does not fit wraps around. Unsigned arithmetic is defined to do so, signed is not.
constexpr long long wrapAdd(long long a, long long b) {
  return static_cast<long long>(static_cast<Bits>(a) + static_cast<Bits>(b));
}

constexpr long long wrapSubtract(long long a, long long b) {
  return static_cast<long long>(static_cast<Bits>(a) - static_cast<Bits>(b));
}

constexpr long long wrapMultiply(long long a, long long b) {
  return static_cast<long long>(static_cast<Bits>(a) * static_cast<Bits>(b));
}

constexpr long long wrapNegate(long long a) { return wrapSubtract(0, a); }

// The unsigned |a|, which is right for the most negative value too.
constexpr Bits magnitude(long long a) { return a < 0 ? Bits{0} - static_cast<Bits>(a) : static_cast<Bits>(a); }

constexpr long long guardedDivide(long long a, long long b) {
  if (b == 0) return 0;
  if (b == -1) return wrapNegate(a);  // the machine's division traps for the most negative value
  return a / b;
}

constexpr signed char wrapByte(long long a) { return static_cast<signed char>(a); }

// 10^power modulo 2^64, power being 0 or more.
long long powerOfTen(long long power) {
  if (power <= kLastPower) return EXPS[power];
  if (power >= kVanishingPower) return 0;
  long long result = EXPS[kLastPower];
  for (; power > kLastPower; --power) result = wrapMultiply(result, 10);
  return result;
}

}  // namespace

long long FXDecimal::scaleByAny(long long number, long long power) {
  if (power >= 0) return wrapMultiply(number, powerOfTen(power));
  return power < -kLastFittingPower ? 0 : number / powerOfTen(-power);
}

FXDecimal::FXDecimal() : value(0), exponent(0), precision(2), unset(1) {}

FXDecimal::FXDecimal(const FXString& text, char decimals)
    : value(0), exponent(0), precision(wrapByte(decimals)), unset(0) {
  parseString(text);
  normalize();
}

FXDecimal::FXDecimal(long long digits, char power, char decimals)
    : value(digits), exponent(wrapByte(power)), precision(wrapByte(decimals)), unset(0) {
  normalize();
}

long long FXDecimal::toLong() const { return scale(value, exponent); }

double FXDecimal::toDouble() const {
  if (exponent >= 0) return static_cast<double>(scale(value, exponent));
  const int decimals = -exponent;
  const long double divisor = decimals <= kLastPower ? static_cast<long double>(EXPS[decimals])
                                                     : std::pow(10.0L, static_cast<long double>(decimals));
  return static_cast<double>(static_cast<long double>(value) / divisor);
}

FXString FXDecimal::toString() const {
  char text[kLongestText];
  if (exponent >= 0) {
    const char* end = std::to_chars(text, text + sizeof(text), scale(value, exponent)).ptr;
    return FXString(text, static_cast<FXint>(end - text));
  }

  char digits[kMostDigits];
  const int length = static_cast<int>(std::to_chars(digits, digits + kMostDigits, magnitude(value)).ptr - digits);
  const int whole = std::max(length + exponent, 0);
  const int zeros = std::max(-exponent - length, 0);

  char* out = text;
  if (value < 0) *out++ = '-';
  if (whole == 0) *out++ = '0';
  out = std::copy_n(digits, whole, out);
  *out++ = '.';
  out = std::fill_n(out, zeros, '0');
  out = std::copy(digits + whole, digits + length, out);
  return FXString(text, static_cast<FXint>(out - text));
}

int FXDecimal::getValueDigits() const {
  // On purpose: the smallest of the limits 9, 99, 999, … is asked for first and answers for every greater number, so
  // this is no count of digits.
  const long long absolute = value < 0 ? wrapNegate(value) : value;
  return absolute >= EXPS[1] - 1 ? 1 : 15;
}

void FXDecimal::parseString(const FXString& text) {
  const char* characters = text.text();
  const int length = text.length();
  long long place = 1;
  for (int index = length - 1; index >= 0; --index) {
    const char character = characters[index];
    if (character >= '0' && character <= '9') {
      value = wrapAdd(value, wrapMultiply(character - '0', place));
      place = wrapMultiply(place, 10);
    } else if (character == '.') {
      // On purpose: of several dots the leftmost one wins, and the digits on all sides stay one integer.
      exponent = wrapByte(static_cast<long long>(index) + 1 - length);
    } else if (character == '-') {
      // On purpose: only what stands to its right is negated, so "1-2" reads as 10 - 2.
      value = wrapNegate(value);
    } else if (character != ' ') {
      // On purpose: the places read so far stay counted, so "1,5" reads as 10.
      value = 0;
    }
  }
}

void FXDecimal::normalize() {
  if (value == 0) {
    exponent = 0;
    return;
  }
  int stripped = 0;
  if (value % 10'000 == 0) {  // as often as not: a whole number with four decimals
    value /= 10'000;
    stripped = 4;
  }
  for (; value % 10 == 0; ++stripped) value /= 10;
  exponent = wrapByte(exponent + stripped);
  if (-exponent > precision) precision = wrapByte(-exponent);
}

void FXDecimal::forcePrecision() {
  const int surplus = -(precision + exponent);
  if (surplus <= 0) return;
  value = scale(value, -surplus);
  exponent = wrapByte(-precision);
}

void FXDecimal::applyPrecision(int extra) {
  // Where there are no more decimals than asked for, the zeros to strip would only come back.
  if (extra < 0 || exponent > 0 || -exponent > precision) normalize();
  const long long decimals = static_cast<long long>(precision) + extra;
  value = scale(value, exponent + decimals);
  exponent = wrapByte(-decimals);
}

void FXDecimal::applyRound(char places) {
  const signed char wanted = wrapByte(places);
  if (value == 0) {
    precision = wanted;
    return;
  }
  *this += FXDecimal(value > 0 ? 5 : -5, static_cast<char>(wrapByte(-wanted - 1)), 4);
  precision = wanted;
  forcePrecision();
}

FXDecimal FXDecimal::round(char places) const {
  FXDecimal result(*this);
  result.applyRound(places);
  result.normalize();
  return result;
}

FXDecimal& FXDecimal::operator=(const FXString& text) {
  // On purpose: nothing is reset before and nothing normalized after.
  parseString(text);
  return *this;
}

FXDecimal& FXDecimal::operator=(long long n) {
  // On purpose: the exponent stays, n is a number of its smallest units.
  value = n;
  return *this;
}

FXDecimal& FXDecimal::operator+=(const FXDecimal& b) {
  precision = std::max(precision, b.precision);
  applyPrecision(0);
  value = wrapAdd(value, b.getPaddedLong(static_cast<char>(exponent)));
  normalize();
  return *this;
}

FXDecimal& FXDecimal::operator-=(const FXDecimal& b) {
  precision = std::max(precision, b.precision);
  applyPrecision(0);
  value = wrapSubtract(value, b.getPaddedLong(static_cast<char>(exponent)));
  normalize();
  return *this;
}

FXDecimal& FXDecimal::operator*=(const FXDecimal& b) {
  precision = std::max(precision, b.precision);
  value = wrapMultiply(value, b.value);
  exponent = wrapByte(exponent + b.exponent);
  normalize();
  return *this;
}

FXDecimal FXDecimal::operator*(const FXDecimal& b) const {
  FXDecimal result(*this);
  result *= b;
  return result;
}

FXDecimal FXDecimal::operator/(const FXDecimal& b) const {
  FXDecimal result(*this);
  result.precision = std::max(precision, b.precision);
  result.applyPrecision(b.exponent < 0 ? -b.exponent : 0);
  result.value = guardedDivide(result.value, b.value);
  result.exponent = wrapByte(result.exponent - b.exponent);
  result.normalize();
  return result;
}

FXDecimal FXDecimal::operator+(long long n) const {
  FXDecimal result(*this);
  result += FXDecimal(n, 0, 4);
  return result;
}

FXDecimal FXDecimal::operator-(long long n) const {
  // On purpose: n is not aligned to the exponent as operator+ does it.
  FXDecimal result(*this);
  result.value = wrapSubtract(result.value, n);
  result.normalize();
  return result;
}

FXDecimal FXDecimal::operator*(long long n) const {
  FXDecimal result(*this);
  result.value = wrapMultiply(result.value, n);
  result.normalize();
  return result;
}

FXDecimal FXDecimal::operator/(long long n) const {
  FXDecimal result(*this);
  result.applyPrecision(0);
  result.value = guardedDivide(result.value, n);
  result.normalize();
  return result;
}

bool FXDecimal::operator<=(const FXDecimal& b) const { return *this == b || *this < b; }

bool FXDecimal::operator>=(const FXDecimal& b) const { return *this == b || *this > b; }

// On purpose: a number with decimals is compared by its raw digits, so 1.5 equals the integer 15.
bool FXDecimal::operator==(const long long& n) const { return getPaddedLong(0) == n; }

}  // namespace FXExt
