// The schema model, and how a database is brought in line with it.
//
// What is there is read first, with a few cheap queries; only what is missing is created. SQLite accepts references to
// tables that do not exist yet, so that neither the order of the tables nor circles between them matter.
#include "plugin/contract/Schema.h"

#include <libintl.h>

#include <algorithm>
#include <string>
#include <utility>

#include "host/database/Connection.h"
#include "host/database/SqlName.h"
#include "plugin/contract/Database.h"

using namespace FX;
using Quillane::Database::Connection;
using Quillane::Database::DatabaseDescription;
using Quillane::Database::IndexDescription;
using Quillane::Database::quotedName;
using Quillane::Database::sameName;
using Quillane::Database::TableDescription;

FXIMPLEMENT(Quillane::Model::Schema, FXObject, nullptr, 0)
FXIMPLEMENT(Quillane::Model::Column, FXObject, nullptr, 0)
FXIMPLEMENT(Quillane::Model::Index, FXObject, nullptr, 0)
FXIMPLEMENT_ABSTRACT(Quillane::Model::Table, FXObject, nullptr, 0)

namespace Quillane::Model {

namespace {

std::string toStd(const FXString& text) { return {text.text(), static_cast<size_t>(text.length())}; }

template <class Described>
Described* findByName(std::vector<Described>& all, const std::string& name) {
  const auto found =
      std::find_if(all.begin(), all.end(), [&name](const Described& one) { return sameName(one.name, name); });
  return found == all.end() ? nullptr : &*found;
}

// What follows the name and type of a reference.
std::string referenceText(const Column& column) {
  return "REFERENCES " + quotedName(toStd(column.getTargetTable())) + " (" +
         quotedName(toStd(column.getTargetColumn())) + ") ON DELETE " + (column.isNullable() ? "SET NULL" : "CASCADE");
}

std::string columnText(const Column& column, bool required) {
  std::string text = quotedName(toStd(column.getName())) + (column.getType() == Column::INTEGER ? " INTEGER" : " TEXT");
  if (required) text += " NOT NULL";
  if (column.isReference()) text += " " + referenceText(column);
  return text;
}

// Compares the model with what is there, step by step. Without a connection to change it only tells whether something
// is missing.
class Comparison {
 public:
  Comparison(DatabaseDescription there, Connection* toChange) : description(std::move(there)), connection(toChange) {}

  // False when the first step fails; with nothing to change, when something is missing.
  bool bringInLine(const Table& table) {
    TableDescription* known = findByName(description.tables, toStd(table.getName()));
    return (known ? addMissing(table, *known) : create(table)) && addIndexes(table);
  }

 private:
  bool perform(const std::string& sql) {
    return connection && connection->runQuietly(sql, nullptr, Connection::Counts::Yes);
  }

  bool create(const Table& table) {
    TableDescription made{toStd(table.getName()), {{toStd(table.getKeyName()), false}}};
    std::string sql =
        "create table " + quotedName(made.name) + " (" + quotedName(toStd(table.getKeyName())) + " INTEGER PRIMARY KEY";
    for (FXint i = 0; i < table.getColumns().no(); ++i) {
      const Column& column = *table.getColumns().at(i);
      if (findByName(made.columns, toStd(column.getName()))) continue;
      sql += ", " + columnText(column, !column.isNullable());
      made.columns.push_back({toStd(column.getName()), column.isReference()});
    }
    if (!perform(sql + ")")) return false;
    description.tables.push_back(std::move(made));
    return true;
  }

  bool addMissing(const Table& table, TableDescription& known) {
    if (!findByName(known.columns, toStd(table.getKeyName()))) return lacksKey(table);
    for (FXint i = 0; i < table.getColumns().no(); ++i) {
      const Column& column = *table.getColumns().at(i);
      const std::string name = toStd(column.getName());
      auto* there = findByName(known.columns, name);
      if (!there) {
        // SQLite adds a reference to a table only when it may be NULL, since the rows that exist have no value for it.
        if (!perform("alter table " + quotedName(known.name) + " add column " + columnText(column, false)))
          return false;
        known.columns.push_back({name, column.isReference()});
      } else if (column.isReference() && !there->isReference) {
        if (!connection || !connection->addReference(known.name, there->name, referenceText(column))) return false;
        there->isReference = true;
      }
    }
    return true;
  }

