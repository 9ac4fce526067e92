#pragma once

#include <fx.h>

namespace Quillane::Plugin::ItemData::UI {

/// The user's text as a label has to be given it: the toolkit takes an & for the mark of a hot key, and ends the text
/// at a tab.
inline FX::FXString labelText(FX::FXString text) { return text.substitute("&", "&&").substitute('\t', ' '); }

}  // namespace Quillane::Plugin::ItemData::UI
