#pragma once

#include <sqlite3.h>

#include <string>
#include <vector>

namespace Bench {

/// The statements of loading and saving the item data of one item, prepared once and run by bare SQLite calls on a
/// connection like the host's: what the module's work costs at the least. What is read is kept, all of it.
class BareItemData {
 public:
  struct Entry {
    int type = 0;
    int key = 0;
    int variable = 0;
    std::string name;
    bool mandatory = false;
    int row = 0;  // of a setting: whether it is recorded per unit
    std::string value;
  };

  explicit BareItemData(const std::string& file);
  ~BareItemData();

  /// Reads the settings, the entries and then every entry's own row, from one state of the database.
  void load(int itemId);

  const std::vector<Entry>& getEntries() const { return entries; }

  /// Makes the entries of new unit rows, without storing them.
  void make(int rows, const std::vector<int>& variables);

  /// Gives every entry but the quantities another value.
  void change(int turn);

  /// Inserts every entry, in one transaction.
  void insert(int itemId);

  /// Updates every entry, in one transaction.
  void update(int itemId);

  BareItemData(const BareItemData&) = delete;
  BareItemData& operator=(const BareItemData&) = delete;

 private:
  sqlite3_stmt* prepare(const char* sql);
  void read(sqlite3_stmt* statement, std::vector<Entry>& list);
  void step(sqlite3_stmt* statement, int expected);

  sqlite3* connection = nullptr;
  sqlite3_stmt* selectSettings;
  sqlite3_stmt* selectEntries;
  sqlite3_stmt* selectEntry;
  sqlite3_stmt* insertEntry;
  sqlite3_stmt* updateEntry;
  sqlite3_stmt* beginReading;
  sqlite3_stmt* begin;
  sqlite3_stmt* commit;
  std::vector<Entry> settings;
  std::vector<Entry> entries;
};

}  // namespace Bench
