// The program quillane: a company file in windows.
#include "host/desktop/DesktopProgram.h"
#include "host/plugins/Locale.h"

int main(int argc, char** argv) {
  Quillane::Host::chooseLocale();
  Quillane::Host::useTextDomain("quillane");
  return Quillane::Desktop::DesktopProgram().run(argc, argv);
}
