#pragma once

#include <fx.h>

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "host/database/Failure.h"
#include "host/database/PreparedStatement.h"
#include "host/database/StatementBody.h"
#include "host/database/StatementCache.h"
#include "host/database/StatementText.h"
#include "host/database/TableDescription.h"

class DataBaseValueLoader;
class StatementObserver;

namespace Quillane::Database {

/// One open database: runs statements, keeps them ready for the next time, and keeps the books of the transaction.
/// A driver derives from it and does what differs from one kind of database to the next.
class Connection {
 public:
  /// What a failing statement means for a running transaction.
  enum class Counts : bool { No, Yes };

  virtual ~Connection();

  /// A fresh body for a statement of this connection; goes back with giveBack.
  StatementBody* takeBody();
  void giveBack(StatementBody* body);

  /// Makes body a statement with this text.
  void setText(StatementBody& body, std::string_view sql);

  /// Lets body forget which text it had: another column was bound.
  void forgetText(StatementBody& body);

  /// Runs body's statement, telling the observer before.
  bool execute(StatementBody& body, DataBaseValueLoader* loader, Counts counts);

  /// Runs an SQL text without parameters; no observer hears of it.
  bool runQuietly(std::string_view sql, DataBaseValueLoader* loader, Counts counts);

  /// The value of this column in the first row of body's result as an integer; 0 when there is none.
  int queryInt(StatementBody& body, int column);

  /// See TarnwellDatabase.
  int queryScalar(std::string_view sql, int row, int fallback);
  int nextKey(std::string_view table);
  bool begin();
  bool commit();
  bool rollback();
  bool isInTransaction() const { return inTransaction; }

  /// From beginReading to endReading everything is read from one state of the database: nobody else can write
  /// meanwhile, and no statement has to look whether somebody did. A transaction that begins and a statement that
  /// writes end the reading, so that each stands or fails by itself as ever.
  /// False where nothing began, so that there is nothing to end: in a transaction and in another reading it is so
  /// anyhow, and they go on.
  bool beginReading();
  void endReading();

  const FX::FXString& getLastError() const { return lastError; }

  /// How many statements have failed so far: tells whoever lets others run statements whether one of theirs did.
  unsigned long getFailureCount() const { return failureCount; }

  /// Why the last of them did.
  Failure::Cause getLastCause() const { return lastCause; }

  void setObserver(StatementObserver* watching) { observer = watching; }

  /// Reads which tables, columns, references and indexes there are. False, with the error set, when that fails.
  bool describe(DatabaseDescription& description);

  /// Makes a column that exists a reference, without a look at its values. reference is what follows the column's name
  /// and type where a table is created. The names are as they stand in the description.
  bool addReference(const std::string& table, const std::string& column, const std::string& reference);

  /// Notes a failure that was found outside; returns false.
  bool fail(const FX::FXString& sentence) { return fail(sentence, {}, Counts::Yes); }

  /// How many texts are known at the moment.
  size_t getCacheSize() const { return cache.size(); }

  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;

 protected:
  enum class Step { BeginReading, Begin, Commit, Rollback };

  Connection();

  /// To be called first in a driver's destructor: takes back what is not committed, and lets go of every statement.
  void close();

  /// Makes text ready to run, or returns null with a failure.
  virtual std::unique_ptr<PreparedStatement> prepare(const StatementText& text, Failure& failure) = 0;

  /// Begin takes the write lock.
  virtual bool perform(Step step, Failure& failure) = 0;

  /// Whether the database itself has a transaction open: some failures make it give up the whole transaction.
  virtual bool hasTransaction() const = 0;

  virtual bool readDescription(DatabaseDescription& description, Failure& failure) = 0;
  virtual bool declareReference(const std::string& table, const std::string& column, const std::string& reference,
                                Failure& failure) = 0;

 private:
  struct Keys {
    std::string query;   // of the highest key in use
    long long last = 0;  // the highest that was given
    long long gap = 0;   // the last one that was given of the unused keys below the highest
  };

  CachedStatement* find(std::string_view sql);
  CachedStatement* resolve(StatementBody& body, Counts counts);
  bool collect(const CachedStatement& statement, const StatementBody& body, const BoundValue** values, Counts counts);
  bool runQuietly(std::string_view sql, const StatementBody& body, DataBaseValueLoader* loader, Counts counts);
  bool runWith(CachedStatement& statement, const StatementBody& body, DataBaseValueLoader* loader, Counts counts);
  bool run(CachedStatement& statement, const BoundValue* const* values, DataBaseValueLoader* loader, Counts counts);
  void observe(const std::string& sql, const StatementBody& body);
  long long lowestGap(std::string_view table, long long after);
  bool fail(FX::FXString sentence, const std::string& sql, Counts counts);
  bool fail(const Failure& failure, const std::string& sql, Counts counts);

  StatementCache cache;
  std::vector<std::unique_ptr<StatementBody>> spareBodies;
  StatementBody* liveBodies = nullptr;            // each owned by its statement
  StatementObserver* observer = nullptr;          // not owned
  std::map<std::string, Keys, std::less<>> keys;  // by table
  std::string scratch;                            // for the key of a statement
  FX::FXString lastError;
  unsigned long failureCount = 0;
  Failure::Cause lastCause = Failure::Cause::Other;
  FX::FXString firstFailure;  // of the transaction; empty when nothing has failed
  bool inTransaction = false;
  bool isReading = false;
};

}  // namespace Quillane::Database
