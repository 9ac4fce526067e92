// Texts that hold what users typed, for labels.
#include "host/windows/LabelText.h"

#include "host/windows/WrappedText.h"

using namespace FX;

namespace Quillane::Host {

FXString labelText(FXString text) { return text.substitute("&", "&&").substitute('\t', ' '); }

FXString messageText(const FXString& text) { return labelText(wrapText(text)); }

}  // namespace Quillane::Host
