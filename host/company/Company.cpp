// Opens the company's database and loads the modules.
#include "host/company/Company.h"

#include <libintl.h>

#include "host/document/CompanyModel.h"

using namespace FX;

namespace Quillane::Host {

namespace {

constexpr char kCountTablesSql[] = "select count(*) from sqlite_master where type='table'";
constexpr char kCountDocumentTableSql[] = "select count(*) from sqlite_master where type='table' and name='t_invoice'";
constexpr char kCountItemDataTablesSql[] =
    "select count(*) from sqlite_master where type='table' and name in ('t_itemvariable', 't_invoiceitemdata', "
    "'t_productitemdata', 't_suiteitemdata', 't_serviceitemdata')";
constexpr int kItemDataTableCount = 5;
constexpr char kItemDataModule[] = "QuillanePluginItemData";

}  // namespace

Company::Company(Tarnwell& programAccount, const std::vector<FXString>& moduleFolders)
    : account(programAccount), folders(moduleFolders), plugins(programAccount) {}

Company::~Company() { close(); }

bool Company::open(const FXString& file, FXString& error) {
  close();
  if (!FXStat::exists(file)) {
    error = FXStringFormat(dgettext("quillane", "Nincs ilyen cégfájl: %s."), file.text());
    return refuse(NO_FILE);
  }
  if (!openDatabase(file, error)) return refuse(FAILED);
  if (!hasDocuments()) {
    error = FXStringFormat(dgettext("quillane", "Nem egy cég adatai vannak benne: %s."), file.text());
    return refuse(NO_COMPANY);
  }
  if (!syncTables(error)) return refuse(FAILED);
  loadModules();
  if (hasItemData()) return true;
  error = FXStringFormat(dgettext("quillane", "A cég adatai hiányosak: %s."), file.text());
  return refuse(INCOMPLETE);
}

bool Company::openUpToDate(const FXString& file, FXString& error) {
  close();
  if (!openDatabase(file, error)) return refuse(FAILED);
  if (getDatabase().queryScalar(kCountTablesSql, 1, 0) > 0 && !hasDocuments()) {
    error = FXStringFormat(
        dgettext("quillane", "Nem egy cég adatai vannak benne, ezért nem lesz módosítva: %s. Válasszon más fájlt."),
        file.text());
    return refuse(NO_COMPANY);
  }
  if (!syncTables(error)) return refuse(FAILED);
  loadModules();
  if (!requireItemDataModule(error)) return refuse(MODULE_MISSING);
  if (hasItemData()) return true;
  error = FXStringFormat(dgettext("quillane", "A(z) %s bővítmény nem hozta létre a tábláit. %s"), kItemDataModule,
                         getDatabase().getLastError().text());
  return refuse(FAILED);
}

bool Company::openInMemory(FXString& error) {
  close();
  if (!openDatabase(":memory:", error) || !syncTables(error)) return refuse(FAILED);
  loadModules();
  return true;
}

bool Company::requireItemDataModule(FXString& error) const {
  for (const PluginLoader::Loaded& module : plugins.getLoaded())
    if (module.container->getCodeName() == kItemDataModule) return true;
  error =
      FXStringFormat(dgettext("quillane",
                              "Nem tölthető be az egyéb tételadatok bővítménye (%s), nélküle pedig a cég fele "
                              "hiányozna. A bővítmény mappáját a QUILLANE_PLUGIN_PATH környezeti változó adja meg."),
                     kItemDataModule);
  return false;
}

void Company::close() {
  hooks = EntityHooks();
  plugins.unload();
  account.setDB(nullptr);
  refusal = NONE;
}

DocumentLife Company::getDocumentLife(DocumentCheck& check) const {
  plugins.addHooksTo(check);
  return DocumentLife(getDatabase(), hooks, check);
}

bool Company::refuse(Refusal reason) {
  close();
  refusal = reason;
  return false;
}

bool Company::openDatabase(const FXString& file, FXString& error) {
  TarnwellDatabase* database = TarnwellDatabase::open(file, error);
  if (!database) return false;
  database->setObserver(observer);
  account.setDB(database);
  return true;
}

bool Company::syncTables(FXString& error) { return syncCompany(getDatabase(), error); }

void Company::loadModules() {
  plugins.load(folders);
  plugins.start();
  hooks = plugins.getEntityHooks();
}

bool Company::hasDocuments() const { return getDatabase().queryScalar(kCountDocumentTableSql, 1, 0) == 1; }

bool Company::hasItemData() const {
  return getDatabase().queryScalar(kCountItemDataTablesSql, 1, 0) == kItemDataTableCount;
}

}  // namespace Quillane::Host
