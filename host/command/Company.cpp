// Opens the company's database and loads the modules, without ever needing a display.
#include "host/command/Company.h"

#include <libintl.h>

#include "host/document/CompanyModel.h"

using namespace FX;

namespace Quillane::Commands {

namespace {

constexpr char kCountDocumentTableSql[] = "select count(*) from sqlite_master where type='table' and name='t_invoice'";
constexpr char kCountItemDataTablesSql[] =
    "select count(*) from sqlite_master where type='table' and name in ('t_itemvariable', 't_invoiceitemdata', "
    "'t_productitemdata', 't_suiteitemdata', 't_serviceitemdata')";
constexpr int kItemDataTableCount = 5;
constexpr char kItemDataModule[] = "QuillanePluginItemData";

}  // namespace

Company::Company(const std::vector<FXString>& moduleFolders) : folders(moduleFolders), plugins(account) {
  // The toolkit would take options for itself out of the command line, so it gets none of it.
  static char programName[] = "quillanectl";
  static char* arguments[] = {programName, nullptr};
  int count = 1;
  account.init(count, arguments, FALSE);
}

Company::~Company() { close(); }

Outcome Company::open(const FXString& file) {
  FXString error;
  if (!FXStat::exists(file)) {
    return Outcome::refused(
        FXStringFormat(dgettext("quillane", "Nincs ilyen cégfájl: %s. Létrehozása: quillanectl --db %s init"),
                       file.text(), file.text()));
  }
  if (!openDatabase(file, error)) return Outcome::refused(error);
  if (!hasDocuments()) {
    return Outcome::refused(FXStringFormat(
        dgettext("quillane", "Nem egy cég adatai vannak benne: %s. Adja meg a --db kapcsolóval a cég fájlját."),
        file.text()));
  }
  if (!Host::syncCompany(getDatabase(), error)) return Outcome::refused(error);
  loadModules();
  if (hasItemData()) return Outcome::success();
  return Outcome::refused(
      FXStringFormat(dgettext("quillane", "A cég adatai hiányosak: %s. Kiegészítése: quillanectl --db %s init"),
                     file.text(), file.text()));
}

Outcome Company::openUpToDate(const FXString& file) {
  FXString error;
  if (!openDatabase(file, error)) return Outcome::refused(error);
  const int tables = getDatabase().queryScalar("select count(*) from sqlite_master where type='table'", 1, 0);
  if (tables > 0 && !hasDocuments()) {
    return Outcome::refused(FXStringFormat(
        dgettext("quillane", "Nem egy cég adatai vannak benne, ezért nem lesz módosítva: %s. Válasszon más fájlt."),
        file.text()));
  }
  if (!Host::syncCompany(getDatabase(), error)) return Outcome::refused(error);
  loadModules();
  const Outcome module = requireItemDataModule();
  if (!module.succeeded()) return module;
  if (hasItemData()) return Outcome::success();
  return Outcome::refused(FXStringFormat(dgettext("quillane", "A(z) %s bővítmény nem hozta létre a tábláit. %s"),
                                         kItemDataModule, getDatabase().getLastError().text()));
}

Outcome Company::openInMemory() {
  FXString error;
  if (!openDatabase(":memory:", error) || !Host::syncCompany(getDatabase(), error)) return Outcome::refused(error);
  loadModules();
  return Outcome::success();
}

void Company::close() {
  hooks = Host::EntityHooks();
  plugins.unload();
  account.setDB(nullptr);
}

bool Company::openDatabase(const FXString& file, FXString& error) {
  TarnwellDatabase* database = TarnwellDatabase::open(file, error);
  if (!database) return false;
  database->setObserver(observer);
  account.setDB(database);
  return true;
}

Host::DocumentLife Company::getDocumentLife(Host::DocumentCheck& check) const {
  plugins.addHooksTo(check);
  return Host::DocumentLife(getDatabase(), hooks, check);
}

void Company::loadModules() {
  plugins.load(folders);
  plugins.start();
  hooks = plugins.getEntityHooks();
}

bool Company::hasDocuments() const { return getDatabase().queryScalar(kCountDocumentTableSql, 1, 0) == 1; }

bool Company::hasItemData() const {
  return getDatabase().queryScalar(kCountItemDataTablesSql, 1, 0) == kItemDataTableCount;
}

Outcome Company::requireItemDataModule() const {
  for (const Host::PluginLoader::Loaded& module : plugins.getLoaded()) {
    if (module.container->getCodeName() == kItemDataModule) return Outcome::success();
  }
  return Outcome::refused(
      FXStringFormat(dgettext("quillane",
                              "Nem tölthető be az egyéb tételadatok bővítménye (%s), nélküle pedig a cég fele "
                              "hiányozna. A bővítmény mappáját a QUILLANE_PLUGIN_PATH környezeti változó adja meg."),
                     kItemDataModule));
}

}  // namespace Quillane::Commands
