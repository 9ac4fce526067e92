#pragma once

#include <fx.h>

#include "fxext/FXDecimal.h"

namespace Quillane::Host {

/// A stored number as people read it: a decimal comma, and a no-break blank between groups of three digits
/// ("1234.5" becomes "1 234,5"). What says no number is shown as it is.
FX::FXString displayNumber(const FX::FXString& stored);

/// What the items of a document come to. It is reckoned exactly: when there are too many digits for that (more than 14
/// before the decimal point can be), there is no sum rather than a wrong one.
class ValueSum {
 public:
  /// Adds quantity × price, both as stored; a text that says no number counts as 0.
  void add(const FX::FXString& quantity, const FX::FXString& price);

  /// False when there were too many digits.
  bool isExact() const { return exact; }

  /// The sum, times sign (1 or -1), commercially rounded to at most 2 decimals, in plain notation ("-1234.5"); empty
  /// when it is not exact.
  FX::FXString getText(int sign = 1) const;

 private:
  FXExt::FXDecimal sum{0, 0, 0};
  bool exact = true;
};

/// The value of one item: quantity × price, as ValueSum gives it.
FX::FXString getItemValue(const FX::FXString& quantity, const FX::FXString& price);

}  // namespace Quillane::Host
