// Where the translations are.
#include "host/plugins/Catalogues.h"

#include <libintl.h>

#include <filesystem>

using namespace FX;

namespace Quillane::Host {

FXString catalogueFolder() {
  std::error_code ignored;  // a folder that cannot be looked at is none
  return std::filesystem::is_directory(QUILLANE_BUILD_CATALOGUES, ignored) ? QUILLANE_BUILD_CATALOGUES
                                                                           : QUILLANE_INSTALLED_CATALOGUES;
}

void bindCatalogue(const FXString& domain) {
  if (domain.empty()) return;
  bindtextdomain(domain.text(), catalogueFolder().text());
  bind_textdomain_codeset(domain.text(), "UTF-8");
}

}  // namespace Quillane::Host
