#pragma once

#include <fx.h>

#include <functional>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "host/desktop/BatchRun.h"
#include "host/desktop/CompanyFile.h"
#include "host/desktop/DocumentListPanel.h"
#include "host/desktop/Workplace.h"
#include "host/document/StatusCatalogue.h"

namespace Quillane::Desktop {

/// The program's first window: the documents of the company, and the commands on them. Closing it ends the program.
class MainWindow : public FX::FXMainWindow, public Workplace {
  FXDECLARE(MainWindow)
 public:
  enum {
    ID_DOCUMENTS = FX::FXMainWindow::ID_LAST,
    ID_COUNT,
    ID_NEW_DOCUMENT,  // of the first status that is not closed; those of the others follow
    ID_LAST_NEW_DOCUMENT = ID_NEW_DOCUMENT + 31,
    ID_OPEN,
    ID_EXPORT,
    ID_CLOSE_DOCUMENTS,
    ID_DELETE_DOCUMENTS,
    ID_SELECT_ALL,
    ID_SEARCH,
    ID_RELOAD,
    ID_PARTNERS,
    ID_ARTICLES,
    ID_OPEN_COMPANY,
    ID_NEW_COMPANY,
    ID_ABOUT,
    ID_QUIT,
    ID_PLUGINS,
    ID_PLUGIN_SETTINGS,  // of the first module; those of the others follow
    ID_LAST_PLUGIN_SETTINGS = ID_PLUGIN_SETTINGS + 31,
    ID_FORGET_RESULT,
    ID_LAST
  };

  /// Nothing is owned, and all have to outlive the window. A company that is open already is shown.
  MainWindow(Tarnwell& programAccount, Host::Company& programCompany, CompanyFile& programFile,
             const Host::IconSet& programIcons);
  /// Closes the documents' windows without asking.
  ~MainWindow() override;

  /// The list has the focus.
  void create() override;

  /// Shows the window where the user left it the last time, or else in the middle of the screen.
  void appear();

  Tarnwell& getAccount() override { return *account; }
  Host::Company& getCompany() override { return *company; }
  const Host::IconSet& getIcons() const override { return *icons; }
  bool openDocument(int id) override;
  void documentsChanged() override;
  void windowClosed(DocumentWindow& window) override;

  /// Opens the company in this file in place of the one that is open, after the windows of its documents were closed.
  /// False when the user stays with it or was told why it cannot be opened.
  bool openCompany(const FX::FXString& file);

  /// The same with a company that is made.
  bool makeCompany(const FX::FXString& file, CompanyFile::Content content);

  /// Asks for the file and opens it, or makes it.
  bool askCompanyToOpen();
  bool askCompanyToMake(CompanyFile::Content content);

  /// Names the modules that could not be used, once for each.
  void tellRejectedModules();

  /// Closes the windows of all documents, asking about unsaved changes; false when the user stays in one.
  bool closeDocumentWindows();

  DocumentListPanel* getPanel() const { return panel; }

  /// The menu with the modules' settings; owned by the window.
  FX::FXMenuPane* getPluginMenu() const { return pluginMenu; }

  /// The windows of documents, in the order of their opening; not owned, they delete themselves.
  const std::vector<DocumentWindow*>& getDocumentWindows() const { return documentWindows; }

