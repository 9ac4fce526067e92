#pragma once

#include "plugin/contract/Database.h"

namespace Quillane {

class Entity;

namespace Plugin::ItemData {

class ItemDataEntry;
class ItemDataList;

/// Makes the entries of a list from result rows of seven columns: 0 type, 1 key, 2 variable id, 3 name, 4 mandatory,
/// 5 process (of an assignment) or row (of a recorded value), 6 parameter (of an assignment) or value.
///
/// Rows without a key are new data: assignments, or the values of a source item. The first of them that is recorded per
/// unit puts the quantity entry before itself and tells the list where its unit part begins.
class ItemDataListLoader : public DataBaseValueLoader {
 public:
  /// Fills filledList with entries for entryOwner; owns neither.
  ItemDataListLoader(ItemDataList* filledList, Entity* entryOwner) : list(filledList), owner(entryOwner) {}

  /// Deletes an entry whose row was broken off.
  ~ItemDataListLoader() override;

  bool processValue(int column, const char* name, const char* text) override;

 private:
  void placeNewEntry(int process);
  void placeStoredEntry(int row);
  void appendQuantityEntry();

  ItemDataEntry* current = nullptr;  // owned until it is appended; null when the row is skipped
  ItemDataList* list;                // not owned
  Entity* owner;                     // not owned
  int firstRow = -2;                 // the first stored unit row that was met, -2 until then
};

}  // namespace Plugin::ItemData
}  // namespace Quillane
