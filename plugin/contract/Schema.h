#pragma once

#include <fx.h>

#include <vector>

#include "plugin/contract/HostApi.h"
#include "plugin/contract/ManagedObjectList.h"

class TarnwellDatabase;

namespace Quillane::Model {

class Table;

/// The tables that a program or a module needs in the database.
class QUILLANE_HOST_API Schema : public FX::FXObject {
  FXDECLARE(Schema)
 public:
  Schema();

  /// Deletes its tables.
  ~Schema() override;

  /// Brings the database in line with the model: calls init of every table that was not asked yet, then creates the
  /// tables, columns, references and indexes that are missing, in whatever order the tables were registered. Nothing
  /// that exists is changed or removed, a second run changes nothing and writes nothing. What is created is created in
  /// one transaction, in the running one if there is one. False when it failed: TarnwellDatabase::getLastError says
  /// why, and, without a transaction of the caller's, nothing is changed.
  bool sync(TarnwellDatabase* database);

  /// The tables in the order of registration; the schema owns them.
  const FX::FXManagedObjectListOf<Table>& getTables() const { return tables; }

 private:
  friend class Table;

  FX::FXManagedObjectListOf<Table> tables;
};

/// One column of a table.
class QUILLANE_HOST_API Column : public FX::FXObject {
  FXDECLARE(Column)
 public:
  enum ColumnType { TEXT = 0, INTEGER = 1 };

  /// What becomes of a row when the row that it refers to is deleted.
  enum OnDeleteType {
    FOLLOW_TARGET = 4  /// it is deleted as well when the reference is required; a nullable reference is cleared
  };

  /// A column that is no reference; it may be NULL.
  Column(const FX::FXString& name, ColumnType type);

  /// A reference to targetColumn of targetTable.
  Column(const FX::FXString& name, ColumnType type, bool nullable, const FX::FXString& targetTable,
         const FX::FXString& targetColumn, OnDeleteType onDelete);

  const FX::FXString& getName() const { return name; }
  ColumnType getType() const { return type; }
  bool isNullable() const { return nullable; }

  /// Whether the column is a reference; only then do the following mean anything.
  bool isReference() const { return !targetTable.empty(); }
  const FX::FXString& getTargetTable() const { return targetTable; }
  const FX::FXString& getTargetColumn() const { return targetColumn; }
  OnDeleteType getOnDelete() const { return onDelete; }

 protected:
  Column() = default;

 private:
  FX::FXString name;
  ColumnType type = TEXT;
  bool nullable = true;
  FX::FXString targetTable;
  FX::FXString targetColumn;
  OnDeleteType onDelete = FOLLOW_TARGET;
};

/// One index over columns of a table.
class QUILLANE_HOST_API Index : public FX::FXObject {
  FXDECLARE(Index)
 public:
  Index(const FX::FXString& name, const std::vector<FX::FXString>& columns);

  const FX::FXString& getName() const { return name; }
  const std::vector<FX::FXString>& getColumns() const { return columns; }

 protected:
  Index() = default;

 private:
  FX::FXString name;
  std::vector<FX::FXString> columns;
};

/// One table. Besides its declared columns it has the key NAME_id, an integer.
class QUILLANE_HOST_API Table : public FX::FXObject {
  FXDECLARE_ABSTRACT(Table)
 public:
  /// Registers the table with schema, which owns it from then on.
  Table(Schema* schema, const FX::FXString& name);

  ~Table() override;

  /// Declares the table's columns and indexes; called once, by the schema's sync.
  virtual void init() = 0;

  /// Declares a column, which may be NULL.
  void addColumn(const FX::FXString& column, Column::ColumnType type);

  /// Declares a column that refers to targetColumn (empty: the key) of targetTable, which may be registered later,
  /// belong to another schema or be this table. indexed: the column gets an index of its own, i_TABLE_COLUMN. A
  /// required reference (nullable 0) that is added to a table that exists already may be NULL all the same.
  void addReference(const FX::FXString& column, Column::ColumnType type, FX::FXuchar nullable,
                    const FX::FXString& targetTable, FX::FXuchar indexed, const FX::FXString& targetColumn,
                    Column::OnDeleteType onDelete);

  /// Declares an index over columns. Index names are unique in a database.
  void addIndex(const FX::FXString& index, const std::vector<FX::FXString>& indexColumns);

  const FX::FXString& getName() const { return name; }

  /// NAME_id.
  FX::FXString getKeyName() const { return name + "_id"; }

  /// What was declared, in the order of declaration; the table owns it.
  const FX::FXManagedObjectListOf<Column>& getColumns() const { return columns; }
  const FX::FXManagedObjectListOf<Index>& getIndexes() const { return indexes; }

 protected:
  Table() = default;

 private:
  friend class Schema;

  FX::FXString name;
  bool declared = false;  // init was called
  FX::FXManagedObjectListOf<Column> columns;
  FX::FXManagedObjectListOf<Index> indexes;
};

}  // namespace Quillane::Model
