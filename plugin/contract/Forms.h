#pragma once

#include <fx.h>

#include <memory>
#include <vector>

#include "plugin/contract/HostApi.h"

class TarnwellDatabase;

namespace Quillane {

class Invoice;

namespace Host {
struct Article;
}

namespace Plugin {
class InvoiceItemMenuPlugin;

namespace PanelProvider {
class Handler;
class Plugin;
}  // namespace PanelProvider
}  // namespace Plugin

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

/// The window in which a record is edited to which modules add panels: the record's own fields stand on the first tab,
/// and every panel on a tab of its own, with its icon and name.
///
/// OK writes everything in one transaction: the record first, so that the panels find its id, then every panel. What
/// cannot be written is told, nothing of it is left in the database, and the window stays with all that was typed.
class QUILLANE_HOST_API PanelisedWindow : public FX::FXDialogBox {
  FXDECLARE(PanelisedWindow)
 public:
  enum { ID_TABS = FX::FXDialogBox::ID_LAST, ID_LAST };

  /// The database and the icon are not owned and have to outlive the window.
  PanelisedWindow(FX::FXWindow* ownerWindow, TarnwellDatabase& companyDatabase, const FX::FXString& windowTitle,
                  FX::FXIcon* windowMiniIcon = nullptr);
  /// Deletes the panels' handlers before the panels.
  ~PanelisedWindow() override;

  /// Stands over its owner unless it is told otherwise.
  FX::FXuint execute(FX::FXuint placement = FX::PLACEMENT_OWNER) override;

  /// The key of the record; 0 or less while it is not stored.
  int getRecordId() const { return recordId; }

  /// Asks every provider for its panel and adds those that there are. To be called once, when the window is made and
  /// before it is created. The providers stay their containers' and have to outlive the window.
  void addPanels(const std::vector<Plugin::PanelProvider::Plugin*>& providers);

  /// The handlers of the panels, in the order of the tabs; owned by the window.
  const std::vector<std::unique_ptr<Plugin::PanelProvider::Handler>>& getHandlers() const { return handlers; }

  /// The tabs; owned by the window tree.
  FX::FXTabBook* getTabs() const { return tabs; }

  /// Brings the tab with this number to the front; 0 is the record's own.
  void showTab(int tab);

  long onCmdAccept(FX::FXObject* sender, FX::FXSelector selector, void* ptr);
  long onCmdCancel(FX::FXObject* sender, FX::FXSelector selector, void* ptr);
  long onTab(FX::FXObject* sender, FX::FXSelector selector, void* ptr);

  PanelisedWindow(const PanelisedWindow&) = delete;
  PanelisedWindow& operator=(const PanelisedWindow&) = delete;

 protected:
  PanelisedWindow();

  /// Writes the record, inside a transaction, and sets its id. False with a sentence in reason when the record is not
  /// fit to be stored, without one when a statement failed. By default there is nothing to write.
  virtual bool writeRecord(FX::FXString& reason);

  /// Called when the transaction failed, after the user was told. What writeRecord did was taken back, and the id is
  /// what it was before. By default does nothing.
  virtual void recordRefused();

  void setRecordId(int id) { recordId = id; }

  /// Where a derived window puts the record's own fields; owned by the window tree.
  FX::FXVerticalFrame* getFieldFrame() const { return fieldFrame; }

  TarnwellDatabase& getDatabase() const { return *database; }

 private:
  FX::FXVerticalFrame* addTab(const FX::FXString& label, FX::FXIcon* tabIcon);
  void addPanel(Plugin::PanelProvider::Plugin& provider);
  bool writeAll(FX::FXString& reason, FX::FXObject* sender, FX::FXSelector selector, void* ptr);

  TarnwellDatabase* database = nullptr;  // not owned
  int recordId = 0;
  FX::FXTabBook* tabs = nullptr;                                          // owned by the window tree
  FX::FXVerticalFrame* fieldFrame = nullptr;                              // owned by the window tree
  std::vector<std::unique_ptr<Plugin::PanelProvider::Handler>> handlers;  // one for every tab behind the first
};

/// The window of an article, with the fields that articles of all kinds have.
class QUILLANE_HOST_API ArticleDataWindow : public PanelisedWindow {
  FXDECLARE_ABSTRACT(ArticleDataWindow)
 public:
  ~ArticleDataWindow() override;

  /// The cursor begins in the name.
  void show(FX::FXuint placement) override;
  using PanelisedWindow::show;

  /// The window for an article of this kind, with the panels of the providers; parameters as for its constructor. A
  /// kind that there is not gets the window of a product.
  static std::unique_ptr<ArticleDataWindow> make(FX::FXWindow* ownerWindow, TarnwellDatabase& companyDatabase,
                                                 const Host::Article& begun, FX::FXIcon* windowMiniIcon,
                                                 const std::vector<Plugin::PanelProvider::Plugin*>& providers);

  /// The article as it was stored; of use when the window was accepted.
  const Host::Article& getArticle() const { return *article; }

  FX::FXTextField* getNameField() const { return nameField; }
  FX::FXTextField* getUnitField() const { return unitField; }
  FX::FXTextField* getPriceField() const { return priceField; }

  ArticleDataWindow(const ArticleDataWindow&) = delete;
  ArticleDataWindow& operator=(const ArticleDataWindow&) = delete;

 protected:
  ArticleDataWindow();

  /// Begins with the article's data. The kind is the derived window's, whatever the article says.
  ArticleDataWindow(FX::FXWindow* ownerWindow, TarnwellDatabase& companyDatabase, const Host::Article& begun, int kind,
                    const char* windowTitle, FX::FXIcon* windowMiniIcon);

  bool writeRecord(FX::FXString& reason) override;
  void recordRefused() override;

 private:
  void createFields();

  std::unique_ptr<Host::Article> article;  // as it was stored; before that, as it began or was last to be stored
  bool fieldsRefused = false;              // whether what was typed was not fit to be stored
  FX::FXTextField* nameField = nullptr;    // owned by the window tree, as the following
  FX::FXTextField* unitField = nullptr;
  FX::FXTextField* priceField = nullptr;
};

class QUILLANE_HOST_API ProductDataWindow : public ArticleDataWindow {
  FXDECLARE(ProductDataWindow)
 public:
  ProductDataWindow(FX::FXWindow* ownerWindow, TarnwellDatabase& companyDatabase, const Host::Article& begun,
                    FX::FXIcon* windowMiniIcon = nullptr);

 protected:
  ProductDataWindow() = default;
};

class QUILLANE_HOST_API SuiteDataWindow : public ArticleDataWindow {
  FXDECLARE(SuiteDataWindow)
 public:
  SuiteDataWindow(FX::FXWindow* ownerWindow, TarnwellDatabase& companyDatabase, const Host::Article& begun,
                  FX::FXIcon* windowMiniIcon = nullptr);

 protected:
  SuiteDataWindow() = default;
};

class QUILLANE_HOST_API ServiceDataWindow : public ArticleDataWindow {
  FXDECLARE(ServiceDataWindow)
 public:
  ServiceDataWindow(FX::FXWindow* ownerWindow, TarnwellDatabase& companyDatabase, const Host::Article& begun,
                    FX::FXIcon* windowMiniIcon = nullptr);

 protected:
  ServiceDataWindow() = default;
};

}  // namespace Quillane
