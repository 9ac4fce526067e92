#pragma once

#include <sqlite3.h>

#include <string>
#include <vector>

namespace Bench {

/// The statements of loading and saving the item data of one item, prepared once and run by bare SQLite calls: what the
/// module's work costs at the least.
class BareItemData {
 public:
  explicit BareItemData(const std::string& file);
  ~BareItemData();

  /// Reads the settings, the entries and then every entry's own row, and keeps the values.
  void load(int itemId);

  /// Makes the entries of new unit rows, without storing them.
  void make(int rows, const std::vector<int>& variables);

  /// Inserts every entry, in one transaction.
  void insert(int itemId);

  /// Updates every entry, in one transaction.
  void update(int itemId);

  BareItemData(const BareItemData&) = delete;
  BareItemData& operator=(const BareItemData&) = delete;

 private:
  struct Entry {
    int key;
    int variable;
    int row;
    std::string value;
  };

  sqlite3_stmt* prepare(const char* sql);
  void step(sqlite3_stmt* statement, int expected);

  sqlite3* connection = nullptr;
  sqlite3_stmt* selectSettings;
  sqlite3_stmt* selectEntries;
  sqlite3_stmt* selectEntry;
  sqlite3_stmt* insertEntry;
  sqlite3_stmt* updateEntry;
  sqlite3_stmt* begin;
  sqlite3_stmt* commit;
  std::vector<Entry> entries;
};

}  // namespace Bench
