// The program quillanectl: a company file without a display.
#include <langinfo.h>
#include <libintl.h>

#include <clocale>
#include <cstring>

#include "host/command/CommandLine.h"
#include "host/plugins/Catalogues.h"

namespace {

constexpr char kTextDomain[] = "quillane";

/// Texts are UTF-8 everywhere, so the locale has to be as well: C.UTF-8 when the user's is not. Numbers are always
/// written the same way, whatever the user's language.
void chooseLocale() {
  if (!std::setlocale(LC_ALL, "") || std::strcmp(nl_langinfo(CODESET), "UTF-8") != 0) std::setlocale(LC_ALL, "C.UTF-8");
  std::setlocale(LC_NUMERIC, "C");
}

}  // namespace

int main(int argc, char** argv) {
  chooseLocale();
  Quillane::Host::bindCatalogue(kTextDomain);
  textdomain(kTextDomain);
  return Quillane::Commands::CommandLine().run(argc, argv);
}
