#pragma once

#include <fx.h>

#include <map>
#include <memory>

#include "plugin/contract/DBTable.h"

class DeleteStatement;
class InsertStatement;
class TarnwellDatabase;
class UpdateStatement;

namespace Quillane::Plugin::ItemData {

/// Writes the rows of the settings table to t_itemvariable; the table calls it row by row when it is saved. Values
/// recorded under a variable stay as they are, whatever becomes of the variable.
class ItemDataSettingsPersister : public DBTablePersister {
 public:
  /// The database stays the caller's and has to outlive the persister.
  explicit ItemDataSettingsPersister(TarnwellDatabase* database);
  ~ItemDataSettingsPersister() override;

  /// Sets all columns of the row with this key; a column that values does not name is emptied. False when the row could
  /// not be written.
  bool updateItem(int id, std::map<FX::FXString, FX::FXString> values) override;

  /// Deletes the row with this key. False when that failed.
  bool deleteItem(int id) override;

  /// Inserts a row with a new key and updates it. False when it could not be updated, as when it was not inserted.
  bool insertItem(std::map<FX::FXString, FX::FXString> values) override;

  /// The database's name of a column: 1 is the first of the table's, 0 the key in front of it. Empty for the key and
  /// for any number that is no column's.
  FX::FXString getColName(int column) override;

  ItemDataSettingsPersister(const ItemDataSettingsPersister&) = delete;
  ItemDataSettingsPersister& operator=(const ItemDataSettingsPersister&) = delete;

 private:
  std::unique_ptr<UpdateStatement> update;
  std::unique_ptr<InsertStatement> insert;
  std::unique_ptr<DeleteStatement> remove;
  TarnwellDatabase* db;  // not owned
};

}  // namespace Quillane::Plugin::ItemData
