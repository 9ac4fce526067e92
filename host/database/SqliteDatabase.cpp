// SQLite: opens the file, prepares and runs statements, and reads which tables there are.
#include "host/database/SqliteDatabase.h"

#include <libintl.h>
#include <sqlite3.h>

#include <algorithm>
#include <charconv>
#include <filesystem>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

#include "host/database/FoldedText.h"
#include "host/database/RealText.h"
#include "host/database/SqlName.h"
#include "host/database/StatementText.h"
#include "plugin/contract/Database.h"

using namespace FX;

namespace Quillane::Database {

namespace {

constexpr int kPatience = 5000;       // milliseconds that another program's lock is waited for
constexpr int kUsualTextSize = 4096;  // bytes of a bound text; a longer one is not kept after the run
constexpr int kIntegerTextSize = 24;

// What a large save changes has to stay in memory until the end (in KiB, as a negative number): pages that do not fit
// are written to the file and read back again and again. Only what is needed is taken.
constexpr char kCacheSql[] = "pragma cache_size = -65536";

Failure::Cause causeOf(int code) {
  switch (code & 0xFF) {
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
      return Failure::Cause::Locked;
    case SQLITE_FULL:
      return Failure::Cause::Full;
    case SQLITE_READONLY:
      return Failure::Cause::ReadOnly;
    case SQLITE_IOERR:
    case SQLITE_CANTOPEN:
    case SQLITE_PERM:
    case SQLITE_AUTH:
      return Failure::Cause::Unreadable;
    case SQLITE_CORRUPT:
    case SQLITE_NOTADB:
      return Failure::Cause::Damaged;
    case SQLITE_CONSTRAINT:
      return Failure::Cause::Constraint;
    default:
      return Failure::Cause::Other;
  }
}

// What the last call on handle complained about.
Failure failureOf(sqlite3* handle) { return {causeOf(sqlite3_extended_errcode(handle)), sqlite3_errmsg(handle)}; }

struct Finalizer {
  void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};
using Handle = std::unique_ptr<sqlite3_stmt, Finalizer>;

// The value in a column of the current row as a text that lasts until the next call; null for NULL.
class ColumnText {
 public:
  const char* read(sqlite3_stmt* statement, int column) {
    switch (sqlite3_column_type(statement, column)) {
      case SQLITE_NULL:
        return nullptr;
      case SQLITE_INTEGER:
        *std::to_chars(integer, integer + kIntegerTextSize - 1, sqlite3_column_int64(statement, column)).ptr = '\0';
        return integer;
      case SQLITE_FLOAT:
        return realText(sqlite3_column_double(statement, column), real);
      default:
        return reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
    }
  }

 private:
  char integer[kIntegerTextSize];
  char real[kRealTextSize];
};

class SqliteStatement : public PreparedStatement {
 public:
  SqliteStatement(sqlite3* database, Handle prepared, int parameterCount)
      : handle(database), statement(std::move(prepared)), parameters(parameterCount) {}

  bool isReadOnly() const override { return sqlite3_stmt_readonly(statement.get()) != 0; }

  bool run(const BoundValue* const* values, DataBaseValueLoader* loader, long long& changes,
           Failure& failure) override {
    bool unusual = false;
    bool done = true;
    for (int i = 0; i < parameters && done; ++i) {
      done = bind(i + 1, *values[i], loader != nullptr);
      unusual = unusual || values[i]->text.size() > kUsualTextSize;
    }
    done = done && step(loader);
    if (!done) failure = failureOf(handle);
    sqlite3_reset(statement.get());
    changes = sqlite3_changes64(handle);
    if (unusual) sqlite3_clear_bindings(statement.get());
    return done;
  }

