// An exact decimal number for quantities: parsed, summed, compared and printed without floating point.
#pragma once

#include <fx.h>

namespace FXExt {

/// The powers of ten from 10^0 to 10^15, indexed by the power.
extern const long long EXPS[16];

/// A signed 64-bit integer scaled by a power of ten, together with the number of decimals that it is meant to carry.
///
/// After normalize(), with which nearly every operation ends, the number is 0 with exponent 0 or has no trailing zero
/// in its value, and its precision is no lower than the decimals it holds.
///
/// No operation reports an error, and every one has a defined result for every input:
///  - 64-bit and 8-bit results that do not fit wrap around (two's complement);
///  - scaling by a power above 15 goes on as if EXPS had no end, modulo 2^64: what fits into 64 bits is exact, and from
///    10^64 on the result is 0;
///  - scaling by a negative power divides instead and truncates toward zero;
///  - a division by zero gives 0, and the most negative value divided by -1 is that value again.
class FXDecimal {
 public:
  long long value;        // the digits of the number as one integer
  signed char exponent;   // the number is value × 10^exponent; -2 means two decimals
  signed char precision;  // decimals to align, divide and re-scale to
  FX::FXuchar unset;      // 1 when nothing was ever given; copied, but no operation reads or changes it

  /// 0 with precision 2, unset.
  FXDecimal();

  /// The number that parseString reads from the text, normalized.
  FXDecimal(const FX::FXString& text, char decimals);

  /// digits × 10^power, normalized.
  FXDecimal(long long digits, char power, char decimals);

  /// The whole part, truncated toward zero.
  long long toLong() const;

  double toDouble() const;

  /// Plain notation with '.' and exactly as many decimals as a negative exponent says; neither '+' nor grouping.
  /// With an exponent of 0 or more it is the text of toLong().
  FX::FXString toString() const;

  /// The value re-scaled to the smaller exponent `target`, to align two numbers. Nothing is ever truncated: when this
  /// exponent is not the greater one, the result is the raw value.
  long long getPaddedLong(char target) const;

  /// 1 when the digits, taken as an integer, are 9 or more, else 15. The most negative value gives 15.
  int getValueDigits() const;

  /// Adds what the text says to the current value, from right to left: '.' sets the exponent, '-' negates what has been
  /// read so far, blanks are skipped, and any other character that is no digit discards what stands to its right but
  /// keeps its places ("12a34" reads as 1200). Does not normalize.
  void parseString(const FX::FXString& text);

  /// Moves trailing zeros of the value into the exponent, and raises the precision to the decimals held.
  void normalize();

  /// Cuts decimals beyond the precision off, toward zero.
  void forcePrecision();

  /// Re-scales so that exactly precision + extra decimals are held, trailing zeros included.
  void applyPrecision(int extra);

  /// Rounds half away from zero to that many decimals, which become the precision. Does not normalize.
  void applyRound(char places);

  /// The same on a copy, normalized.
  FXDecimal round(char places) const;

  /// parseString on what is here already: it accumulates. Whoever wants a fresh number constructs one.
  FXDecimal& operator=(const FX::FXString& text);

  /// Replaces the value alone: with exponent -2 the number is then n/100.
  FXDecimal& operator=(long long n);

  /// The result's precision is the larger of the two. A product keeps every decimal; a quotient has `precision`
  /// decimals (more when the divisor has a positive exponent), truncated.
  FXDecimal& operator+=(const FXDecimal& b);
  FXDecimal& operator-=(const FXDecimal& b);
  FXDecimal& operator*=(const FXDecimal& b);
  FXDecimal operator+(const FXDecimal& b) const;
  FXDecimal operator-(const FXDecimal& b) const;
  FXDecimal operator*(const FXDecimal& b) const;
  FXDecimal operator/(const FXDecimal& b) const;

  /// The sum has a precision of at least 4. The difference takes n from the raw value: 1.5 - 1 is 1.4.
  FXDecimal operator+(long long n) const;
  FXDecimal operator-(long long n) const;
  FXDecimal operator*(long long n) const;
  FXDecimal operator/(long long n) const;

  bool operator==(const FXDecimal& b) const;
  bool operator!=(const FXDecimal& b) const;
  bool operator<(const FXDecimal& b) const;
  bool operator>(const FXDecimal& b) const;
  bool operator<=(const FXDecimal& b) const;
  bool operator>=(const FXDecimal& b) const;

  /// Compares the raw value when the number has decimals: 1.5 == 15 is true.
  bool operator==(const long long& n) const;

 private:
  /// number × 10^power; a negative power divides and truncates toward zero.
  static long long scale(long long number, long long power);
  /// The same without a look at EXPS first, where nearly every power is.
  static long long scaleByAny(long long number, long long power);
};

inline long long FXDecimal::getPaddedLong(char target) const {
  const auto wanted = static_cast<signed char>(target);
  return exponent <= wanted ? value : scale(value, static_cast<signed char>(exponent - wanted));
}

inline long long FXDecimal::scale(long long number, long long power) {
  if (power < 0 || power > 15) return scaleByAny(number, power);
  // Unsigned, since what does not fit wraps around.
  return static_cast<long long>(static_cast<unsigned long long>(number) * static_cast<unsigned long long>(EXPS[power]));
}

inline FXDecimal FXDecimal::operator+(const FXDecimal& b) const {
  FXDecimal result(*this);
  result += b;
  return result;
}

inline FXDecimal FXDecimal::operator-(const FXDecimal& b) const {
  FXDecimal result(*this);
  result -= b;
  return result;
}

inline bool FXDecimal::operator==(const FXDecimal& b) const {
  return getPaddedLong(static_cast<char>(b.exponent)) == b.getPaddedLong(static_cast<char>(exponent));
}

inline bool FXDecimal::operator!=(const FXDecimal& b) const { return !(*this == b); }

inline bool FXDecimal::operator<(const FXDecimal& b) const {
  return getPaddedLong(static_cast<char>(b.exponent)) < b.getPaddedLong(static_cast<char>(exponent));
}

inline bool FXDecimal::operator>(const FXDecimal& b) const { return b < *this; }

}  // namespace FXExt
