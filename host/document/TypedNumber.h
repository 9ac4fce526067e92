#pragma once

#include <fx.h>

namespace Quillane::Host {

/// Reads a number as people type it: with or without a sign, blanks between the digits, a decimal comma or point
/// ("1 234,5"). True with the number in plain notation in number ("1234.5": decimal point, no blanks, no needless
/// zeros); false with a sentence for the user in error when the text is no such number or has more than 15 digits.
bool parseTypedNumber(const FX::FXString& typed, FX::FXString& number, FX::FXString& error);

}  // namespace Quillane::Host
