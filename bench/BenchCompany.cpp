// The companies that the benchmarks work on.
#include "bench/BenchCompany.h"

#include <sqlite3.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>

#include "bench/BenchAccount.h"
#include "host/document/CompanyModel.h"
#include "itemdata/ItemDataPluginList.h"
#include "plugin/ItemDataContainer.h"
#include "plugin/contract/Tarnwell.h"

namespace Bench {

namespace {

[[noreturn]] void fail(const std::string& reason) {
  std::fprintf(stderr, "%s\n", reason.c_str());
  std::exit(1);
}

}  // namespace

BenchCompany::BenchCompany(const std::string& name, int rows, int variables)
    : file((std::filesystem::temp_directory_path() / ("quillane-bench-" + name + ".db")).string()),
      unitRows(rows),
      unitVariables(variables) {
  std::filesystem::remove(file);
  { BenchModule makesTables(*this); }
  run("insert into t_product (t_product_id, name, unit, price) values (1, 'Mérőóra', 'db', '100')");
  for (int variable = 1; variable <= unitVariables; ++variable) {
    const std::string id = std::to_string(variable);
    run("insert into t_itemvariable (t_itemvariable_id, name, type, process, mandatory, vvalue) values (" + id +
        ", 'Mező " + id + "', 1, 1, 1, '')");
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
      "select n, t_itemvariable_id as variable, case when t_itemvariable_id<0 then '1' else 'SN-' || "
      "(n*10+t_itemvariable_id) end as value from unit, t_itemvariable) order by n, variable");
}

void BenchCompany::clear() { run("delete from t_invoiceitemdata"); }

void BenchCompany::run(const std::string& sql) {
  sqlite3* connection = nullptr;
  if (sqlite3_open(file.c_str(), &connection) != SQLITE_OK) fail("cannot open " + file);
  char* error = nullptr;
  if (sqlite3_exec(connection, sql.c_str(), nullptr, nullptr, &error) != SQLITE_OK) fail(sql + "\n" + error);
  sqlite3_close(connection);
}

BenchModule::BenchModule(const BenchCompany& company) {
  FX::FXString error;
  TarnwellDatabase* database = TarnwellDatabase::open(company.getFile().c_str(), error);
  if (!database || !Quillane::Host::syncCompany(*database, error)) fail(error.text());
  account().setDB(database);
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
