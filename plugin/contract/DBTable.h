#pragma once

#include <fx.h>

#include <map>
#include <memory>
#include <vector>

#include "plugin/contract/Database.h"
#include "plugin/contract/HostApi.h"

namespace Quillane {

struct SaveFailure;
struct TableChange;

namespace Host {
class CutOffTip;
}

/// Writes the rows of a DBTable to the database; DBTable::saveToDB calls it, inside a transaction of its own. Values
/// are texts by the database's column names: what was typed, the key of a choice, "1" or "0" of a check box.
class QUILLANE_HOST_API DBTablePersister {
 public:
  virtual ~DBTablePersister();

  /// Writes a changed row: id is its key, values has every column. False when that failed, which ends the saving. By
  /// default does nothing and returns true.
  virtual bool updateItem(int id, std::map<FX::FXString, FX::FXString> values);

  /// Deletes the row with this key. Result and default as of updateItem.
  virtual bool deleteItem(int id);

  /// Writes a new row, under a key that the persister gives it. Result and default as of updateItem.
  virtual bool insertItem(std::map<FX::FXString, FX::FXString> values);

  /// The database's name of a column: 0 is the key, which the table has in its row header, 1 the table's first column.
  /// Columns without a name are not handed over. By default every name is empty.
  virtual FX::FXString getColName(int column);
};

/// One of the texts that a cell can be given, and the key behind it.
struct DBTableChoice {
  FX::FXString key;
  FX::FXString text;
};

/// A table whose rows are records of the database. The columns hold texts, choices or check boxes; the row header holds
/// the record's key, and a text that begins with "-" in rows that are not stored yet.
///
/// The table is shaped first (setTableSize, then the columns' types), then filled through its row loader. What is
/// typed, pasted, cut, added or deleted afterwards stays in the table until saveToDB writes it. The last column takes
/// the room that the others leave.
///
/// In a cell of a choice the first letters of a text choose it; a click on the current cell, the space key and Alt with
/// the arrow down open the list of the texts.
///
/// The context menu adds a row, deletes the selected ones, and cuts, copies and pastes; Insert and Delete do so too
/// while no cell is being edited. Deleting is the target's: it is asked for the state of the command (SEL_UPDATE) when
/// the menu opens and before the key or a button acts, and told (SEL_COMMAND) with the rows to delete selected; it then
/// appends the keys of stored rows to getDeletedKeys() and removes the rows. Without a target the table does that
/// itself.
class QUILLANE_HOST_API DBTable : public FX::FXTable {
  FXDECLARE(DBTable)
 public:
  enum {
    ID_ADD_ROW = FX::FXTable::ID_LAST + 1,  ///< adds an empty row
    ID_TOGGLE,                              ///< toggles the current cell when that is a check box
    ID_DELETE_ROWS,                         ///< deletes the selected rows; also sent to the target
    ID_LAST
  };

  enum COLUMN_TYPES {
    COLUMN_TEXT = 0,
    COLUMN_CHOICE = 1,  ///< one of the texts that setColumnValues gives, with a key behind each
    COLUMN_CHECK = 2    ///< a check box: a click and the space key toggle it
  };

  DBTable(FX::FXComposite* container, FX::FXObject* receiver = nullptr, FX::FXSelector sel = 0, FX::FXuint opts = 0,
          FX::FXint x = 0, FX::FXint y = 0, FX::FXint w = 0, FX::FXint h = 0, FX::FXint pl = 0, FX::FXint pr = 0,
          FX::FXint pt = 0, FX::FXint pb = 0);

  /// Deletes the menu.
  ~DBTable() override;

  /// Creates the menu too.
  void create() override;

  /// Gives the last column the room that the others leave.
  void layout() override;

  /// Makes a new table: all columns hold texts, all rows are new, and nothing is tracked of what was there before.
  void setTableSize(FX::FXint rowCount, FX::FXint columnCount, FX::FXbool notify = FALSE) override;

  /// The rows are new ones, with keys of their own.
  void insertRows(FX::FXint row, FX::FXint count = 1, FX::FXbool notify = FALSE) override;

  /// Only removes the rows from the table; see getDeletedKeys.
  void removeRows(FX::FXint row, FX::FXint count = 1, FX::FXbool notify = FALSE) override;

  /// Empties the cell and keeps it.
  void removeItem(FX::FXint row, FX::FXint column, FX::FXbool notify = FALSE) override;

  /// The loader that appends a stored row for each row of a result: the first value is the key, the others fill the
  /// columns from the left. Owned by the table.
  virtual DataBaseValueLoader* getRowLoader();

  /// Sets the type of a column; what its cells hold is kept. Does nothing when there is no such column.
  void setColumnType(FX::FXint column, COLUMN_TYPES type);

  /// COLUMN_TEXT also when there is no such column.
  COLUMN_TYPES getColumnType(FX::FXint column) const;

  /// Makes a column one of choices, one to a line of values: "key\ttext" when they have keys, else a text that is its
  /// own key.
  void setColumnValues(FX::FXint column, FX::FXString values, bool haveKeys);

  /// The context menu; owned by the table.
  FX::FXMenuPane* getMenu() const { return menu; }

  /// What stands behind the cell's text and is stored: the key of a choice, empty while nothing is chosen; "1" or "0"
  /// of a check box, as it was loaded until it is toggled; else the text. Empty when there is no such cell.
  FX::FXString getValueKey(FX::FXint row, FX::FXint column) const;

  /// Sets what getValueKey returns. A key that is none of the choices is kept and shown as it is.
  void setValueKey(FX::FXint row, FX::FXint column, const FX::FXString& key);

