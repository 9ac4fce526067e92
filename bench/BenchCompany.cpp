// The companies that the benchmarks work on.
#include "bench/BenchCompany.h"

#include <sqlite3.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>

#include "bench/BenchAccount.h"
#include "host/database/Connection.h"
#include "host/document/CompanyModel.h"
#include "itemdata/ItemDataList.h"
#include "itemdata/ItemDataPluginList.h"
#include "plugin/ItemDataContainer.h"
#include "plugin/contract/Statement.h"
#include "plugin/contract/Tarnwell.h"

namespace Bench {

using Quillane::Plugin::ItemData::ItemDataList;

namespace {

[[noreturn]] void fail(const std::string& reason) {
  std::fprintf(stderr, "%s\n", reason.c_str());
  std::exit(1);
}

// Another run may be going on.
std::string temporaryFile(const std::string& name) {
  return std::filesystem::temp_directory_path() / (name + "-" + std::to_string(getpid()) + ".db");
}

}  // namespace

BenchCompany::BenchCompany(const std::string& name, int rows, int variables)
    : file(temporaryFile("quillane-bench-" + name)), unitRows(rows), unitVariables(variables) {
  std::filesystem::remove(file);
  { BenchModule makesTables(*this); }
  run("insert into t_product (t_product_id, name, unit, price) values (1, 'Mérőóra', 'db', '100')");
  for (int variable = 1; variable <= unitVariables; ++variable) {
    const std::string id = std::to_string(variable);
    run("insert into t_itemvariable (t_itemvariable_id, name, type, process, mandatory, vvalue) values (" + id +
        ", 'Gyári szám " + id + "', 1, 1, 1, '')");
    run("insert into t_productitemdata (t_product_1, t_itemvariable_1, position, direction) values (1, " + id + ", " +
        id + ", 100)");
  }
  run("insert into t_invoice (t_invoice_id, t_invoicestatus_1, statusgate, version) values (1, 101, 1, 1)");
  run("insert into t_invoiceitem (t_invoiceitem_id, t_invoice_1, position, articlekind, articleid, quantity) values "
      "(1, 1, 1, 1, 1, '" +
      std::to_string(unitRows) + "')");
}

BenchCompany::~BenchCompany() { std::filesystem::remove(file); }

void BenchCompany::record() {
  const std::string numbers =
      "with recursive unit(n) as (select 1 union all select n+1 from unit where n<" + std::to_string(unitRows) + ") ";
  run("insert into t_invoiceitemdata (t_itemvariable_1, t_invoiceitem_1, row, value) select variable, 1, n, value from "
      "(" +
      numbers +
      "select n, t_itemvariable_id as variable, case when t_itemvariable_id<0 then '1' else 'SN-2024-' || "
      "(n*10+t_itemvariable_id) end as value from unit, t_itemvariable) order by n, variable");
}

void BenchCompany::clear() { run("delete from t_invoiceitemdata"); }

void BenchCompany::run(const std::string& sql) const {
  sqlite3* connection = nullptr;
  if (sqlite3_open(file.c_str(), &connection) != SQLITE_OK) fail("cannot open " + file);
  char* error = nullptr;
  if (sqlite3_exec(connection, sql.c_str(), nullptr, nullptr, &error) != SQLITE_OK) fail(sql + "\n" + error);
  sqlite3_close(connection);
}

std::string BenchCompany::textOf(int row, int variable) {
  return variable < 0 ? "1" : "SN-2024-" + std::to_string(row * 10 + variable);
}

BenchModule::BenchModule(const BenchCompany& company) {
  open(company);
  FX::FXString error;
  if (!Quillane::Host::syncCompany(*getDB(), error)) fail(error.text());
  container.reset(get_plugin(&account()));
  container->init();
  for (int i = 0; i < container->getModules().no(); ++i) {
    const auto* found = dynamic_cast<Quillane::Plugin::EntityPlugin*>(container->getModules()[i]);
    if (found) hook = found;
  }
}

BenchModule::~BenchModule() {
  container.reset();
  // The container leaves its deleted prototypes there, since a module is unloaded after it.
  Quillane::Plugin::ItemData::plugins.clear();
  account().setDB(nullptr);
}

void BenchModule::open(const BenchCompany& company) const {
  FX::FXString error;
  TarnwellDatabase* database = TarnwellDatabase::open(company.getFile().c_str(), error);
  if (!database) fail(error.text());
  account().setDB(database);
  Statement(database, "pragma synchronous=off").execute(nullptr, 1);
}

void BenchModule::load(Quillane::InvoiceItem& item) const {
  Quillane::Database::Connection& connection = getDB()->getConnection();
  connection.beginReading();
  hook->load(&item);
  connection.endReading();
}

void BenchModule::save(Quillane::InvoiceItem& item) const {
  getDB()->begin();
  hook->save(&item);
  if (!getDB()->commit()) fail(getDB()->getLastError().text());
}

void BenchModule::addRows(const Quillane::InvoiceItem& item, int count) {
  auto* list = ItemDataList::of(item);
  const int first = list->no();
  list->addRows(count);
  for (int i = first; i < list->no(); ++i)
    list->at(i)->value = BenchCompany::textOf(list->at(i)->row, list->at(i)->itemvariable).c_str();
}

TarnwellDatabase* BenchModule::getDB() const { return account().getDB(); }

std::unique_ptr<Quillane::Invoice> BenchModule::makeInvoice() const {
  auto invoice = std::make_unique<Quillane::Invoice>();
  invoice->setId(1);
  invoice->setStatus(101, false);
  auto* item = new Quillane::InvoiceItem;
  item->setId(BenchCompany::kItemId);
  item->setArticle(Quillane::InvoiceItem::ARTICLE_PRODUCT, 1);
  invoice->appendItem(item);
  return invoice;
}

}  // namespace Bench