 private:
  // With a loader the value is copied: the loader may bind anew while the statement runs.
  bool bind(int parameter, const BoundValue& value, bool copied) {
    switch (value.kind) {
      case BoundValue::Kind::Integer:
        return sqlite3_bind_int64(statement.get(), parameter, value.integer) == SQLITE_OK;
      case BoundValue::Kind::Text:
        return sqlite3_bind_text64(statement.get(), parameter, value.text.data(), value.text.size(),
                                   copied ? SQLITE_TRANSIENT : SQLITE_STATIC, SQLITE_UTF8) == SQLITE_OK;
      default:
        return sqlite3_bind_null(statement.get(), parameter) == SQLITE_OK;
    }
  }

  bool step(DataBaseValueLoader* loader) {
    names.clear();
    int result;
    while ((result = sqlite3_step(statement.get())) == SQLITE_ROW)
      if (loader && !handOver(*loader)) return true;
    return result == SQLITE_DONE;
  }

  bool handOver(DataBaseValueLoader& loader) {
    const int columns = sqlite3_column_count(statement.get());
    // They stay where they are until the statement runs anew.
    while (static_cast<int>(names.size()) < columns)
      names.push_back(sqlite3_column_name(statement.get(), static_cast<int>(names.size())));
    ColumnText text;
    for (int i = 0; i < columns; ++i)
      if (!loader.processValue(i, names[i], text.read(statement.get(), i))) return false;
    return true;
  }

  sqlite3* handle;
  Handle statement;
  int parameters;
  std::vector<const char*> names;  // of the result's columns, once there was a row
};

Handle compile(sqlite3* handle, std::string_view sql, const char** rest = nullptr) {
  sqlite3_stmt* statement = nullptr;
  sqlite3_prepare_v3(handle, sql.data(), static_cast<int>(sql.size()), SQLITE_PREPARE_PERSISTENT, &statement, rest);
  return Handle(statement);
}

// Calls row for every row of the result of sql.
template <class Row>
bool forEachRow(sqlite3* handle, std::string_view sql, Failure& failure, const Row& row) {
  const Handle statement = compile(handle, sql);
  int result = SQLITE_ERROR;
  while (statement && (result = sqlite3_step(statement.get())) == SQLITE_ROW) row(statement.get());
  if (result == SQLITE_DONE) return true;
  failure = failureOf(handle);
  return false;
}

std::string columnOf(sqlite3_stmt* statement, int column) {
  const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
  return text ? text : "";
}

bool runText(sqlite3* handle, const std::string& sql, Failure& failure) {
  return forEachRow(handle, sql, failure, [](sqlite3_stmt*) {});
}

// Says why a file cannot be a company's file, before SQLite makes or touches anything; empty when it can.
FXString obstacle(const std::string& where) {
  namespace fs = std::filesystem;
  const auto say = [&where](const char* sentence) { return FXStringFormat(sentence, where.c_str()); };
  if (where.empty()) return dgettext("quillane", "Nincs megadva, melyik fájlban van az adatbázis.");
  std::error_code problem;
  const fs::file_status file = fs::status(where, problem);
  if (fs::is_directory(file)) return say(dgettext("quillane", "Ez mappa, nem adatbázis: %s."));
  if (fs::exists(file) && !fs::is_regular_file(file))
    return say(dgettext("quillane", "Ez nem fájl, így nem lehet adatbázis: %s."));
  const fs::path folder = fs::absolute(where, problem).parent_path();
  if (!fs::exists(file) && !fs::is_directory(folder, problem))
    return FXStringFormat(dgettext("quillane", "Nincs ilyen mappa: %s."), folder.c_str());
  return FXString();
}

FXString openingFailed(const std::string& where, const Failure& failure) {
  const char* sentence = dgettext("quillane", "Az adatbázis nem nyitható meg: %s.");
  if (failure.cause == Failure::Cause::Damaged)
    sentence = dgettext("quillane", "Ez a fájl sérült, vagy nem adatbázis: %s.");
  if (failure.cause == Failure::Cause::Locked)
    sentence = dgettext("quillane", "Az adatbázist egy másik program zárolja: %s.");
  if (failure.cause == Failure::Cause::Unreadable)
    sentence = dgettext("quillane", "Az adatbázis fájlja nem nyitható meg, talán nincs hozzá jogosultsága: %s.");
  return FXStringFormat(sentence, where.c_str()) + " " +
         FXStringFormat(dgettext("quillane", "Az adatbázis üzenete: %s."), failure.reason.c_str());
}

// text as a literal.
std::string quotedText(std::string_view text) {
  std::string quoted = "'";
  for (const char byte : text) quoted.append(byte == '\'' ? 2 : 1, byte);
  return quoted += '\'';
}

// The SQL function fold_case(text); NULL stays NULL.
void foldCaseInSql(sqlite3_context* context, int, sqlite3_value** arguments) {
  const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(arguments[0]));
  if (!text) return sqlite3_result_null(context);
  const FXString folded = foldCase(FXString(text, sqlite3_value_bytes(arguments[0])));
  sqlite3_result_text(context, folded.text(), folded.length(), SQLITE_TRANSIENT);
}

bool addFunctions(sqlite3* handle) {
  return sqlite3_create_function_v2(handle, "fold_case", 1, SQLITE_UTF8 | SQLITE_DETERMINISTIC, nullptr, foldCaseInSql,
                                    nullptr, nullptr, nullptr) == SQLITE_OK;
}

// The place of the parenthesis that closes the column list of a "create table" text; npos when there is none.
size_t endOfColumns(const std::string& sql) {
  int depth = 0;
  for (size_t at = 0; at < sql.size(); at += pieceLength(sql, at)) {
    if (sql[at] == '(') ++depth;
    if (sql[at] == ')' && --depth == 0) return at;
  }
  return std::string::npos;
}

}  // namespace

