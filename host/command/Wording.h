#pragma once

#include <fx.h>

namespace Quillane::Commands {

/// text as it can stand in a sentence: on one line, and not longer than a person reads.
FX::FXString quoteText(const FX::FXString& text);

}  // namespace Quillane::Commands
