#pragma once

#include <fx.h>

#include <string>

#include "plugin/contract/HostApi.h"

namespace Quillane::Host {

/// name with the mark of a mnemonic before its first letter that is not in used, to which it is added. Letters are
/// plain ones: those with accents take more than one byte.
QUILLANE_HOST_API FX::FXString markMnemonic(const FX::FXString& name, std::string& used);

/// The plain letters, one or none, that are marked in a text, as small ones.
QUILLANE_HOST_API std::string getMnemonics(const FX::FXString& text);

/// The plain letters that do something in the window already when they are pressed with Alt.
QUILLANE_HOST_API std::string getUsedMnemonics(const FX::FXTopWindow& window);

}  // namespace Quillane::Host
