#pragma once

#include <fx.h>

namespace Quillane::Database {

/// text in small letters, those of all languages, so that texts can be compared whether they are written in capital or
/// small letters. In SQL it is the function fold_case(text).
FX::FXString foldCase(const FX::FXString& text);

/// text in small letters and without accents: what stands in the alphabet's order is by this key in about the order in
/// which people look for it ("Őrségi" among those with O).
FX::FXString alphabeticKey(const FX::FXString& text);

}  // namespace Quillane::Database
