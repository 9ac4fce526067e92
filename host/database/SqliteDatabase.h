#pragma once

#include <fx.h>

#include <memory>
#include <string>

#include "host/database/Connection.h"

struct sqlite3;

namespace Quillane::Database {

/// The driver for SQLite: a company is one file.
class SqliteDatabase : public Connection {
 public:
  /// Opens, and makes if need be, the file where, or a database in memory for ":memory:". Null with a sentence for the
  /// user in error when that is not possible.
  static std::unique_ptr<SqliteDatabase> open(const FX::FXString& where, FX::FXString& error);

  ~SqliteDatabase() override;

 protected:
  std::unique_ptr<PreparedStatement> prepare(const StatementText& text, Failure& failure) override;
  bool perform(Step step, Failure& failure) override;
  bool hasTransaction() const override;
  bool readDescription(DatabaseDescription& description, Failure& failure) override;
  bool declareReference(const std::string& table, const std::string& column, const std::string& reference,
                        Failure& failure) override;

 private:
  explicit SqliteDatabase(sqlite3* opened);

  sqlite3* handle;  // owned
};

}  // namespace Quillane::Database
