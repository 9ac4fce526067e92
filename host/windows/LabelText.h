#pragma once

#include <fx.h>

#include "plugin/contract/HostApi.h"

namespace Quillane::Host {

/// text as a label has to be given it when it is the user's: the toolkit takes an & for the mark of a mnemonic, and
/// ends the text at a tab.
QUILLANE_HOST_API FX::FXString labelText(FX::FXString text);

/// text as a message box has to be given it, whose text is a label that does not break lines by itself.
QUILLANE_HOST_API FX::FXString messageText(const FX::FXString& text);

}  // namespace Quillane::Host
