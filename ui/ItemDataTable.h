#pragma once

#include <fx.h>

namespace Quillane::Plugin::ItemData {

class ItemDataEntry;

namespace UI {

/// The table of unit rows in the item data dialog: a toolkit table whose cells edit entries (the data of a cell is its
/// entry), with a pop-up menu that adds and deletes rows. Its target is told of both under the table's own numbers, so
/// that it fills a new row and takes leave of the entries of one that goes.
///
/// Cutting and clearing empty the entries and keep the cells. Pasting splits the text at tabs and line ends, adds the
/// rows that it needs, drops the columns that there are not, and leaves a list cell alone when the text is none of its
/// choices; when it leaves the quantities out, every row that it fills counts one.
class ItemDataTable : public FX::FXTable {
  // handle is written by hand: it looks at a few messages of the toolkit's table before the message map does.
  FXDECLARE(ItemDataTable)
 public:
  enum {
    ID_ADD_ROW = FX::FXTable::ID_LAST + 1,  ///< to the target: rows were appended, the table is the data
    ID_DELETE_ROW,                          ///< to the target: the row is about to go, its index is the data
    ID_LAST
  };

  ItemDataTable(FX::FXComposite* container, FX::FXObject* receiver, FX::FXSelector sel, FX::FXuint opts, FX::FXint x,
                FX::FXint y, FX::FXint w, FX::FXint h, FX::FXint pl, FX::FXint pr, FX::FXint pt, FX::FXint pb);

  /// Deletes the menu.
  ~ItemDataTable() override;

  /// Creates the menu too.
  void create() override;

  /// Empties a cell that edits an entry, and tells the target afterwards; removes any other cell.
  void removeItem(FX::FXint row, FX::FXint column, FX::FXbool notify = FALSE) override;

  /// Also makes the label name the cell.
  void setCurrentItem(FX::FXint row, FX::FXint column, FX::FXbool notify = FALSE) override;

  /// The pop-up menu, or null; owned by the table. Setting one deletes the earlier one.
  FX::FXMenuPane* getMenu() const { return menu; }
  void setMenu(FX::FXMenuPane* pane);

  /// The label that names the variable and the row of the current cell; not owned, null for none.
  void setCellLabel(FX::FXLabel* label);

  /// The entry that the cell edits; null when it edits none, or is no cell of the table.
  ItemDataEntry* getEntry(FX::FXint row, FX::FXint column) const;

  /// Gives the cell its item, which the table owns from then on. A cell that had none is not drawn anew for it: rows
  /// that were appended are drawn as a whole.
  void placeItem(FX::FXint row, FX::FXint column, FX::FXTableItem* item);

  /// Fills the cells from the first selected one on, or from the current one, with a text as spreadsheets copy it.
  void pasteText(const FX::FXString& text);

  long onContextMenu(FX::FXObject* sender, FX::FXSelector sel, void* ptr);
  long onAddRow(FX::FXObject* sender, FX::FXSelector sel, void* ptr);
  long onDeleteRow(FX::FXObject* sender, FX::FXSelector sel, void* ptr);

 protected:
  ItemDataTable() : menu(nullptr), cellLabel(nullptr) {}

  /// A list begins at the choice that the cell shows.
  FX::FXWindow* getControlForItem(FX::FXint row, FX::FXint column) override;

 private:
  bool isCell(FX::FXint row, FX::FXint column) const;
  bool isForDialog(const FX::FXEvent& key) const;
  bool isAtRowsEnd(const FX::FXEvent& tab) const;
  bool pastesTable(const FX::FXEvent& key) const;
  bool actOnListKey(const FX::FXEvent& key);
  bool isList(FX::FXint row, FX::FXint column) const;
  void lookUp(const FX::FXEvent& key);
  void goToNextRow(const FX::FXEvent& tab);
  void goToClickedCell(const FX::FXEvent& click);
  FX::FXString getClipboardText() const;
  void appendRows(FX::FXint count);
  void fillCell(FX::FXint row, FX::FXint column, const FX::FXString& text);
  void countOneEach(const FX::FXTableRange& filled);
  void tellReplaced(FX::FXTableRange range);
  void nameCurrentCell();

  FX::FXMenuPane* menu;    // owned, may be null
  FX::FXLabel* cellLabel;  // not owned, may be null
  FX::FXString typed;      // what a choice is being looked up by
  FX::FXuint typedAt = 0;  // when the last letter of it came, in milliseconds

  ItemDataTable(const ItemDataTable&) = delete;
  ItemDataTable& operator=(const ItemDataTable&) = delete;
};

}  // namespace UI
}  // namespace Quillane::Plugin::ItemData
