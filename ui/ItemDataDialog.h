#pragma once

#include <fx.h>

#include <memory>

#include "plugin/contract/MemoryGuard.h"

namespace Quillane {

class InvoiceItem;

namespace Plugin::ItemData {

class ItemDataEntry;
class ItemDataList;

namespace UI {
class ItemDataTable;
}

/// The modal window in which the item data of one invoice item are recorded: a field for every per-item variable, and
/// below them a table of the unit rows when there are per-unit variables. Everything that is typed goes straight into
/// the item's entries; there is nothing to cancel. Of a closed document everything is shown and nothing can be changed.
///
/// Callers build it, run execute(), ignore the result and have the document checked again.
class ItemDataDialog : public FX::FXDialogBox {
  // handle is written by hand: a dialog that gets the keyboard gives it to its first field.
  FXDECLARE(ItemDataDialog)
 public:
  enum { ID_TABLE = FX::FXDialogBox::ID_LAST + 1, ID_LAST };

  /// ownerWindow is the window that the dialog belongs to. The invoice item stays the caller's and outlives the dialog.
  ItemDataDialog(FX::FXWindow* ownerWindow, InvoiceItem* invoiceItem);

  /// Takes over what is still being typed into a cell; deletes the data targets.
  ~ItemDataDialog() override;

  /// Builds the fields and the table inside container.
  void createContent(FX::FXComposite* container);

  /// The table of the unit rows, or null when there is none; a child of the dialog.
  UI::ItemDataTable* getTable() const { return table; }

  /// Tells the other entries of the table's row that the quantity in column changed.
  void triggerQtyChange(int row, int column);

  /// The table has appended rows: fills them with new entries.
  long onAddRow(FX::FXObject* sender, FX::FXSelector sel, void* ptr);

  /// The table is about to remove the row whose index is the data: marks its entries for deletion.
  long onDeleteRow(FX::FXObject* sender, FX::FXSelector sel, void* ptr);

  /// Cells of the table have new texts; the data is their FXTableRange.
  long onChange(FX::FXObject* sender, FX::FXSelector sel, void* ptr);

 protected:
  ItemDataDialog();

 private:
  bool isReadOnly() const;
  void takeList();
  void createFields(FX::FXComposite* container);
  void createTable(FX::FXComposite* container);
  void createMenu();
  void createCells();
  void createHeader(int index);
  void createButtons(FX::FXComposite* container);
  void proposeQuantities(int firstNew);
  bool fitsColumn(const ItemDataEntry& entry, int column) const;

  InvoiceItem* item;                      // not owned
  MemoryGuard<FX::FXDataTarget> targets;  // the fields'
  UI::ItemDataTable* table;               // a child; null when there is none
  ItemDataList* list;                     // not owned; null when the item has no item data
  std::unique_ptr<ItemDataList> copy;     // what list is when a closed document's item data have to be completed

  ItemDataDialog(const ItemDataDialog&) = delete;
  ItemDataDialog& operator=(const ItemDataDialog&) = delete;
};

}  // namespace Plugin::ItemData
}  // namespace Quillane
