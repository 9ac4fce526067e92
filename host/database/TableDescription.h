#pragma once

#include <string>
#include <vector>

namespace Quillane::Database {

/// A column as it is in the database.
struct ColumnDescription {
  std::string name;
  bool isReference = false;
};

/// A table as it is in the database.
struct TableDescription {
  std::string name;
  std::vector<ColumnDescription> columns;
};

/// An index as it is in the database.
struct IndexDescription {
  std::string name;
  std::string table;
};

/// What there is in a database.
struct DatabaseDescription {
  std::vector<TableDescription> tables;
  std::vector<IndexDescription> indexes;
};

}  // namespace Quillane::Database
