// A company with the real module in it, and other programs that work on it.
#include "tests/host/document/LivingCompany.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>

#include "host/plugins/PluginLoader.h"

using namespace FX;

namespace Quillane::Host {

namespace {

void defineArticles(const TestCompany& company) {
  company.fill("t_partner", {{"t_partner_id", "name"}, {"1", "Kovács Bt."}});
  company.fill("t_product", {{"t_product_id", "name", "unit", "price"},
                             {"1", "Kazán", "db", "100000"},
                             {"2", "Zsinór", "m", "12.5"},
                             {"3", "Szelep", "db", "900"},
                             {"4", "Festés", "m2", "3000"}});
  company.fill("t_itemvariable", {{"t_itemvariable_id", "name", "type", "process", "mandatory", "vvalue"},
                                  {"2", "Garancia", "1", "1", "0", "NULL"},
                                  {"11", "Megjegyzés", "1", "0", "0", "NULL"},
                                  {"12", "Gyári szám", "1", "1", "1", "NULL"},
                                  {"13", "Szín", "3", "0", "1", "piros,kék"}});
  for (const char* direction : {"100", "200"})
    company.fill("t_productitemdata", {{"t_product_1", "t_itemvariable_1", "position", "direction"},
                                       {"1", "11", "1", direction},
                                       {"1", "2", "2", direction},
                                       {"1", "12", "3", direction},
                                       {"3", "12", "1", direction},
                                       {"4", "13", "1", direction}});
}

/// The module is loaded once in a process, and prepares one company: the others are copies of its file.
struct Module {
  PluginLoader loader{testAccount()};
  EntityHooks hooks;
  std::string emptyCompany;
};

std::unique_ptr<Module> loadedModule;

Module& module() {
  if (!loadedModule) loadedModule = std::make_unique<Module>();
  return *loadedModule;
}

/// Unloads it when the tests are over, while everything that it needs is still there.
class Unloading : public testing::Environment {
 public:
  void TearDown() override { loadedModule.reset(); }
};

const testing::Environment* const unloading = testing::AddGlobalTestEnvironment(new Unloading);

void prepareModule(const TestCompany& company) {
  module().loader.load({QUILLANE_MODULE_FOLDER});
  if (module().loader.getLoaded().size() != 1 || !module().loader.start())
    throw std::runtime_error("the module is not in " QUILLANE_MODULE_FOLDER);
  module().hooks = module().loader.getEntityHooks();
  defineArticles(company);
}

}  // namespace

LivingCompany::LivingCompany() {
  if (module().emptyCompany.empty()) {
    prepareModule(company);
    close();
    module().emptyCompany = readFile();
  } else {
    close();
    writeFile(module().emptyCompany);
  }
  open();
}

void LivingCompany::close() const { testAccount().setDB(nullptr); }

void LivingCompany::open() const {
  testAccount().setDB(company.openAgain().release());
  run("pragma busy_timeout = 50");
  run("pragma synchronous = off");  // nobody pulls the plug here, and it is many times as fast
}

std::string LivingCompany::readFile() const {
  std::ifstream file(getFile(), std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

void LivingCompany::writeFile(const std::string& content) const {
  std::filesystem::remove(getFile() + "-journal");
  std::ofstream file(getFile(), std::ios::binary | std::ios::trunc);
  file << content;
}

const EntityHooks& LivingCompany::getHooks() { return module().hooks; }

void LivingCompany::addChecks(DocumentCheck& check) { module().loader.addHooksTo(check); }

std::string LivingCompany::query(const std::string& sql) const {
  const Grid rows = company.query(sql);
  return rows.empty() ? "NULL" : rows[0][0];
}

Lines LivingCompany::queryLines(const std::string& sql) const {
  Lines lines;
  for (const auto& row : company.query(sql)) {
    lines.emplace_back();
    for (const std::string& value : row) lines.back() += (&value == row.data() ? "" : " ") + value;
  }
  return lines;
}

int LivingCompany::add(int status, const std::vector<Item>& items) const {
  const std::string closed =
      query("select closed from t_invoicestatus where t_invoicestatus_id=" + std::to_string(status));
  const std::string id = query("select ifnull(max(t_invoice_id), 0) + 1 from t_invoice");
  company.fill("t_invoice", {{"t_invoice_id", "t_invoicestatus_1", "statusgate", "issuedate", "t_partner_1", "version"},
                             {id, std::to_string(status), closed == "1" ? "0" : "1", "2026-01-31", "1", "1"}});
  int position = 0;
  for (const Item& item : items) {
    const std::string article = std::to_string(item.article);
    company.fill("t_invoiceitem", {{"t_invoice_1", "position", "articlekind", "articleid", "name", "unit", "quantity",
                                    "price", "originmode"},
                                   {id, std::to_string(++position), "1", article,
                                    query("select name from t_product where t_product_id=" + article),
                                    query("select unit from t_product where t_product_id=" + article), item.quantity,
                                    query("select price from t_product where t_product_id=" + article), "0"}});
  }
  return std::stoi(id);
}

int LivingCompany::itemOf(int document, int number) const {
  return std::stoi(query("select t_invoiceitem_id from t_invoiceitem where t_invoice_1=" + std::to_string(document) +
                         " and position=" + std::to_string(number)));
}

void LivingCompany::record(int item, const std::vector<Value>& values) const {
  for (const Value& value : values)
    company.fill("t_invoiceitemdata",
                 {{"t_invoiceitem_1", "t_itemvariable_1", "row", "value"},
                  {std::to_string(item), std::to_string(value.variable), std::to_string(value.row), value.value}});
}

Lines LivingCompany::valuesOf(int item) const {
  return queryLines(
      "select ifnull(row, 'NULL') || ' ' || ifnull(t_itemvariable_1, 'NULL') || ' ' || ifnull('''' || value || '''', "
      "'NULL') from t_invoiceitemdata where t_invoiceitem_1=" +
      std::to_string(item) + " order by row, t_invoiceitemdata_id");
}

std::string LivingCompany::quantityOf(int item) const {
  return query("select quantity from t_invoiceitem where t_invoiceitem_id=" + std::to_string(item));
}

std::unique_ptr<Document> LivingCompany::load(int id) const {
  FXString error;
  auto document = getStore().load(id, error);
  EXPECT_NE(document, nullptr) << error.text();
  return document;
}

std::string LivingCompany::move(int id, int status) const {
  const auto document = load(id);
  if (!document) return "not loaded";
  DocumentCheck check;
  addChecks(check);
  FXString error;
  const bool moved = DocumentLife(getDatabase(), getHooks(), check).changeStatus(*document, status, error);
  EXPECT_EQ(moved, error.empty());
  return error.text();
}

std::string LivingCompany::remove(int id) const {
  DocumentCheck check;
  FXString error;
  const bool removed = DocumentLife(getDatabase(), getHooks(), check).remove(id, error);
  EXPECT_EQ(removed, error.empty());
  return error.text();
}

std::string LivingCompany::derive(int id, int status, int& made) const {
  DocumentCheck check;
  FXString error;
  made = DocumentLife(getDatabase(), getHooks(), check).derive(id, status, error);
  EXPECT_EQ(made > 0, error.empty());
  return error.text();
}

int LivingCompany::derive(int id, int status) const {
  int made = 0;
  const std::string error = derive(id, status, made);
  EXPECT_EQ(error, "");
  return made;
}

void LivingCompany::mustMove(int id, int status) const { EXPECT_EQ(move(id, status), ""); }

std::string LivingCompany::dump() const {
  std::string text;
  for (const std::string& table : queryLines("select name from sqlite_master where type='table' order by name")) {
    std::string columns;
    for (const std::string& column : queryLines("select name from pragma_table_info('" + table + "')"))
      if (column != "issuedate") columns += (columns.empty() ? "\"" : ", \"") + column + "\"";
    text += table + "(" + columns + ")\n";
    for (const auto& row : company.query("select " + columns + " from " + table + " order by 1")) {
      for (const std::string& value : row) text += value + "|";
      text += "\n";
    }
  }
  return text;
}

pid_t startProgram(const LivingCompany& company, const std::function<bool()>& work) {
  const pid_t program = fork();
  if (program != 0) return program;
  bool done = false;
  try {
    company.open();
    company.run("pragma busy_timeout = 20000");
    done = work();
    company.close();
  } catch (const std::exception& problem) {
    ADD_FAILURE() << problem.what();
  }
  _exit(done && !testing::Test::HasFailure() ? 0 : 1);
}

int waitFor(pid_t program) {
  int status = -1;
  EXPECT_EQ(waitpid(program, &status, 0), program);
  return status;
}

void runOtherProgram(const LivingCompany& company, const std::function<bool()>& work) {
  company.close();
  EXPECT_EQ(waitFor(startProgram(company, work)), 0);
  company.open();
}

}  // namespace Quillane::Host
