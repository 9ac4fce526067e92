#pragma once

#include <fx.h>

#include <memory>
#include <vector>

#include "plugin/contract/HostApi.h"

namespace Quillane::Database {
class Connection;
}

/// Receives the rows of a result, value by value.
class QUILLANE_HOST_API DataBaseValueLoader {
 public:
  /// Called for every value of every row: columns are numbered from 0, values are texts (integers in decimal, real
  /// numbers in plain notation with at most 9 decimals and 15 digits), SQL NULL is a null pointer. The texts are valid
  /// during the call only and end at their first NUL byte. Returning false ends the reading; the statement counts as
  /// run all the same. Other statements may be run meanwhile, also the same one. By default counts the rows and returns
  /// true.
  virtual bool processValue(int column, const char* name, const char* value);

  /// How many rows were counted.
  virtual int getNumRows() const;

  virtual ~DataBaseValueLoader();

 protected:
  int rows = 0;
};

/// Sees every statement that is executed: for tests, and for people who want to know what is going on.
class QUILLANE_HOST_API StatementObserver {
 public:
  /// One bound parameter.
  struct Binding {
    FX::FXString name;
    bool null;
    FX::FXString value;
  };

  /// Called when a statement is about to run, also for one that will fail: everything that goes through the statement
  /// classes and queryScalar, but not what the host does by itself (transactions, keys, bringing the schema up to
  /// date). sql is the text as the caller gave it (for insert, update and delete statements the text that the class
  /// built); bindings are in the order of binding, a replaced value stands where the first one stood.
  virtual void statementExecuted(const FX::FXString& sql, const std::vector<Binding>& bindings) = 0;

  virtual ~StatementObserver();
};

/// The connection to the company's database. One connection, one thread.
///
/// Inside a transaction the connection remembers the first statement that failed, because modules ignore the results of
/// their statements; commit then rolls back and says so. Foreign keys are enforced. Whoever is in the way of another
/// program waits a few seconds before he fails.
class QUILLANE_HOST_API TarnwellDatabase {
 public:
  /// Opens the database at where (a file's path, made when there is none but its folder, or ":memory:"). Returns a new
  /// connection that the caller owns, or null with a sentence for the user in error.
  static TarnwellDatabase* open(FX::FXString where, FX::FXString& error);

  /// Rolls back what is not committed. Statements that still exist can only be destroyed afterwards.
  virtual ~TarnwellDatabase();

  /// The first column of the row with this number (1 is the first) as an integer, NULL counting as 0; fallback when
  /// there is no such row or the query fails. A failure is the caller's to see and does not fail the transaction.
  virtual int queryScalar(const FX::FXString& sql, int row, int fallback);

  /// A key of 1 or more that no row of table has, and that this connection has not given before; 0 when it cannot be
  /// told. Only inside a transaction, or when the row is inserted at once, is it safe from other programs.
  virtual int nextKey(const FX::FXString& table);

  /// Begins a transaction and takes the write lock at once. False when that fails or when one is running already, which
  /// then goes on.
  virtual bool begin();

  /// Makes the transaction's changes last. False when a statement of it failed, or when they cannot be written, or when
  /// there is no transaction: then nothing of it is left in the database, and getLastError names the first failure.
  virtual bool commit();

  /// Takes the transaction's changes back. False when there was nothing to take back.
  virtual bool rollback();

  /// Whether a transaction is running: begun, and neither committed nor rolled back.
  virtual bool isInTransaction() const;

  /// What failed last, as a sentence for the user with the technical reason and the statement behind it; empty as long
  /// as nothing has failed.
  virtual FX::FXString getLastError() const;

  /// Sets the observer, which stays the caller's and must outlive the connection or be taken away; null for none.
  virtual void setObserver(StatementObserver* observer);

  /// The host's own side of the connection; not for modules.
  Quillane::Database::Connection& getConnection() const { return *connection; }

  TarnwellDatabase(const TarnwellDatabase&) = delete;
  TarnwellDatabase& operator=(const TarnwellDatabase&) = delete;

 private:
  explicit TarnwellDatabase(std::unique_ptr<Quillane::Database::Connection> opened);

  std::unique_ptr<Quillane::Database::Connection> connection;
};
