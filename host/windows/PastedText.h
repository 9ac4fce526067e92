#pragma once

#include <fx.h>

#include <vector>

namespace Quillane {

/// Splits a text as spreadsheets copy it: lines that end with LF, CR LF or CR, and fields parted by tabs. Line ends
/// behind the last text make no lines.
std::vector<std::vector<FX::FXString>> splitPastedText(const FX::FXString& pasted);

}  // namespace Quillane
