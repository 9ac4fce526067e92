// A fresh company for a test, and the account that it is open in.
#include "tests/support/TestCompany.h"

#include <stdlib.h>

#include <filesystem>
#include <stdexcept>

#include "host/document/CompanyModel.h"
#include "plugin/contract/Statement.h"

using namespace FX;

namespace {

class GridLoader : public DataBaseValueLoader {
 public:
  bool processValue(int column, const char*, const char* value) override {
    if (column == 0) grid.emplace_back();
    grid.back().emplace_back(value ? value : "NULL");
    return true;
  }

  Grid grid;
};

FXString toFox(const std::string& text) { return FXString(text.data(), static_cast<FXint>(text.size())); }

void runStatement(Statement& statement, DataBaseValueLoader* loader) {
  TarnwellDatabase* database = testAccount().getDB();
  if (!statement.execute(loader, 1)) throw std::runtime_error(database->getLastError().text());
}

std::unique_ptr<TarnwellDatabase> openCompany(const std::string& where) {
  FXString error;
  std::unique_ptr<TarnwellDatabase> database(TarnwellDatabase::open(toFox(where), error));
  if (!database) throw std::runtime_error(error.text());
  return database;
}

}  // namespace

Quillane::Tarnwell& testAccount() {
  static Quillane::Tarnwell* account = nullptr;  // lives as long as the process, as the toolkit's application has to
  if (account) return *account;
  account = new Quillane::Tarnwell;
  static char name[] = "test";
  static char* arguments[] = {name, nullptr};
  int count = 1;
  account->init(count, arguments, FALSE);
  return *account;
}

TestCompany::TestCompany(Where where) {
  if (where == IN_FILE) {
    folder = (std::filesystem::temp_directory_path() / "quillane-test-XXXXXX").native();
    if (!mkdtemp(folder.data())) throw std::runtime_error("no temporary folder: " + folder);
    file = folder + "/company.db";
  }
  testAccount().setDB(openCompany(where == IN_FILE ? file : ":memory:").release());
  FXString error;
  if (!Quillane::Host::syncCompany(*getDB(), error)) throw std::runtime_error(error.text());
}

TestCompany::~TestCompany() {
  testAccount().setDB(nullptr);
  if (!folder.empty()) std::filesystem::remove_all(folder);
}

std::unique_ptr<TarnwellDatabase> TestCompany::openAgain() const { return openCompany(file); }

void TestCompany::run(const std::string& sql) const {
  Statement statement(getDB(), toFox(sql));
  runStatement(statement, nullptr);
}

void TestCompany::fill(const std::string& table, const Grid& lines) const {
  for (std::size_t row = 1; row < lines.size(); ++row) {
    InsertStatement insert(getDB(), toFox(table));
    for (std::size_t column = 0; column < lines[0].size(); ++column) {
      const FXString name = toFox(lines[0][column]);
      if (lines[row].at(column) == "NULL") {
        insert.setInt(name, FXString());
      } else {
        insert.setString(name, toFox(lines[row][column]));
      }
    }
    runStatement(insert, nullptr);
  }
}

Grid TestCompany::query(const std::string& sql) const {
  GridLoader loader;
  Statement statement(getDB(), toFox(sql));
  runStatement(statement, &loader);
  return loader.grid;
}
