// The company file of the program: opening, making, and the way back when that fails.
#include "host/desktop/CompanyFile.h"

#include <libintl.h>

#include "host/company/SampleCompany.h"

using namespace FX;

namespace Quillane::Desktop {

namespace {

constexpr char kSection[] = "Company";
constexpr char kFileKey[] = "File";

}  // namespace

bool CompanyFile::open(const FXString& wanted, FXString& error) {
  const FXString path = FXPath::absolute(wanted);
  const FXString earlier = file;
  if (openExisting(path, error)) {
    accept(path);
    return true;
  }
  returnTo(earlier);
  return false;
}

bool CompanyFile::make(const FXString& wanted, Content content, FXString& error) {
  const FXString path = FXPath::absolute(wanted);
  if (FXStat::exists(path)) {
    error = FXStringFormat(dgettext("quillane", "Már van ilyen fájl: %s. Válasszon más nevet."), path.text());
    return false;
  }
  const FXString earlier = file;
  if (fillNew(path, content, error)) {
    accept(path);
    return true;
  }
  company.close();
  FXFile::remove(path);
  returnTo(earlier);
  return false;
}

bool CompanyFile::openExisting(const FXString& path, FXString& error) {
  if (company.open(path, error)) return company.requireItemDataModule(error);
  return company.getRefusal() == Host::Company::INCOMPLETE && company.openUpToDate(path, error);
}

bool CompanyFile::fillNew(const FXString& path, Content content, FXString& error) {
  if (!company.openUpToDate(path, error)) return false;
  return content == EMPTY || Host::SampleCompany::fill(company.getDatabase(), error);
}

void CompanyFile::returnTo(const FXString& earlier) {
  company.close();
  FXString reason;  // the failure that the user hears of is the first one
  file = !earlier.empty() && openExisting(earlier, reason) ? earlier : FXString();
  if (file.empty()) company.close();
}

void CompanyFile::accept(const FXString& path) {
  file = path;
  account.reg().writeStringEntry(kSection, kFileKey, file.text());
  account.reg().write();
}

FXString CompanyFile::getRememberedFile() const { return account.reg().readStringEntry(kSection, kFileKey, ""); }

FXString CompanyFile::getDocumentFolder() {
  const FXString home = FXSystem::getHomeDirectory();
  const FXString named = FXSystem::getEnvironment("XDG_DOCUMENTS_DIR");
  for (const FXString& folder : {named, home + "/Dokumentumok", home + "/Documents"})
    if (!folder.empty() && FXStat::isDirectory(folder)) return folder;
  return home;
}

}  // namespace Quillane::Desktop
