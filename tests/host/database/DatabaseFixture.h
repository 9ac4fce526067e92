#pragma once

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <cstdlib>
#include <filesystem>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include "plugin/contract/Database.h"
#include "plugin/contract/Statement.h"

namespace FX {
inline void PrintTo(const FXString& text, std::ostream* out) { *out << '"' << text.text() << '"'; }
}  // namespace FX

/// A result: one row of texts after the other, NULL is "(null)".
using Rows = std::vector<std::vector<std::string>>;

/// Keeps a whole result.
class GridLoader : public DataBaseValueLoader {
 public:
  bool processValue(int column, const char* name, const char* value) override {
    if (column == 0) grid.emplace_back();
    grid.back().push_back(value ? value : "(null)");
    if (grid.size() == 1) names.push_back(name);
    return true;
  }

  Rows grid;
  std::vector<std::string> names;
};

/// Keeps what an observer is told, a line for each statement: "SQL {name=value, other=(null)}".
class RecordingObserver : public StatementObserver {
 public:
  void statementExecuted(const FX::FXString& sql, const std::vector<Binding>& bindings) override {
    std::string line(sql.text(), sql.length());
    line += " {";
    for (const Binding& binding : bindings) {
      if (line.back() != '{') line += ", ";
      line.append(binding.name.text()).append("=");
      line += binding.null ? "(null)" : std::string(binding.value.text(), binding.value.length());
    }
    lines.push_back(line + "}");
  }

  std::vector<std::string> lines;
};

/// Another program that has the same file open, and knows nothing of ours.
class OtherProgram {
 public:
  explicit OtherProgram(const std::string& file) {
    EXPECT_EQ(sqlite3_open(file.c_str(), &handle), SQLITE_OK);
    sqlite3_busy_timeout(handle, 50);
  }
  ~OtherProgram() { sqlite3_close(handle); }
  OtherProgram(const OtherProgram&) = delete;
  OtherProgram& operator=(const OtherProgram&) = delete;

  bool run(const std::string& sql) { return sqlite3_exec(handle, sql.c_str(), nullptr, nullptr, nullptr) == SQLITE_OK; }

  Rows rows(const std::string& sql) {
    Rows result;
    const auto append = [](void* grid, int count, char** values, char**) {
      std::vector<std::string> row(count);
      for (int i = 0; i < count; ++i) row[i] = values[i] ? values[i] : "(null)";
      static_cast<Rows*>(grid)->push_back(row);
      return 0;
    };
    EXPECT_EQ(sqlite3_exec(handle, sql.c_str(), append, &result, nullptr), SQLITE_OK) << sqlite3_errmsg(handle);
    return result;
  }

 private:
  sqlite3* handle = nullptr;
};

/// A fresh database in a file of its own, and no patience with locks.
class DatabaseFixture : public testing::Test {
 protected:
  void SetUp() override {
    std::string pattern = (std::filesystem::temp_directory_path() / "quillane-database-XXXXXX").string();
    ASSERT_NE(mkdtemp(pattern.data()), nullptr);
    folder = pattern;
    file = folder + "/company.db";
    openDatabase();
  }

  void TearDown() override {
    database.reset();
    std::filesystem::remove_all(folder);
  }

  void openDatabase() {
    FX::FXString error;
    database.reset(TarnwellDatabase::open(file.c_str(), error));
    ASSERT_NE(database, nullptr) << error.text();
    ASSERT_TRUE(run("pragma busy_timeout = 50"));
    // No test pulls the plug.
    ASSERT_TRUE(run("pragma synchronous = off"));
  }

  bool run(const FX::FXString& sql, FX::FXuchar counts = 0) {
    return Statement(database.get(), sql).execute(nullptr, counts);
  }

  Rows rows(const FX::FXString& sql) {
    GridLoader loader;
    EXPECT_TRUE(Statement(database.get(), sql).execute(&loader, 0)) << lastError();
    return loader.grid;
  }

  std::string lastError() const { return database->getLastError().text(); }

  std::string folder;
  std::string file;
  std::unique_ptr<TarnwellDatabase> database;
};
