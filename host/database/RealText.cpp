// Real numbers as plain decimal text, whatever the locale says.
#include "host/database/RealText.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <cstring>

namespace Quillane::Database {

namespace {

constexpr int kMostDecimals = 9;
constexpr int kMostDigits = 15;

// Turns "-d.dddddddddddddde+XX" with an exponent of kMostDigits or more into plain digits.
char* expand(char* text, char* end, int exponent) {
  char* mark = std::strchr(text, 'e');
  char* point = std::strchr(text, '.');
  std::memmove(point, point + 1, static_cast<size_t>(mark - point - 1));
  char* tail = mark - 1;
  const int zeros = exponent - (kMostDigits - 1);
  if (tail + zeros >= end) return tail;
  std::memset(tail, '0', static_cast<size_t>(zeros));
  return tail + zeros;
}

}  // namespace

const char* realText(double value, char (&text)[kRealTextSize]) {
  if (std::isnan(value)) return "NaN";
  if (std::isinf(value)) return value < 0 ? "-Inf" : "Inf";

  char* const end = text + kRealTextSize - 1;
  char* tail = std::to_chars(text, end, value, std::chars_format::scientific, kMostDigits - 1).ptr;
  *tail = '\0';
  const int exponent = std::atoi(std::strchr(text, 'e') + 1);
  if (exponent >= kMostDigits) {
    *expand(text, end, exponent) = '\0';
    return text;
  }

  // One rounding only: to the decimals that both limits leave.
  const int decimals = std::min(kMostDecimals, kMostDigits - 1 - exponent);
  tail = std::to_chars(text, end, value, std::chars_format::fixed, decimals).ptr;
  if (decimals > 0) {
    while (tail[-1] == '0') --tail;
    if (tail[-1] == '.') --tail;
  }
  *tail = '\0';
  return std::strcmp(text, "-0") == 0 ? "0" : text;
}

}  // namespace Quillane::Database
