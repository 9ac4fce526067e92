#pragma once

#include <fx.h>

#include "host/command/Outcome.h"

namespace Quillane::Commands {

/// Reads an argument that is a key, a place in a list or a code: a whole number of 1 or more. what names the argument
/// in the sentence when it is none; the call is wrong then.
Outcome readNumber(const char* what, const FX::FXString& text, int& number);

/// Reads a calendar day, YYYY-MM-DD. The call is wrong when it is none.
Outcome readDate(const char* what, const FX::FXString& text, FX::FXString& date);

/// Reads a quantity or a price as people type them ("1 234,5") into plain notation ("1234.5"). The call is wrong when
/// it is none.
Outcome readDecimal(const char* what, const FX::FXString& text, FX::FXString& decimal);

}  // namespace Quillane::Commands