  /// Whether the check box is checked: its value is a number other than 0. False when there is no such cell.
  bool isChecked(FX::FXint row, FX::FXint column) const;

  /// Whether the row is not stored yet.
  bool isNewRow(FX::FXint row) const;

  /// Whether a stored row holds something else than it was loaded with. False for new rows.
  bool isChangedRow(FX::FXint row) const;

  /// The keys of the stored rows that were removed and are to be deleted. Whoever removes a stored row appends its key.
  std::vector<FX::FXint>& getDeletedKeys() { return deletedKeys; }

  /// Hands the deleted, the changed and the new rows to the persister, in one transaction of the account's database.
  /// When one of them cannot be written, nothing is; the user is told which and why and is asked whether to try again,
  /// until that succeeds or the user gives up. True when everything is written, false when the user gave up and
  /// everything is still unsaved.
  ///
  /// Rows are as good as stored afterwards, but new ones have no key: to go on, load the table anew.
  bool saveToDB(DBTablePersister* persister);

  /// Fills the cells from the first selected one on, or from the current one, with a text as spreadsheets copy it:
  /// split at tabs and line ends only. Adds the rows that it needs, drops the columns that there are not, and leaves a
  /// cell alone when the text is none of its choices, or neither "1" nor "0" of a check box.
  void pasteText(const FX::FXString& text);

  long onLeftButtonPress(FX::FXObject* sender, FX::FXSelector selector, void* ptr);
  long onLeftButtonRelease(FX::FXObject* sender, FX::FXSelector selector, void* ptr);
  long onRightButtonPress(FX::FXObject* sender, FX::FXSelector selector, void* ptr);
  long onRightButtonRelease(FX::FXObject* sender, FX::FXSelector selector, void* ptr);
  long onKeyPress(FX::FXObject* sender, FX::FXSelector selector, void* ptr);
  long onMotion(FX::FXObject* sender, FX::FXSelector selector, void* ptr);
  long onQueryTip(FX::FXObject* sender, FX::FXSelector selector, void* ptr);
  long onCutOrClear(FX::FXObject* sender, FX::FXSelector selector, void* ptr);
  long onPaste(FX::FXObject* sender, FX::FXSelector selector, void* ptr);
  long onAddRow(FX::FXObject* sender, FX::FXSelector selector, void* ptr);
  long onToggle(FX::FXObject* sender, FX::FXSelector selector, void* ptr);
  long onDeleteRows(FX::FXObject* sender, FX::FXSelector selector, void* ptr);

  DBTable(const DBTable&) = delete;
  DBTable& operator=(const DBTable&) = delete;

 protected:
  DBTable();

 private:
  class RowLoader;

  struct Column {
    COLUMN_TYPES type = COLUMN_TEXT;
    std::shared_ptr<const std::vector<DBTableChoice>> choices;  // shared with the cells; null for none
  };

  using Values = std::vector<FX::FXString>;

  bool isRow(FX::FXint row) const { return 0 <= row && row < getNumRows(); }
  bool isCell(FX::FXint row, FX::FXint column) const;
  bool isCheckBox(FX::FXint row, FX::FXint column) const;
  bool isChoice(FX::FXint row, FX::FXint column) const;
  FX::FXTableItem* makeItem(FX::FXint column) const;
  FX::FXString makeNewKey();
  void fillRow(FX::FXint row, const FX::FXString& key);
  FX::FXint appendStoredRow(const FX::FXString& key);
  void loadValue(FX::FXint row, FX::FXint column, const FX::FXString& value);
  void renewItems(FX::FXint column);
  Values getValues(FX::FXint row) const;

  void createMenu();
  void openMenu(FX::FXint rootX, FX::FXint rootY);
  void openMenuAtCurrentCell();
  bool askWhetherToDelete();
  bool selectRowsToDelete();
  void deleteSelectedRows();

  bool actOnKey(const FX::FXEvent& key);
  bool isForWindow(const FX::FXEvent& key) const;
  bool isAtRowsEnd(const FX::FXEvent& tab) const;
  bool pastesTable(const FX::FXEvent& key) const;
  void goToCell(FX::FXint row, FX::FXint column);
  void goToNextRow(const FX::FXEvent& tab);
  void goToClickedCell(const FX::FXEvent& click);
  FX::FXTablePos cellAt(const FX::FXEvent& click) const;
  void toggle(FX::FXint row, FX::FXint column);
  void openChoices();
  void takeKeyboard();
  void tellReplaced(FX::FXTableRange range);
  FX::FXString getClipboardText() const;
  FX::FXWindow* getVisibleOwner() const;

  std::vector<TableChange> getChanges(DBTablePersister& persister) const;
  std::map<FX::FXString, FX::FXString> getNamedValues(FX::FXint row, DBTablePersister& persister) const;
  bool tryToSave(DBTablePersister& persister, SaveFailure& failure);
  bool wantsAnotherTry(const SaveFailure& failure);
  void forgetChanges();

  std::vector<Column> columns;
  std::map<FX::FXString, Values> storedRows;  // what the database has, by key; removed rows too
  std::vector<FX::FXint> deletedKeys;
  FX::FXint lastNewRow = 0;                    // the number behind the "-" of the last new row's key
  FX::FXTablePos pressed = {-1, -1};           // the cell on which the left button went down
  bool pressedCurrent = false;                 // whether that was the one with the keyboard already
  FX::FXMenuPane* menu = nullptr;              // owned
  FX::FXMenuCommand* deleteCommand = nullptr;  // the menu's
  std::unique_ptr<DataBaseValueLoader> rowLoader;
  std::unique_ptr<Host::CutOffTip> tip;
};

}  // namespace Quillane
