#pragma once

#include <fx.h>

#include "plugin/contract/DBTable.h"
#include "plugin/contract/PluginSettingsDialogBox.h"

class TarnwellDatabase;

namespace Quillane::Plugin {

class PluginContainer;

namespace ItemData {

class ItemDataSettingsPersister;

/// The module's settings: a table in which the item variables are defined, one row for each. What is typed stays in the
/// table until save; accepting the dialog only makes sure that no row lacks what it needs, and goes to what is missing.
///
/// Callers build it, set its size, run execute() and save it when that does not return 0.
class ItemDataSettingsPanel : public Plugin::UI::PluginSettingsDialogBox {
  FXDECLARE(ItemDataSettingsPanel)
 public:
  enum {
    ID_DELETE = 90,  ///< the table's command that deletes the selected rows
    ID_TABLE = 103
  };

  /// The container is the module's. The application has to be the account, whose database has to outlive the panel.
  ItemDataSettingsPanel(PluginContainer* container, FX::FXApp* application);
  ~ItemDataSettingsPanel() override;

  /// Also loads the variables, the first time that it is called.
  void create() override;

  /// Gives the table its columns and no rows.
  void setColumnTexts();

  /// Returns 1 when every row has a name and a type, and every list its choices; else 0.
  FX::FXuchar checkItemList();

  /// Writes what was inserted, changed and deleted. Always returns 1: the table itself tells the user what it could not
  /// write.
  int save(ItemDataSettingsPersister* persister);

  /// The table of the variables; a child of the dialog.
  DBTable* getTable() const { return table; }

  /// Accepts the dialog, or tells the user what is missing and leaves it open.
  long onOKButton(FX::FXObject* sender, FX::FXSelector sel, void* ptr);

  /// Removes the selected rows when the user agrees; stored ones are deleted by save.
  long onDelete(FX::FXObject* sender, FX::FXSelector sel, void* ptr);

  /// Enables the sender when the current row's variable is assigned to no article, else disables it. Asks the database.
  long isDeleteEnabled(FX::FXObject* sender, FX::FXSelector sel, void* ptr);

  /// Does nothing.
  long onContextMenu(FX::FXObject* sender, FX::FXSelector sel, void* ptr);

 protected:
  ItemDataSettingsPanel();

 private:
  void createTable(FX::FXComposite* container);
  void createButtons(FX::FXComposite* container);
  void createHint(FX::FXComposite* container);
  void loadVariables();
  FX::FXTablePos findMissing() const;
  void goTo(FX::FXTablePos cell);
  void tellInUse(int row) const;
  FX::FXString askingForDeletion(int firstRow, int lastRow) const;
  void rememberDeleted(int firstRow, int lastRow);

  TarnwellDatabase* db;  // not owned
  DBTable* table;        // a child
  FX::FXApp* app;        // not owned
  FX::FXLabel* hint;     // a child
  bool loaded;           // whether the variables are in the table

  ItemDataSettingsPanel(const ItemDataSettingsPanel&) = delete;
  ItemDataSettingsPanel& operator=(const ItemDataSettingsPanel&) = delete;
};

}  // namespace ItemData
}  // namespace Quillane::Plugin