  bool lacksKey(const Table& table) {
    if (connection)
      connection->fail(FXStringFormat(dgettext("quillane", "A(z) %s táblának nincs meg a kulcsa, a(z) %s oszlop."),
                                      table.getName().text(), table.getKeyName().text()));
    return false;
  }

  bool addIndexes(const Table& table) {
    for (FXint i = 0; i < table.getIndexes().no(); ++i) {
      const Index& index = *table.getIndexes().at(i);
      const std::string name = freeName(toStd(index.getName()), toStd(table.getName()));
      if (name.empty()) continue;
      std::string columns;
      for (const FXString& column : index.getColumns())
        columns += (columns.empty() ? "" : ", ") + quotedName(toStd(column));
      if (!perform("create index " + quotedName(name) + " on " + quotedName(toStd(table.getName())) + " (" + columns +
                   ")"))
        return false;
      description.indexes.push_back({name, toStd(table.getName())});
    }
    return true;
  }

  // The name that the index has to be created with, empty when the table has it. Names of indexes are unique in the
  // whole database, so that another table may have taken this one: t_a_b with a column c, and t_a with a column b_c.
  std::string freeName(const std::string& wanted, const std::string& table) {
    std::string name = wanted;
    for (int number = 2;; ++number) {
      const IndexDescription* taken = findByName(description.indexes, name);
      if (!taken) return name;
      if (sameName(taken->table, table)) return {};
      name = wanted + "_" + std::to_string(number);
    }
  }

  DatabaseDescription description;
  Connection* connection;  // not owned
};

}  // namespace

Schema::Schema() = default;

Schema::~Schema() = default;

bool Schema::sync(TarnwellDatabase* database) {
  if (!database) return false;
  for (FXint i = 0; i < tables.no(); ++i) {
    Table& table = *tables.at(i);
    if (!table.declared) table.init();
    table.declared = true;
  }
  const auto all = [this](Comparison comparison) {
    for (FXint i = 0; i < tables.no(); ++i)
      if (!comparison.bringInLine(*tables.at(i))) return false;
    return true;
  };

  Connection& connection = database->getConnection();
  DatabaseDescription description;
  if (!connection.describe(description)) return false;
  if (all({description, nullptr})) return true;

  const bool own = !connection.isInTransaction();
  if (own) {
    if (!connection.begin()) return false;
    // Another program may have been first.
    if (!connection.describe(description)) return connection.rollback() && false;
  }
  const bool done = all({description, &connection});
  if (!own) return done;
  return done ? connection.commit() : (connection.rollback(), false);
}

Column::Column(const FXString& columnName, ColumnType columnType) : name(columnName), type(columnType) {}

Column::Column(const FXString& columnName, ColumnType columnType, bool mayBeNull, const FXString& target,
               const FXString& targetKey, OnDeleteType rule)
    : name(columnName),
      type(columnType),
      nullable(mayBeNull),
      targetTable(target),
      targetColumn(targetKey),
      onDelete(rule) {}

Index::Index(const FXString& indexName, const std::vector<FXString>& indexColumns)
    : name(indexName), columns(indexColumns) {}

Table::Table(Schema* schema, const FXString& tableName) : name(tableName) { schema->tables.append(this); }

Table::~Table() = default;

void Table::addColumn(const FXString& column, Column::ColumnType type) { columns.append(new Column(column, type)); }

void Table::addReference(const FXString& column, Column::ColumnType type, FXuchar nullable, const FXString& targetTable,
                         FXuchar indexed, const FXString& targetColumn, Column::OnDeleteType onDelete) {
  const FXString target = targetColumn.empty() ? targetTable + "_id" : targetColumn;
  columns.append(new Column(column, type, nullable != 0, targetTable, target, onDelete));
  if (indexed) addIndex("i_" + name + "_" + column, {column});
}

void Table::addIndex(const FXString& index, const std::vector<FXString>& indexColumns) {
  indexes.append(new Index(index, indexColumns));
}

}  // namespace Quillane::Model
