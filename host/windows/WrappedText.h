#pragma once

#include <fx.h>

#include "plugin/contract/HostApi.h"

namespace Quillane::Host {

/// text with line breaks between words, so that no line has more than so many characters; a longer word keeps a line
/// of its own. Message boxes do not break lines by themselves.
QUILLANE_HOST_API FX::FXString wrapText(const FX::FXString& text, int lineLength = 80);

}  // namespace Quillane::Host
