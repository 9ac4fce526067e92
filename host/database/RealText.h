#pragma once

namespace Quillane::Database {

/// Room for the text of any real number.
constexpr int kRealTextSize = 352;

/// The text of value as people write numbers, in text or constant: rounded to at most 9 decimals and 15 significant
/// digits, with a decimal point, without exponent, needless zeros or a negative zero. The infinite are "Inf" and
/// "-Inf", what is no number is "NaN".
const char* realText(double value, char (&text)[kRealTextSize]);

}  // namespace Quillane::Database