std::unique_ptr<SqliteDatabase> SqliteDatabase::open(const FXString& where, FXString& error) {
  std::string path(where.text(), static_cast<size_t>(where.length()));
  const bool inMemory = path == ":memory:";
  if (!inMemory) {
    error = obstacle(path);
    if (!error.empty()) return nullptr;
    // A path that begins like one of SQLite's special names is a path all the same.
    if (path.front() != '/') path.insert(0, "./");
  }

  sqlite3* handle = nullptr;
  const int flags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_EXRESCODE;
  const int opened = sqlite3_open_v2(path.c_str(), &handle, flags, nullptr);
  if (!handle) {
    error = openingFailed(where.text(), {Failure::Cause::Other, sqlite3_errstr(opened)});
    return nullptr;
  }
  std::unique_ptr<SqliteDatabase> database(new SqliteDatabase(handle));
  sqlite3_busy_timeout(handle, kPatience);
  Failure failure;
  int enforced = 0;
  // The first look at the file tells whether it is a database at all.
  const bool usable = opened == SQLITE_OK && runText(handle, "pragma schema_version", failure) &&
                      sqlite3_db_config(handle, SQLITE_DBCONFIG_ENABLE_FKEY, 1, &enforced) == SQLITE_OK &&
                      enforced == 1 && runText(handle, kCacheSql, failure) && addFunctions(handle);
  if (usable) {
    // A misspelt column name must be an error and not become a text.
    sqlite3_db_config(handle, SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
    error.clear();
    return database;
  }
  error = openingFailed(where.text(), failureOf(handle));
  return nullptr;
}

SqliteDatabase::SqliteDatabase(sqlite3* opened) : handle(opened) {}

SqliteDatabase::~SqliteDatabase() {
  close();
  sqlite3_close(handle);
}

std::unique_ptr<PreparedStatement> SqliteDatabase::prepare(const StatementText& text, Failure& failure) {
  const char* rest = nullptr;
  Handle statement = compile(handle, text.native, &rest);
  if (!statement) {
    failure = failureOf(handle);
    if (sqlite3_errcode(handle) == SQLITE_OK) failure = {Failure::Cause::Empty, {}};
    return nullptr;
  }
  // What follows may be blanks and comments; anything else would never be run.
  if (rest && *rest != '\0' && (compile(handle, rest) || sqlite3_errcode(handle) != SQLITE_OK)) {
    failure = {Failure::Cause::Several, {}};
    return nullptr;
  }
  const int parameters = static_cast<int>(text.parameters.size());
  if (sqlite3_bind_parameter_count(statement.get()) != parameters) {
    failure = {Failure::Cause::Parameters, {}};
    return nullptr;
  }
  return std::make_unique<SqliteStatement>(handle, std::move(statement), parameters);
}

bool SqliteDatabase::perform(Step step, Failure& failure) {
  switch (step) {
    case Step::BeginReading:
      return runText(handle, "begin", failure);
    case Step::Begin:
      return runText(handle, "begin immediate", failure);
    case Step::Commit:
      return runText(handle, "commit", failure);
    case Step::Rollback:
      break;
  }
  return runText(handle, "rollback", failure);
}

bool SqliteDatabase::hasTransaction() const { return sqlite3_get_autocommit(handle) == 0; }

bool SqliteDatabase::readDescription(DatabaseDescription& description, Failure& failure) {
  auto& [tables, indexes] = description = {};
  const auto tableOf = [&tables = tables](sqlite3_stmt* row) -> TableDescription& {
    // The rows come table by table.
    const std::string name = columnOf(row, 0);
    const auto known =
        std::find_if(tables.rbegin(), tables.rend(), [&name](const auto& one) { return one.name == name; });
    return known == tables.rend() ? tables.emplace_back(TableDescription{name, {}}) : *known;
  };
  const auto readColumn = [&tableOf](sqlite3_stmt* row) { tableOf(row).columns.push_back({columnOf(row, 1), false}); };
  const auto readReference = [&tableOf](sqlite3_stmt* row) {
    const std::string name = columnOf(row, 1);
    for (ColumnDescription& column : tableOf(row).columns)
      if (sameName(column.name, name)) column.isReference = true;
  };
  const auto readIndex = [&indexes = indexes](sqlite3_stmt* row) {
    indexes.push_back({columnOf(row, 0), columnOf(row, 1)});
  };
  return forEachRow(handle,
                    "select m.name, c.name from sqlite_master m join pragma_table_xinfo(m.name) c"
                    " where m.type = 'table' order by m.rowid, c.cid",
                    failure, readColumn) &&
         forEachRow(handle,
                    "select m.name, f.\"from\" from sqlite_master m join pragma_foreign_key_list(m.name) f"
                    " where m.type = 'table'",
                    failure, readReference) &&
         forEachRow(handle, "select name, tbl_name from sqlite_master where type = 'index'", failure, readIndex);
}

// SQLite has no statement for this; its manual describes the way that is taken here: what makes a column a reference is
// not stored with the rows, so that the text in the schema table is all there is to change.
bool SqliteDatabase::declareReference(const std::string& table, const std::string& column, const std::string& reference,
                                      Failure& failure) {
  std::string sql;
  long long version = 0;
  const std::string name = quotedText(table);
  const std::string clause = ", FOREIGN KEY (" + quotedName(column) + ") " + reference;
  const auto readSql = [&sql](sqlite3_stmt* row) { sql = columnOf(row, 0); };
  const auto readVersion = [&version](sqlite3_stmt* row) { version = sqlite3_column_int64(row, 0); };
  if (!forEachRow(handle, "select sql from sqlite_master where type = 'table' and name = " + name, failure, readSql) ||
      !forEachRow(handle, "pragma schema_version", failure, readVersion))
    return false;
  const size_t end = endOfColumns(sql);
  if (end == std::string::npos) {
    failure = {Failure::Cause::Damaged, table};
    return false;
  }
  sql.insert(end, clause);
  const bool changed =
      runText(handle, "pragma writable_schema = on", failure) &&
      runText(handle, "update sqlite_master set sql = " + quotedText(sql) + " where type = 'table' and name = " + name,
              failure) &&
      runText(handle, "pragma schema_version = " + std::to_string(version + 1), failure);
  // Also ends the permission, and lets the connection read the schema anew.
  Failure ending;
  if (runText(handle, "pragma writable_schema = reset", ending)) return changed;
  if (changed) failure = ending;
  return false;
}

}  // namespace Quillane::Database
