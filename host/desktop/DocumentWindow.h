#pragma once

#include <fx.h>

#include <memory>
#include <vector>

#include "host/desktop/DocumentSession.h"
#include "host/desktop/Workplace.h"
#include "host/document/Document.h"
#include "host/document/StatusCatalogue.h"
#include "plugin/contract/Forms.h"
#include "plugin/contract/PluginModule.h"

namespace Quillane::Desktop {

class DocumentHeadPanel;
class DocumentItemTable;
class MessageListPanel;

/// The window in which a document is written, checked, stored and closed. A closed document is shown and changes no
/// more.
///
/// It lives on its own: closed by the user or by closeDocument, it deletes itself once the event in hand is over.
class DocumentWindow : public InvoiceForm {
  FXDECLARE_ABSTRACT(DocumentWindow)
 public:
  enum {
    ID_SAVE = InvoiceForm::ID_LAST,
    ID_CHECK,
    ID_NEXT_PROBLEM,
    ID_EXPORT,
    ID_CLOSE_DOCUMENT,  // to the closed status
    ID_MAKE_DRAFT,      // from a pro forma document
    ID_DERIVE,
    ID_CANCEL_DOCUMENT,
    ID_DELETE_DOCUMENT,
    ID_ADD_ITEM,
    ID_CHANGE_ITEM,
    ID_REMOVE_ITEM,
    ID_MOVE_UP,
    ID_MOVE_DOWN,
    ID_HEAD,
    ID_ITEMS,
    ID_MESSAGES,
    ID_TELL_OPENING_ERROR,
    ID_DELETE_WINDOW,
    ID_PLUGIN_ENTRY,  // of the first module; those of the others follow
    ID_LAST_PLUGIN_ENTRY = ID_PLUGIN_ENTRY + 99,
    ID_LAST
  };

  /// A window for document, stored or new, which is checked at once. The workplace is not owned and has to outlive the
  /// window.
  DocumentWindow(Workplace& programWorkplace, std::unique_ptr<Host::Document> document);
  ~DocumentWindow() override;

  /// Gives the focus to where the work begins.
  void create() override;

  Invoice* getInvoice() const override { return &session.getDocument(); }

  /// The id of the document; 0 while it is not stored.
  int getDocumentId() const { return session.getDocument().getId(); }

  /// Whether anything is not stored yet.
  bool isChanged() const { return session.isChanged(); }

  /// Loads the stored document anew, when nothing of it was changed: what it is made of may have changed meanwhile.
  void refresh();

  /// Closes the window: unsaved changes are asked about, the document and the findings about it go, the workplace is
  /// told, and the window deletes itself when the event is over. False when the user stays.
  bool closeDocument();

  /// The same as closeDocument.
  FX::FXbool close(FX::FXbool notify = FALSE) override;

  DocumentSession& getSession() { return session; }
  DocumentHeadPanel* getHeadPanel() const { return head; }
  DocumentItemTable* getItemTable() const { return items; }
  MessageListPanel* getMessagePanel() const { return problems; }

  /// The sum as it stands below the items.
  FX::FXString getSumText() const { return sum->getText(); }

  /// The visible buttons of the modules' entries, in the order of the entries.
  const std::vector<FX::FXButton*>& getPluginButtons() const { return pluginButtons; }

  long onKeyPress(FX::FXObject* sender, FX::FXSelector selector, void* event);
  long onSave(FX::FXObject* sender, FX::FXSelector selector, void* data);
  long onCheck(FX::FXObject* sender, FX::FXSelector selector, void* data);
  long onNextProblem(FX::FXObject* sender, FX::FXSelector selector, void* data);
  long onExport(FX::FXObject* sender, FX::FXSelector selector, void* data);
  long onCloseDocument(FX::FXObject* sender, FX::FXSelector selector, void* data);
  long onMakeDraft(FX::FXObject* sender, FX::FXSelector selector, void* data);
  long onDerive(FX::FXObject* sender, FX::FXSelector selector, void* data);
  long onCancelDocument(FX::FXObject* sender, FX::FXSelector selector, void* data);
  long onDeleteDocument(FX::FXObject* sender, FX::FXSelector selector, void* data);
  long onAddItem(FX::FXObject* sender, FX::FXSelector selector, void* data);
  long onChangeItem(FX::FXObject* sender, FX::FXSelector selector, void* data);
  long onRemoveItem(FX::FXObject* sender, FX::FXSelector selector, void* data);
  long onMoveItem(FX::FXObject* sender, FX::FXSelector selector, void* data);
  long onPluginEntry(FX::FXObject* sender, FX::FXSelector selector, void* data);
  long onHeadChanged(FX::FXObject* sender, FX::FXSelector selector, void* data);
  long onItemPicked(FX::FXObject* sender, FX::FXSelector selector, void* data);
  long onItemKey(FX::FXObject* sender, FX::FXSelector selector, void* data);
  long onMessagePicked(FX::FXObject* sender, FX::FXSelector selector, void* data);
  long onUpdCommand(FX::FXObject* sender, FX::FXSelector selector, void* data);
  long onTellOpeningError(FX::FXObject* sender, FX::FXSelector selector, void* data);
  long onDeleteWindow(FX::FXObject* sender, FX::FXSelector selector, void* data);

  DocumentWindow(const DocumentWindow&) = delete;
  DocumentWindow& operator=(const DocumentWindow&) = delete;

 protected:
  /// Checks the document and shows it anew, since what modules changed in it shows, too.
  void checkAll() override;

 private:
  using MenuPlugin = Plugin::InvoiceItemMenuPlugin;

  void createMenus();
  FX::FXMenuPane* createMenu(const char* title);
  void createDocumentMenu();
  void createItemMenu();
  void createToolBar();
  void createContent();
  void createItems(FX::FXComposite* parent);
  void createItemButtons(FX::FXComposite* parent);
  void createProblems(FX::FXComposite* parent);
  void createContextMenu();

  FX::FXString getName() const;
  void showDocument(int row);
  void showTitle();
  void updateMenus();
  void showSum();
  void tell(const FX::FXString& text);
  void tellError(const FX::FXString& text);
  bool ask(const char* title, const FX::FXString& question);

  bool mayRun(FX::FXuint command) const;
  int findMove(bool closed) const;
  std::vector<Host::Status> listDerivable() const;

  bool saveDocument();
  bool discardChanges();
  bool settleChanges();
  void changeStatus(int status);
  void makeFromThis(int status);
  void runMessage(int index);
  void letGo();

  Workplace& workplace;
  DocumentSession session;
  std::vector<Host::Status> statuses;
  std::vector<MenuPlugin*> plugins;          // not owned
  std::vector<FX::FXButton*> pluginButtons;  // owned by the window tree, as are the panels
  std::vector<std::unique_ptr<FX::FXMenuPane>> menus;
  FX::FXMenuBar* menuBar = nullptr;
  FX::FXStatusBar* statusBar = nullptr;
  DocumentHeadPanel* head = nullptr;
  DocumentItemTable* items = nullptr;
  MessageListPanel* problems = nullptr;
  FX::FXLabel* sum = nullptr;
  FX::FXString openingError;  // what went wrong before there was a window to say it over
  bool closing = false;
};

}  // namespace Quillane::Desktop
