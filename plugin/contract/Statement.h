#pragma once

#include <fx.h>

#include "plugin/contract/HostApi.h"

class DataBaseValueLoader;
class TarnwellDatabase;

namespace Quillane::Database {
class StatementBody;
}

/// An SQL text with named parameters. A parameter is written %name (a letter or an underscore, then letters, digits and
/// underscores); one value is bound to every use of it. A percent sign before anything else, and everything inside
/// string literals, quoted names and comments, is left as it is. Values are bound and never become part of the text.
///
/// A statement can be executed any number of times; what is bound stays bound until it is bound anew. A parameter of
/// the text that was never bound makes the execution fail; a bound name that the text does not use is not an error. The
/// database is not owned and has to outlive the statement's last execution.
class QUILLANE_HOST_API Statement {
 public:
  /// A statement without a text of its own, for the derived classes; executing it fails.
  explicit Statement(TarnwellDatabase* database);

  Statement(TarnwellDatabase* database, const FX::FXString& sql);

  virtual ~Statement();

  /// Binds an integer.
  void setInt(const FX::FXString& name, int value);

  /// Binds an integer given as text, in decimal; an empty text binds NULL. A text that is no integer makes the
  /// execution fail.
  void setInt(const FX::FXString& name, const FX::FXString& value);

  /// Binds a text, byte by byte as it is. A text with a NUL byte in it makes the execution fail, because it could not
  /// be read back whole.
  void setString(const FX::FXString& name, FX::FXString value);

  /// Runs the statement, and hands every value of every row of its result to loader, which may be null. True when it
  /// ran. A failure is told by TarnwellDatabase::getLastError; with countsInTransaction 1 it also fails the running
  /// transaction, with 0 the caller looks at the result himself.
  virtual bool execute(DataBaseValueLoader* loader, FX::FXuchar countsInTransaction);

  /// Runs the statement and returns the value of this column (0 is the first) in the first row of its result; NULL, no
  /// row and a failure, which fails the running transaction too, are 0. What an int cannot hold is the nearest that it
  /// can.
  int queryInt(int column);

  Statement(const Statement&) = delete;
  Statement& operator=(const Statement&) = delete;

 protected:
  Quillane::Database::StatementBody* body;  // owned
};

/// Inserts one row into table: each bound name is a column. Needs at least one.
/// Its text is "insert into TABLE (A, B) values (%A, %B)".
class QUILLANE_HOST_API InsertStatement : public Statement {
 public:
  InsertStatement(TarnwellDatabase* database, const FX::FXString& table);
  ~InsertStatement() override;
};

/// Updates the rows of table that match the condition where, which may hold parameters: each bound name that is not one
/// of them is a column to set. Needs a condition and at least one column to set. An update by key (the condition
/// compares the table's key, TABLE_id, with a parameter) that finds no row has failed. Its text is "update TABLE set
/// A=%A, B=%B where WHERE".
class QUILLANE_HOST_API UpdateStatement : public Statement {
 public:
  UpdateStatement(TarnwellDatabase* database, const FX::FXString& table, const FX::FXString& where);
  ~UpdateStatement() override;
};

/// Deletes the rows of table in which every column that is bound has the bound value. Needs at least one.
/// Its text is "delete from TABLE where A=%A and B=%B".
class QUILLANE_HOST_API DeleteStatement : public Statement {
 public:
  DeleteStatement(TarnwellDatabase* database, const FX::FXString& table);
  ~DeleteStatement() override;
};