  long onNewDocument(FX::FXObject* sender, FX::FXSelector selector, void* data);
  long onOpen(FX::FXObject* sender, FX::FXSelector selector, void* data);
  long onExport(FX::FXObject* sender, FX::FXSelector selector, void* data);
  long onCloseDocuments(FX::FXObject* sender, FX::FXSelector selector, void* data);
  long onDeleteDocuments(FX::FXObject* sender, FX::FXSelector selector, void* data);
  long onSelectAll(FX::FXObject* sender, FX::FXSelector selector, void* data);
  long onSearch(FX::FXObject* sender, FX::FXSelector selector, void* data);
  long onReload(FX::FXObject* sender, FX::FXSelector selector, void* data);
  long onPartners(FX::FXObject* sender, FX::FXSelector selector, void* data);
  long onArticles(FX::FXObject* sender, FX::FXSelector selector, void* data);
  long onOpenCompany(FX::FXObject* sender, FX::FXSelector selector, void* data);
  long onNewCompany(FX::FXObject* sender, FX::FXSelector selector, void* data);
  long onPlugins(FX::FXObject* sender, FX::FXSelector selector, void* data);
  long onPluginSettings(FX::FXObject* sender, FX::FXSelector selector, void* data);
  long onAbout(FX::FXObject* sender, FX::FXSelector selector, void* data);
  long onQuit(FX::FXObject* sender, FX::FXSelector selector, void* data);
  long onForgetResult(FX::FXObject* sender, FX::FXSelector selector, void* data);
  long onUpdCount(FX::FXObject* sender, FX::FXSelector selector, void* data);
  long onUpdNeedsSelection(FX::FXObject* sender, FX::FXSelector selector, void* data);
  long onUpdNeedsDraft(FX::FXObject* sender, FX::FXSelector selector, void* data);
  long onUpdNeedsCompany(FX::FXObject* sender, FX::FXSelector selector, void* data);

  MainWindow(const MainWindow&) = delete;
  MainWindow& operator=(const MainWindow&) = delete;

 protected:
  MainWindow() = default;

 private:
  void createMenus();
  void createFileMenu(FX::FXMenuBar* bar);
  void createDocumentMenu(FX::FXMenuBar* bar);
  void createRecordMenu(FX::FXMenuBar* bar);
  void createPluginMenu(FX::FXMenuBar* bar);
  void createHelpMenu(FX::FXMenuBar* bar);
  void createTools();
  void createStatusBar();
  FX::FXMenuPane* addMenu(FX::FXMenuBar* bar, const char* heading);
  void fillNewDocumentMenu();
  void fillPluginMenu();
  void emptyPluginMenu();
  void savePlacement();

  bool changeCompany(const std::function<bool(FX::FXString& error)>& change);
  void showCompany();
  void tellError(const char* heading, const FX::FXString& sentence);
  void tellResult(const FX::FXString& sentence);
  bool askFolder(FX::FXString& folder);
  bool ask(const char* heading, const FX::FXString& question);

  void showDocument(std::unique_ptr<Host::Document> document);
  bool loadAndShow(int id, FX::FXString& error);
  DocumentWindow* findWindow(int id) const;
  void bringToFront(DocumentWindow& window);
  bool closeWindowsOf(const std::vector<Host::DocumentRow>& rows);
  bool settleChangesOf(const std::vector<Host::DocumentRow>& rows);
  void refreshDocumentWindows();

  void openDocuments(const std::vector<Host::DocumentRow>& rows);
  void exportOne(const Host::DocumentRow& row);
  void exportMany(std::vector<Host::DocumentRow> rows);
  void runBatch(const BatchRun::Activity& activity, const std::vector<Host::DocumentRow>& rows,
                const BatchRun::Work& work);
  bool planFiles(const FX::FXString& folder, std::vector<Host::DocumentRow>& rows);

  Tarnwell* account = nullptr;                         // not owned
  Host::Company* company = nullptr;                    // not owned
  CompanyFile* companyFile = nullptr;                  // not owned
  const Host::IconSet* icons = nullptr;                // not owned
  std::vector<std::unique_ptr<FX::FXMenuPane>> menus;  // owned: popups are children of the root window
  FX::FXMenuPane* newDocumentMenu = nullptr;           // one of them
  FX::FXMenuPane* pluginMenu = nullptr;                // one of them
  FX::FXWindow* lastPluginCommand = nullptr;           // the last of the menu that is no module's
  DocumentListPanel* panel = nullptr;                  // owned by the window tree
  FX::FXStatusLine* statusLine = nullptr;              // owned by the window tree
  std::vector<Host::Status> openStatuses;              // those of new documents, in the menu's order
  std::vector<DocumentWindow*> documentWindows;        // not owned
  std::set<std::string> toldModules;                   // files that the user was told of
};

}  // namespace Quillane::Desktop
