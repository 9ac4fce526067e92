#pragma once

#include <fx.h>

#include "fxext/FXDecimal.h"

namespace Quillane::Host {

/// How many digits a decimal holds whatever they are: what needs more may wrap around, so it is not reckoned.
constexpr int kExactDigits = 18;

/// A stored quantity or price; a text that says no number counts as 0.
FXExt::FXDecimal readStoredNumber(const FX::FXString& stored);

/// The digits of number behind the decimal point, and before it.
int countDecimals(const FXExt::FXDecimal& number);
int countWholeDigits(const FXExt::FXDecimal& number);

/// Whether a + b and a - b, and whether a × b, are right to the last digit.
bool isSumExact(const FXExt::FXDecimal& a, const FXExt::FXDecimal& b);
bool isProductExact(const FXExt::FXDecimal& a, const FXExt::FXDecimal& b);

}  // namespace Quillane::Host
