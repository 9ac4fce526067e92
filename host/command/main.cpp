// The program quillanectl: a company file without a display.
#include "host/command/CommandLine.h"
#include "host/plugins/Locale.h"

int main(int argc, char** argv) {
  Quillane::Host::chooseLocale();
  Quillane::Host::useTextDomain("quillane");
  return Quillane::Commands::CommandLine().run(argc, argv);
}
