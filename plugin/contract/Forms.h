#pragma once

#include <fx.h>

#include <vector>

#include "plugin/contract/HostApi.h"

namespace Quillane {

class Invoice;

namespace Plugin {
class InvoiceItemMenuPlugin;
}

/// A window of its own in which a record of the company is edited.
class QUILLANE_HOST_API DBForm : public FX::FXMainWindow {
  FXDECLARE_ABSTRACT(DBForm)
 public:
  enum { ID_CHECK_ALL = FX::FXMainWindow::ID_LAST, ID_LAST };

  DBForm(FX::FXApp* application, const FX::FXString& windowTitle, FX::FXIcon* windowIcon = nullptr,
         FX::FXIcon* windowMiniIcon = nullptr, FX::FXuint opts = FX::DECOR_ALL, int x = 0, int y = 0, int w = 0,
         int h = 0);
  /// Forgets a check that was asked for.
  ~DBForm() override;

  /// Asks that what is edited be checked again. That happens once the work in hand is over and no other window is modal
  /// any more, and once however often it was asked for: the caller may belong to a message that the check deletes.
  virtual void proposeCheckAll();

  long onCheckAll(FX::FXObject* sender, FX::FXSelector selector, void* ptr);

  DBForm(const DBForm&) = delete;
  DBForm& operator=(const DBForm&) = delete;

 protected:
  DBForm() = default;

  /// Checks what is edited and shows the findings in place of the earlier ones.
  virtual void checkAll() = 0;
};

/// The window in which a document is edited.
class QUILLANE_HOST_API InvoiceForm : public DBForm {
  FXDECLARE_ABSTRACT(InvoiceForm)
 public:
  using DBForm::DBForm;

  /// The document that is being edited; owned by the form. The address changes when it is loaded anew.
  virtual Invoice* getInvoice() const = 0;

  InvoiceForm(const InvoiceForm&) = delete;
  InvoiceForm& operator=(const InvoiceForm&) = delete;

 protected:
  InvoiceForm() = default;
};

/// The table of a document's items, one row for each in the document's order, with a context menu to which modules add
/// entries. The menu's owner is the table, so a command of the menu finds the table as its owner's owner.
///
/// Rows are selected whole and cells are not edited in place. Keys that do nothing in such a table (Tab, Delete, F2,
/// letters) are left to the window around it. A double click and Return reach the target as SEL_DOUBLECLICKED.
class QUILLANE_HOST_API InvoiceItemTable : public FX::FXTable {
  FXDECLARE(InvoiceItemTable)
 public:
  InvoiceItemTable(FX::FXComposite* tableParent, InvoiceForm* invoiceForm, FX::FXObject* tgt = nullptr,
                   FX::FXSelector sel = 0, FX::FXuint opts = 0);
  /// Deletes the menu.
  ~InvoiceItemTable() override;

  /// Creates the menu, too.
  void create() override;

  /// Selects the rows of the range whole, whatever its columns.
  FX::FXbool selectRange(FX::FXint startRow, FX::FXint endRow, FX::FXint startColumn, FX::FXint endColumn,
                         FX::FXbool notify = FALSE) override;

  /// The form that the table belongs to; not owned.
  InvoiceForm* getForm() const { return form; }

  /// The context menu; owned by the table. The form puts its own commands in before the first entry of a module.
  FX::FXMenuPane* getMenu() const { return menu; }

  /// Adds the entry of a module to the context menu, behind the form's own commands and a separator, and returns its
  /// command, which the menu owns. Entries are ordered by their positions, equal ones as they were added. The plug-in
  /// stays its container's and has to live as long as the table.
  FX::FXMenuCommand* appendPluginEntry(Plugin::InvoiceItemMenuPlugin* plugin);

  /// Runs the entry of a module as if the user had picked it from the menu. False when it cannot be picked now or was
  /// never added.
  bool runPluginEntry(Plugin::InvoiceItemMenuPlugin* plugin);

  /// Whether the row is among the selected ones.
  bool isInSelection(FX::FXint row) const;

  /// Makes row the current and the only selected one, and tells the target. Does nothing when there is no such row.
  void selectOnly(FX::FXint row);

  long onRightButtonPress(FX::FXObject* sender, FX::FXSelector selector, void* ptr);
  long onRightButtonRelease(FX::FXObject* sender, FX::FXSelector selector, void* ptr);
  long onKeyPress(FX::FXObject* sender, FX::FXSelector selector, void* ptr);
  long onMark(FX::FXObject* sender, FX::FXSelector selector, void* ptr);

  InvoiceItemTable(const InvoiceItemTable&) = delete;
  InvoiceItemTable& operator=(const InvoiceItemTable&) = delete;

 protected:
  InvoiceItemTable() = default;

 private:
  struct PluginEntry {
    Plugin::InvoiceItemMenuPlugin* plugin;  // its container's
    FX::FXMenuCommand* command;             // the menu's
  };

  bool isRow(FX::FXint row) const { return 0 <= row && row < getNumRows(); }
  void openMenu(FX::FXint rootX, FX::FXint rootY);
  void openMenuAtCurrentCell();

  InvoiceForm* form = nullptr;             // not owned
  FX::FXMenuPane* menu = nullptr;          // owned
  std::vector<PluginEntry> pluginEntries;  // in the order of the menu
};

}  // namespace Quillane
