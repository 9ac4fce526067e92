#pragma once

#include <fx.h>

#include <memory>
#include <string>
#include <vector>

#include "plugin/contract/Database.h"
#include "plugin/contract/Tarnwell.h"

/// The one account of a test process: an application without a display. It lives as long as the process.
Quillane::Tarnwell& testAccount();

/// Rows of a result, NULL as "NULL".
using Grid = std::vector<std::vector<std::string>>;

/// A fresh company with the host's own tables and statuses, open in the test account as long as the object lives. There
/// is one at a time.
class TestCompany {
 public:
  enum Where {
    IN_MEMORY,
    IN_FILE  ///< in a folder of its own, which goes with the company
  };

  explicit TestCompany(Where where = IN_MEMORY);
  ~TestCompany();

  TarnwellDatabase* getDB() const { return testAccount().getDB(); }

  /// The company's file; empty for one in memory.
  const std::string& getFile() const { return file; }

  /// The folder that the file stands in; empty for a company in memory.
  const std::string& getFolder() const { return folder; }

  /// Another connection to the company's file, as another program has it; owned by the caller.
  std::unique_ptr<TarnwellDatabase> openAgain() const;

  /// Runs a statement that has to succeed: a failure ends the test with the reason, as an exception.
  void run(const std::string& sql) const;

  /// Fills table: a line of column names, then a line of values for each row, NULL as "NULL".
  void fill(const std::string& table, const Grid& lines) const;

  /// What the query gives.
  Grid query(const std::string& sql) const;

  TestCompany(const TestCompany&) = delete;
  TestCompany& operator=(const TestCompany&) = delete;

 private:
  std::string folder;
  std::string file;
};
