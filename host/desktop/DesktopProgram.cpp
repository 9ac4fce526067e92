// The program from its call to its end.
#include "host/desktop/DesktopProgram.h"

#include <libintl.h>

#include <CLI/CLI.hpp>
#include <cstdlib>
#include <memory>
#include <string>

#include "host/desktop/WelcomeDialog.h"
#include "host/plugins/Translator.h"

using namespace FX;

namespace Quillane::Desktop {

namespace {

constexpr char kFont[] = "DejaVu Sans,90";  // tenths of points

const char* getHelp() {
  return dgettext("quillane",
                  "Számlák és a tételeikhez rögzített adatok\n\n"
                  "Használat: quillane [--db FILE] [--trace-sql]\n\n"
                  "  --db FILE     a cég fájlja; ha nincs megadva, az utoljára megnyitott\n"
                  "  --trace-sql   a szabványos hibakimenetre írja az SQL-utasításokat, soronként egy JSON-t\n"
                  "  -h, --help    kiírja ezt a segítséget\n");
}

}  // namespace

bool DesktopProgram::readOptions(int argc, const char* const* argv, DesktopOptions& options, int& exitStatus,
                                 FILE* output, FILE* errors) {
  CLI::App parser;
  std::string file;
  parser.set_help_flag("-h,--help");
  parser.add_option("--db", file);
  parser.add_flag("--trace-sql", options.traceSql);
  try {
    parser.parse(argc, argv);
  } catch (const CLI::CallForHelp&) {
    std::fputs(getHelp(), output);
    exitStatus = SUCCESS;
    return false;
  } catch (const CLI::ParseError& error) {
    const std::vector<std::string> unknown = parser.remaining();
    const FXString reason =
        unknown.empty() ? FXString(dgettext("quillane", "A --db kapcsoló után egy fájl neve következik."))
                        : FXStringFormat(dgettext("quillane", "Nem értelmezhető: „%s”."), unknown.front().c_str());
    std::fprintf(errors, "quillane: %s %s\n", reason.text(), dgettext("quillane", "Segítség: quillane --help"));
    exitStatus = WRONG_CALL;
    return false;
  }
  options.file = file.c_str();
  return true;
}

int DesktopProgram::run(int argc, const char* const* argv) {
  DesktopOptions options;
  int exitStatus = SUCCESS;
  if (!readOptions(argc, argv, options, exitStatus)) return exitStatus;

  Tarnwell account;
  if (!openDisplay(account)) {
    std::fprintf(stderr, "quillane: %s\n",
                 dgettext("quillane", "Nincs képernyő, amelyen megjelenhetne. Képernyő nélkül: quillanectl --help"));
    return FAILURE;
  }
  setLook(account);
  Host::SqlTrace trace(stderr);
  const Host::IconSet icons(&account);
  Host::Company company(account);
  if (options.traceSql) company.setObserver(&trace);
  CompanyFile companyFile(account, company);
  const std::unique_ptr<MainWindow> window = std::make_unique<MainWindow>(account, company, companyFile, icons);
  account.create();
  icons.create();
  if (!openFirstCompany(*window, companyFile, options)) return SUCCESS;
  window->appear();
  window->tellRejectedModules();
  return account.run();
}

bool DesktopProgram::openDisplay(Tarnwell& account) {
  // The toolkit would take options for itself out of the command line, and end the program when it finds no display.
  static char programName[] = "quillane";
  static char* arguments[] = {programName, nullptr};
  int count = 1;
  account.init(count, arguments, FALSE);
  const char* display = std::getenv("DISPLAY");
  return display && *display && account.openDisplay(display);
}

void DesktopProgram::setLook(Tarnwell& account) {
  Host::Translator::install(account);
  new FXToolTip(&account);  // what shows the windows' tips; owned by the root window
  if (account.reg().existingEntry("SETTINGS", "normalfont")) return;  // the user's own choice
  account.getNormalFont()->setFont(kFont);
}

bool DesktopProgram::openFirstCompany(MainWindow& window, const CompanyFile& companyFile,
                                      const DesktopOptions& options) {
  const FXString file = options.file.empty() ? companyFile.getRememberedFile() : options.file;
  return (!file.empty() && window.openCompany(file)) || askForCompany(window);
}

bool DesktopProgram::askForCompany(MainWindow& window) {
  for (;;) {
    WelcomeDialog dialog(window.getApp(), window.getIcons());
    bool open = false;
    switch (dialog.ask()) {
      case WelcomeDialog::SAMPLE_COMPANY:
        open = window.askCompanyToMake(CompanyFile::SAMPLE);
        break;
      case WelcomeDialog::NEW_COMPANY:
        open = window.askCompanyToMake(CompanyFile::EMPTY);
        break;
      case WelcomeDialog::OPEN_COMPANY:
        open = window.askCompanyToOpen();
        break;
      case WelcomeDialog::LEAVE:
        return false;
    }
    if (open) return true;
  }
}

}  // namespace Quillane::Desktop
