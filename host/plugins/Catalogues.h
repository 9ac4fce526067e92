#pragma once

#include <fx.h>

namespace Quillane::Host {

/// The folder of the message catalogues: the build tree's while there is one, else the installed one.
FX::FXString catalogueFolder();

/// Tells the C library where the catalogues of this text domain are, and that texts are wanted in UTF-8.
void bindCatalogue(const FX::FXString& domain);

}  // namespace Quillane::Host
