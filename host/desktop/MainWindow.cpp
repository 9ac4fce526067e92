// The program's first window.
//
//  1. What modules made lives in the windows of documents: these go before the company changes or the program ends.
//  2. Work on stored documents comes after their windows: unsaved changes are asked about first, and the window of a
//     document that moves on or is deleted is closed.
//  3. Every sentence about a refused document comes from below; here it is only shown.
#include "host/desktop/MainWindow.h"

#include <libintl.h>

#include <algorithm>
#include <functional>
#include <iterator>

#include "host/desktop/ArticleListWindow.h"
#include "host/desktop/DocumentBatch.h"
#include "host/desktop/DocumentWindow.h"
#include "host/desktop/FilePicker.h"
#include "host/desktop/MenuBar.h"
#include "host/desktop/PartnerListWindow.h"
#include "host/desktop/PluginListWindow.h"
#include "host/desktop/ReportDialog.h"
#include "host/desktop/XmlFile.h"
#include "host/document/DocumentRules.h"
#include "host/windows/LabelText.h"
#include "host/windows/Mnemonic.h"
#include "plugin/contract/PanelProvider.h"

#define N_(text) text

using namespace FX;

namespace Quillane::Desktop {

FXDEFMAP(MainWindow)
mainWindowMap[] = {
    FXMAPFUNCS(SEL_COMMAND, MainWindow::ID_NEW_DOCUMENT, MainWindow::ID_LAST_NEW_DOCUMENT, MainWindow::onNewDocument),
    FXMAPFUNC(SEL_COMMAND, MainWindow::ID_DOCUMENTS, MainWindow::onOpen),
    FXMAPFUNC(SEL_COMMAND, MainWindow::ID_OPEN, MainWindow::onOpen),
    FXMAPFUNC(SEL_UPDATE, MainWindow::ID_OPEN, MainWindow::onUpdNeedsSelection),
    FXMAPFUNC(SEL_COMMAND, MainWindow::ID_EXPORT, MainWindow::onExport),
    FXMAPFUNC(SEL_UPDATE, MainWindow::ID_EXPORT, MainWindow::onUpdNeedsSelection),
    FXMAPFUNC(SEL_COMMAND, MainWindow::ID_CLOSE_DOCUMENTS, MainWindow::onCloseDocuments),
    FXMAPFUNC(SEL_UPDATE, MainWindow::ID_CLOSE_DOCUMENTS, MainWindow::onUpdNeedsDraft),
    FXMAPFUNC(SEL_COMMAND, MainWindow::ID_DELETE_DOCUMENTS, MainWindow::onDeleteDocuments),
    FXMAPFUNC(SEL_UPDATE, MainWindow::ID_DELETE_DOCUMENTS, MainWindow::onUpdNeedsSelection),
    FXMAPFUNC(SEL_COMMAND, MainWindow::ID_SELECT_ALL, MainWindow::onSelectAll),
    FXMAPFUNC(SEL_COMMAND, MainWindow::ID_SEARCH, MainWindow::onSearch),
    FXMAPFUNC(SEL_COMMAND, MainWindow::ID_RELOAD, MainWindow::onReload),
    FXMAPFUNC(SEL_COMMAND, MainWindow::ID_PARTNERS, MainWindow::onPartners),
    FXMAPFUNC(SEL_COMMAND, MainWindow::ID_ARTICLES, MainWindow::onArticles),
    FXMAPFUNCS(SEL_UPDATE, MainWindow::ID_SELECT_ALL, MainWindow::ID_ARTICLES, MainWindow::onUpdNeedsCompany),
    FXMAPFUNC(SEL_COMMAND, MainWindow::ID_OPEN_COMPANY, MainWindow::onOpenCompany),
    FXMAPFUNC(SEL_COMMAND, MainWindow::ID_NEW_COMPANY, MainWindow::onNewCompany),
    FXMAPFUNC(SEL_COMMAND, MainWindow::ID_PLUGINS, MainWindow::onPlugins),
    FXMAPFUNC(SEL_UPDATE, MainWindow::ID_PLUGINS, MainWindow::onUpdNeedsCompany),
    FXMAPFUNCS(SEL_COMMAND, MainWindow::ID_PLUGIN_SETTINGS, MainWindow::ID_LAST_PLUGIN_SETTINGS,
               MainWindow::onPluginSettings),
    FXMAPFUNC(SEL_COMMAND, MainWindow::ID_ABOUT, MainWindow::onAbout),
    FXMAPFUNC(SEL_COMMAND, MainWindow::ID_QUIT, MainWindow::onQuit),
    FXMAPFUNC(SEL_CLOSE, 0, MainWindow::onQuit),
    FXMAPFUNC(SEL_TIMEOUT, MainWindow::ID_FORGET_RESULT, MainWindow::onForgetResult),
    FXMAPFUNC(SEL_UPDATE, MainWindow::ID_COUNT, MainWindow::onUpdCount),
};
static_assert(ARRAYNUMBER(mainWindowMap) == 26);

FXIMPLEMENT(MainWindow, FXMainWindow, mainWindowMap, ARRAYNUMBER(mainWindowMap))

namespace {

constexpr FXint kWidth = 980;
constexpr FXint kHeight = 620;
constexpr FXint kLeastWidth = 400;
constexpr FXint kLeastHeight = 300;
constexpr FXint kToolPadding = 8;
constexpr FXint kCascade = 28;  // pixels
constexpr std::size_t kCascadeLength = 8;
constexpr FXuint kResultTime = 8000;  // milliseconds
constexpr std::size_t kManyWindows = 10;

constexpr char kWindowSection[] = "MainWindow";

constexpr char kPluginsEntry[] = N_("&Bővítmények...\t\tA betöltött bővítmények és a beállításaik");

constexpr char kCompanyPatterns[] = N_("Cégfájlok (*.db)\nMinden fájl (*)");

constexpr BatchRun::Activity kOpening = {N_("Megnyitás"), N_("Bizonylatok megnyitása"),
                                         N_("Megnyitott bizonylatok: %d."),
                                         N_("Megnyitott bizonylatok: %d / %d. A többi nem nyitható meg:"),
                                         N_("A megnyitás megszakítva. Megnyitott bizonylatok: %d / %d.")};
constexpr BatchRun::Activity kExporting = {N_("XML exportálása"), N_("Bizonylatok exportálása"),
                                           N_("Exportált bizonylatok: %d."),
                                           N_("Exportált bizonylatok: %d / %d. A többi nem exportálható:"),
                                           N_("Az exportálás megszakítva. Exportált bizonylatok: %d / %d.")};
constexpr BatchRun::Activity kClosing = {N_("Lezárás"), N_("Bizonylatok lezárása"), N_("Lezárt bizonylatok: %d."),
                                         N_("Lezárt bizonylatok: %d / %d. A többi nem zárható le:"),
                                         N_("A lezárás megszakítva. Lezárt bizonylatok: %d / %d.")};
constexpr BatchRun::Activity kDeleting = {N_("Törlés"), N_("Bizonylatok törlése"), N_("Törölt bizonylatok: %d."),
                                          N_("Törölt bizonylatok: %d / %d. A többi nem törölhető:"),
                                          N_("A törlés megszakítva. Törölt bizonylatok: %d / %d.")};

const char* translate(const char* text) { return dgettext("quillane", text); }

void setEnabled(FXObject* sender, bool enabled) {
  sender->handle(nullptr, FXSEL(SEL_COMMAND, enabled ? FXWindow::ID_ENABLE : FXWindow::ID_DISABLE), nullptr);
}

bool isDraft(const Host::DocumentRow& row) { return Host::DocumentRules::findFamilyOfDraft(row.status) != nullptr; }

}  // namespace

MainWindow::MainWindow(Tarnwell& programAccount, Host::Company& programCompany, CompanyFile& programFile,
                       const Host::IconSet& programIcons)
    : FXMainWindow(&programAccount, "Quillane", programIcons.get(Host::Icon::APPLICATION_32),
                   programIcons.get(Host::Icon::APPLICATION), DECOR_ALL, 0, 0, kWidth, kHeight),
      account(&programAccount),
      company(&programCompany),
      companyFile(&programFile),
      icons(&programIcons) {
  createMenus();
  createTools();
  createStatusBar();
  panel = new DocumentListPanel(this, programAccount, programIcons, this, ID_DOCUMENTS);
  showCompany();
}

MainWindow::~MainWindow() {
  getApp()->removeTimeout(this, ID_FORGET_RESULT);
  const std::vector<DocumentWindow*> open = std::move(documentWindows);
  documentWindows.clear();
  for (DocumentWindow* window : open) delete window;
}

void MainWindow::create() {
  FXMainWindow::create();
  panel->getList()->setFocus();
}

// ---- menus, tools, status line ----

void MainWindow::createMenus() {
  FXMenuBar* bar = new MenuBar(this);
  createFileMenu(bar);
  createDocumentMenu(bar);
  createRecordMenu(bar);
  createPluginMenu(bar);
  createHelpMenu(bar);
}

FXMenuPane* MainWindow::addMenu(FXMenuBar* bar, const char* heading) {
  menus.push_back(std::make_unique<FXMenuPane>(this));
  new FXMenuTitle(bar, heading, nullptr, menus.back().get());
  return menus.back().get();
}

void MainWindow::createFileMenu(FXMenuBar* bar) {
  FXMenuPane* menu = addMenu(bar, dgettext("quillane", "&Fájl"));
  menus.push_back(std::make_unique<FXMenuPane>(this));
  newDocumentMenu = menus.back().get();
  new FXMenuCascade(menu, dgettext("quillane", "Ú&j bizonylat"), icons->get(Host::Icon::NEW_DOCUMENT), newDocumentMenu);
  new FXMenuCommand(
      menu, dgettext("quillane", "&Megnyitás\tCtrl+O\tA kijelölt bizonylatok megnyitása, mindegyik külön ablakban"),
      icons->get(Host::Icon::OPEN), this, ID_OPEN);
  new FXMenuCommand(menu,
                    dgettext("quillane", "&XML exportálása...\tCtrl+E\tA kijelölt bizonylatok kiírása XML-fájlba"),
                    icons->get(Host::Icon::EXPORT), this, ID_EXPORT);
  new FXMenuSeparator(menu);
  new FXMenuCommand(menu,
                    dgettext("quillane", "&Cégfájl megnyitása...\tCtrl+Shift+O\tEgy másik cég adatainak megnyitása"),
                    nullptr, this, ID_OPEN_COMPANY);
  new FXMenuCommand(menu, dgettext("quillane", "Új, &üres cégfájl...\t\tEgy új cég adatainak létrehozása"), nullptr,
                    this, ID_NEW_COMPANY);
  new FXMenuSeparator(menu);
  new FXMenuCommand(menu, dgettext("quillane", "&Kilépés\tCtrl+Q\tA program bezárása"), nullptr, this, ID_QUIT);
}

void MainWindow::createDocumentMenu(FXMenuBar* bar) {
  FXMenuPane* menu = addMenu(bar, dgettext("quillane", "&Bizonylat"));
  new FXMenuCommand(
      menu, dgettext("quillane", "&Lezárás...\tCtrl+L\tA kijelölt piszkozatok ellenőrzése és lezárása; számot kapnak"),
      icons->get(Host::Icon::CLOSE_DOCUMENT), this, ID_CLOSE_DOCUMENTS);
  new FXMenuCommand(menu, dgettext("quillane", "&Törlés...\tDel\tA kijelölt, le nem zárt bizonylatok törlése"),
                    icons->get(Host::Icon::REMOVE), this, ID_DELETE_DOCUMENTS);
  new FXMenuSeparator(menu);
  new FXMenuCommand(menu,
                    dgettext("quillane", "&Keresés\tCtrl+F\tKeresés szám, partner, cikk vagy rögzített adat szerint"),
                    icons->get(Host::Icon::SEARCH), this, ID_SEARCH);
  new FXMenuCommand(menu, dgettext("quillane", "Mind k&ijelölése\tCtrl+A\tMinden látható bizonylat kijelölése"),
                    nullptr, this, ID_SELECT_ALL);
  new FXMenuCommand(menu, dgettext("quillane", "&Frissítés\tF5\tA bizonylatok újraolvasása"), nullptr, this, ID_RELOAD);
}

void MainWindow::createRecordMenu(FXMenuBar* bar) {
  FXMenuPane* menu = addMenu(bar, dgettext("quillane", "&Törzsadatok"));
  new FXMenuCommand(menu, dgettext("quillane", "&Partnerek...\tCtrl+P\tVevők és szállítók"),
                    icons->get(Host::Icon::PARTNERS), this, ID_PARTNERS);
  new FXMenuCommand(
      menu, dgettext("quillane", "&Termékek, szolgáltatások, csomagok...\tCtrl+T\tAmi a bizonylatokra kerülhet"),
      icons->get(Host::Icon::ARTICLES), this, ID_ARTICLES);
}

void MainWindow::createPluginMenu(FXMenuBar* bar) {
  pluginMenu = addMenu(bar, dgettext("quillane", "Bő&vítmények"));
  lastPluginCommand = new FXMenuCommand(pluginMenu, dgettext("quillane", kPluginsEntry), nullptr, this, ID_PLUGINS);
}

void MainWindow::createHelpMenu(FXMenuBar* bar) {
  FXMenuPane* menu = addMenu(bar, dgettext("quillane", "&Súgó"));
  new FXMenuCommand(menu, dgettext("quillane", "&Névjegy...\t\tA program és a bővítményei"), nullptr, this, ID_ABOUT);
}

void MainWindow::createTools() {
  FXHorizontalFrame* bar =
      new FXHorizontalFrame(this, LAYOUT_SIDE_TOP | LAYOUT_FILL_X, 0, 0, 0, 0, kToolPadding, kToolPadding, 2, 2, 2, 0);
  new FXMenuButton(bar, dgettext("quillane", "Új bizonylat\tÚj bizonylat készítése"),
                   icons->get(Host::Icon::NEW_DOCUMENT), newDocumentMenu,
                   MENUBUTTON_DOWN | MENUBUTTON_ATTACH_LEFT | MENUBUTTON_TOOLBAR | ICON_BEFORE_TEXT | FRAME_RAISED, 0,
                   0, 0, 0, kToolPadding, kToolPadding);
  const auto addTool = [this, bar](const char* label, Host::Icon picture, FXSelector command) {
    new FXButton(bar, label, icons->get(picture), this, command, BUTTON_TOOLBAR | ICON_BEFORE_TEXT | FRAME_RAISED, 0, 0,
                 0, 0, kToolPadding, kToolPadding);
  };
  const auto addSeparator = [bar] {
    new FXVerticalSeparator(bar, SEPARATOR_GROOVE | LAYOUT_FILL_Y, 0, 0, 0, 0, 2, 2, 2, 2);
  };
  addTool(dgettext("quillane", "Megnyitás\tA kijelölt bizonylatok megnyitása (Enter)"), Host::Icon::OPEN, ID_OPEN);
  addSeparator();
  addTool(dgettext("quillane", "Lezárás\tA kijelölt piszkozatok lezárása (Ctrl+L)"), Host::Icon::CLOSE_DOCUMENT,
          ID_CLOSE_DOCUMENTS);
  addTool(dgettext("quillane", "Exportálás\tA kijelölt bizonylatok kiírása XML-fájlba (Ctrl+E)"), Host::Icon::EXPORT,
          ID_EXPORT);
  addTool(dgettext("quillane", "Törlés\tA kijelölt bizonylatok törlése (Del)"), Host::Icon::REMOVE,
          ID_DELETE_DOCUMENTS);
  addSeparator();
  addTool(dgettext("quillane", "Partnerek\tVevők és szállítók (Ctrl+P)"), Host::Icon::PARTNERS, ID_PARTNERS);
  addTool(dgettext("quillane", "Cikkek\tTermékek, szolgáltatások, csomagok (Ctrl+T)"), Host::Icon::ARTICLES,
          ID_ARTICLES);
  new FXHorizontalSeparator(this, SEPARATOR_GROOVE | LAYOUT_SIDE_TOP | LAYOUT_FILL_X);
}

void MainWindow::createStatusBar() {
  FXStatusBar* bar = new FXStatusBar(this, LAYOUT_SIDE_BOTTOM | LAYOUT_FILL_X | STATUSBAR_WITH_DRAGCORNER);
  statusLine = bar->getStatusLine();
  FXLabel* count = new FXLabel(bar, " ", nullptr, FRAME_SUNKEN | JUSTIFY_RIGHT | LAYOUT_RIGHT | LAYOUT_CENTER_Y, 0, 0,
                               0, 0, 8, 8, 1, 1);
  count->setTarget(this);
  count->setSelector(ID_COUNT);
  onForgetResult(nullptr, 0, nullptr);
}

void MainWindow::fillNewDocumentMenu() {
  while (FXWindow* entry = newDocumentMenu->getFirst()) delete entry;
  std::string used;
  for (std::size_t i = 0; i < openStatuses.size(); ++i) {
    const FXString accelerator = i == 0 ? "\tCtrl+N" : "";
    FXMenuCommand* entry =
        new FXMenuCommand(newDocumentMenu, Host::markMnemonic(openStatuses[i].name, used) + accelerator,
                          icons->get(Host::Icon::NEW_DOCUMENT), this, ID_NEW_DOCUMENT + static_cast<FXuint>(i));
    if (newDocumentMenu->id()) entry->create();
  }
}

/// Entries show the modules' icons, which go with the modules.
void MainWindow::emptyPluginMenu() {
  while (FXWindow* entry = lastPluginCommand->getNext()) delete entry;
}

void MainWindow::fillPluginMenu() {
  emptyPluginMenu();
  std::string used = Host::getMnemonics(dgettext("quillane", kPluginsEntry));
  const std::vector<Host::PluginLoader::Loaded>& modules = company->getPlugins().getLoaded();
  for (std::size_t i = 0; i < modules.size() && i <= ID_LAST_PLUGIN_SETTINGS - ID_PLUGIN_SETTINGS; ++i) {
    Plugin::PluginContainer& module = *modules[i].container;
    if (!PluginListWindow::hasSettings(module)) continue;
    if (!lastPluginCommand->getNext()) new FXMenuSeparator(pluginMenu);
    const FXString label =
        FXStringFormat(dgettext("quillane", "%s beállításai..."), Host::markMnemonic(module.getName(), used).text());
    new FXMenuCommand(pluginMenu, label, module.getIcon16(), this, ID_PLUGIN_SETTINGS + static_cast<FXuint>(i));
  }
  if (!pluginMenu->id()) return;
  for (FXWindow* entry = lastPluginCommand->getNext(); entry; entry = entry->getNext()) entry->create();
}

void MainWindow::appear() {
  FXRegistry& registry = getApp()->reg();
  if (!registry.existingEntry(kWindowSection, "Width")) {
    show(PLACEMENT_SCREEN);
    return;
  }
  const FXWindow* screen = getApp()->getRootWindow();
  position(registry.readIntEntry(kWindowSection, "X", 0), registry.readIntEntry(kWindowSection, "Y", 0),
           FXCLAMP(kLeastWidth, registry.readIntEntry(kWindowSection, "Width", kWidth), screen->getWidth()),
           FXCLAMP(kLeastHeight, registry.readIntEntry(kWindowSection, "Height", kHeight), screen->getHeight()));
  show(PLACEMENT_VISIBLE);
  if (registry.readIntEntry(kWindowSection, "Maximized", 0) != 0) maximize();
}

void MainWindow::savePlacement() {
  if (!shown() || isMinimized()) return;
  FXRegistry& registry = getApp()->reg();
  registry.writeIntEntry(kWindowSection, "Maximized", isMaximized());
  if (isMaximized()) return;
  registry.writeIntEntry(kWindowSection, "X", getX());
  registry.writeIntEntry(kWindowSection, "Y", getY());
  registry.writeIntEntry(kWindowSection, "Width", getWidth());
  registry.writeIntEntry(kWindowSection, "Height", getHeight());
}

long MainWindow::onUpdCount(FXObject* sender, FXSelector, void*) {
  const int selected = static_cast<int>(panel->getList()->getSelectedIds().size());
  const int count = panel->countDocuments();
  const FXString text = panel->isSearching()
                            ? FXStringFormat(dgettext("quillane", "Találatok: %d / %d, kijelölve: %d"),
                                             panel->countShown(), count, selected)
                            : FXStringFormat(dgettext("quillane", "Bizonylatok: %d, kijelölve: %d"), count, selected);
  FXLabel* label = static_cast<FXLabel*>(sender);
  if (label->getText() != text) label->setText(text);
  return 1;
}

long MainWindow::onForgetResult(FXObject*, FXSelector, void*) {
  statusLine->setNormalText(
      dgettext("quillane", "Enter: megnyitás · Ctrl+F: keresés · Ctrl+N: új bizonylat · Ctrl+1–5: rendezés"));
  return 1;
}

long MainWindow::onUpdNeedsSelection(FXObject* sender, FXSelector, void*) {
  setEnabled(sender, company->isOpen() && !panel->getList()->getSelectedIds().empty());
  return 1;
}

long MainWindow::onUpdNeedsDraft(FXObject* sender, FXSelector, void*) {
  const std::vector<Host::DocumentRow> rows = panel->getSelectedRows();
  setEnabled(sender, company->isOpen() && std::any_of(rows.begin(), rows.end(), isDraft));
  return 1;
}

long MainWindow::onUpdNeedsCompany(FXObject* sender, FXSelector, void*) {
  setEnabled(sender, company->isOpen());
  return 1;
}

// ---- talking to the user ----

void MainWindow::tellError(const char* heading, const FXString& sentence) {
  const FXString text = Host::messageText(sentence);
  if (shown()) {
    FXMessageBox::error(this, MBOX_OK, heading, "%s", text.text());
  } else {
    FXMessageBox::error(getApp(), MBOX_OK, heading, "%s", text.text());
  }
}

void MainWindow::tellResult(const FXString& sentence) {
  statusLine->setNormalText(sentence);
  getApp()->addTimeout(this, ID_FORGET_RESULT, kResultTime);
}

bool MainWindow::ask(const char* heading, const FXString& question) {
  return FXMessageBox::question(this, MBOX_YES_NO, heading, "%s", Host::messageText(question).text()) ==
         MBOX_CLICKED_YES;
}

bool MainWindow::askFolder(FXString& folder) {
  FXDirDialog dialog(this, dgettext("quillane", "Melyik mappába kerüljenek az XML-fájlok?"));
  dialog.setDirectory(folder);
  if (!dialog.execute(PLACEMENT_OWNER)) return false;
  folder = dialog.getDirectory();
  return true;
}

void MainWindow::tellRejectedModules() {
  std::vector<FXString> sentences;
  for (const Host::PluginLoader::Rejected& rejected : company->getPlugins().getRejected()) {
    if (!toldModules.insert(rejected.file.text()).second) continue;
    sentences.push_back(FXStringFormat(dgettext("quillane", "%s: %s"), rejected.file.text(), rejected.reason.text()));
  }
  if (sentences.empty()) return;
  ReportDialog(this, dgettext("quillane", "Bővítmények"),
               dgettext("quillane", "Ezek a bővítmények nem használhatók, a program nélkülük indult el:"), sentences,
               icons->get(Host::Icon::NOTICE))
      .execute(PLACEMENT_OWNER);
}

// ---- the company ----

bool MainWindow::openCompany(const FXString& file) {
  return changeCompany([this, &file](FXString& error) { return companyFile->open(file, error); });
}

bool MainWindow::makeCompany(const FXString& file, CompanyFile::Content content) {
  return changeCompany([this, &file, content](FXString& error) { return companyFile->make(file, content, error); });
}

bool MainWindow::changeCompany(const std::function<bool(FXString& error)>& change) {
  if (!closeDocumentWindows()) return false;
  emptyPluginMenu();
  FXString error;
  getApp()->beginWaitCursor();
  const bool changed = change(error);
  getApp()->endWaitCursor();
  panel->clearSearch();
  showCompany();
  if (!changed) tellError(dgettext("quillane", "Cégfájl"), error);
  return changed;
}

void MainWindow::showCompany() {
  const FXString& file = companyFile->getFile();
  setTitle(file.empty() ? FXString("Quillane")
                        : FXStringFormat(dgettext("quillane", "%s – Quillane"), FXPath::name(file).text()));
  FXString error;
  std::vector<Host::Status> statuses;
  const bool read = !company->isOpen() || Host::StatusCatalogue::read(company->getDatabase(), statuses, error);
  openStatuses.clear();
  for (const Host::Status& status : statuses)
    if (!status.closed && openStatuses.size() <= ID_LAST_NEW_DOCUMENT - ID_NEW_DOCUMENT) openStatuses.push_back(status);
  fillNewDocumentMenu();
  fillPluginMenu();
  if (!panel->reload(error) || !read) tellError(dgettext("quillane", "Cégfájl"), error);
}

bool MainWindow::askCompanyToOpen() {
  const FXString& open = companyFile->getFile();
  FXString file = (open.empty() ? CompanyFile::getDocumentFolder() : FXPath::directory(open)) + PATHSEPSTRING;
  const FilePicker picker(this, dgettext("quillane", "Cégfájl megnyitása"), translate(kCompanyPatterns));
  if (!picker.ask(file, SELECTFILE_EXISTING)) return false;
  return openCompany(file);
}

bool MainWindow::askCompanyToMake(CompanyFile::Content content) {
  const FXString name =
      content == CompanyFile::SAMPLE ? dgettext("quillane", "mintaceg.db") : dgettext("quillane", "cegem.db");
  FXString file = CompanyFile::getDocumentFolder() + PATHSEPSTRING + name;
  const FilePicker picker(this, dgettext("quillane", "Hová kerüljön az új cégfájl?"), translate(kCompanyPatterns));
  if (!picker.ask(file, SELECTFILE_ANY)) return false;
  if (FXPath::extension(file).empty()) file += ".db";
  return makeCompany(file, content);
}

long MainWindow::onOpenCompany(FXObject*, FXSelector, void*) {
  askCompanyToOpen();
  return 1;
}

long MainWindow::onNewCompany(FXObject*, FXSelector, void*) {
  askCompanyToMake(CompanyFile::EMPTY);
  return 1;
}

// ---- windows of documents ----

bool MainWindow::openDocument(int id) {
  FXString error;
  getApp()->beginWaitCursor();
  const bool opened = loadAndShow(id, error);
  getApp()->endWaitCursor();
  if (!opened) tellError(dgettext("quillane", "Megnyitás"), error);
  return opened;
}

bool MainWindow::loadAndShow(int id, FXString& error) {
  if (DocumentWindow* window = findWindow(id)) {
    bringToFront(*window);
    return true;
  }
  std::unique_ptr<Host::Document> document = company->getDocuments().load(id, error);
  if (!document) return false;
  showDocument(std::move(document));
  return true;
}

void MainWindow::showDocument(std::unique_ptr<Host::Document> document) {
  DocumentWindow* window = new DocumentWindow(*this, std::move(document));
  documentWindows.push_back(window);
  if (!getApp()->isInitialized()) return;  // without a display
  window->create();
  // One beside the other, so that every title can be seen.
  const FXint offset = kCascade * static_cast<FXint>(1 + (documentWindows.size() - 1) % kCascadeLength);
  window->position(getX() + offset, getY() + offset, window->getWidth(), window->getHeight());
  window->show(PLACEMENT_VISIBLE);
}

DocumentWindow* MainWindow::findWindow(int id) const {
  const auto found = std::find_if(documentWindows.begin(), documentWindows.end(),
                                  [id](DocumentWindow* window) { return window->getDocumentId() == id; });
  return found == documentWindows.end() ? nullptr : *found;
}

void MainWindow::bringToFront(DocumentWindow& window) {
  if (!window.id()) return;
  if (window.isMinimized()) window.restore();
  window.show();
  window.raise();
  window.setFocus();
}

void MainWindow::documentsChanged() {
  FXString error;
  if (!panel->reload(error)) tellError(dgettext("quillane", "Bizonylatok"), error);
}

void MainWindow::windowClosed(DocumentWindow& window) {
  documentWindows.erase(std::remove(documentWindows.begin(), documentWindows.end(), &window), documentWindows.end());
}

bool MainWindow::closeDocumentWindows() {
  const std::vector<DocumentWindow*> open = documentWindows;  // each leaves the list as it closes
  for (DocumentWindow* window : open) {
    if (window->isChanged()) bringToFront(*window);
    if (!window->closeDocument()) return false;
  }
  return true;
}

bool MainWindow::closeWindowsOf(const std::vector<Host::DocumentRow>& rows) {
  for (const Host::DocumentRow& row : rows) {
    DocumentWindow* window = findWindow(row.id);
    if (!window) continue;
    if (window->isChanged()) bringToFront(*window);
    if (!window->closeDocument()) return false;
  }
  return true;
}

bool MainWindow::settleChangesOf(const std::vector<Host::DocumentRow>& rows) {
  std::vector<Host::DocumentRow> changed;
  std::copy_if(rows.begin(), rows.end(), std::back_inserter(changed), [this](const Host::DocumentRow& row) {
    DocumentWindow* window = findWindow(row.id);
    return window && window->isChanged();
  });
  return closeWindowsOf(changed);
}

/// Other fields may have been defined or assigned: documents that are open show them, too, unless that would cost what
/// was typed. Those learn of them when they are stored.
void MainWindow::refreshDocumentWindows() {
  for (DocumentWindow* window : documentWindows) window->refresh();
}

long MainWindow::onNewDocument(FXObject*, FXSelector selector, void*) {
  const std::size_t index = FXSELID(selector) - ID_NEW_DOCUMENT;
  if (index >= openStatuses.size()) return 1;
  FXString error;
  std::unique_ptr<Host::Document> document = company->getDocuments().make(openStatuses[index].code, error);
  if (document) {
    showDocument(std::move(document));
  } else {
    tellError(dgettext("quillane", "Új bizonylat"), error);
  }
  return 1;
}

// ---- commands on the selected documents ----

long MainWindow::onOpen(FXObject*, FXSelector, void*) {
  const std::vector<Host::DocumentRow> rows = panel->getSelectedRows();
  if (rows.size() == 1) {
    openDocument(rows.front().id);
  } else if (!rows.empty()) {
    openDocuments(rows);
  }
  return 1;
}

void MainWindow::openDocuments(const std::vector<Host::DocumentRow>& rows) {
  if (rows.size() > kManyWindows &&
      !ask(translate(kOpening.title),
           FXStringFormat(
               dgettext("quillane", "A kijelölt %d bizonylat mind külön ablakban nyílik meg. Megnyitja őket?"),
               static_cast<int>(rows.size())))) {
    return;
  }
  runBatch(kOpening, rows, [this](DocumentBatch& batch, const Host::DocumentRow& row) {
    FXString error;
    batch.note(loadAndShow(row.id, error), error);
  });
}

long MainWindow::onExport(FXObject*, FXSelector, void*) {
  const std::vector<Host::DocumentRow> rows = panel->getSelectedRows();
  if (rows.empty() || !settleChangesOf(rows)) return 1;
  if (rows.size() == 1) {
    exportOne(rows.front());
  } else {
    exportMany(rows);
  }
  return 1;
}

void MainWindow::exportOne(const Host::DocumentRow& row) {
  FXString file;
  if (!XmlFile::ask(this, DocumentBatch::makeFileName(row), file)) return;
  runBatch(kExporting, {row},
           [&file](DocumentBatch& batch, const Host::DocumentRow& document) { batch.exportTo(file, document); });
}

void MainWindow::exportMany(std::vector<Host::DocumentRow> rows) {
  FXString folder = XmlFile::getFolder(*getApp());
  if (!askFolder(folder) || !planFiles(folder, rows)) return;
  XmlFile::rememberFolder(*getApp(), folder);
  runBatch(kExporting, rows, [&folder](DocumentBatch& batch, const Host::DocumentRow& document) {
    batch.exportTo(folder + PATHSEPSTRING + DocumentBatch::makeFileName(document), document);
  });
}

/// Asks about files that exist already, once for all; those that are to stay leave rows. False when nothing is to be
/// done.
bool MainWindow::planFiles(const FXString& folder, std::vector<Host::DocumentRow>& rows) {
  const auto exists = [&folder](const Host::DocumentRow& row) {
    return FXStat::exists(folder + PATHSEPSTRING + DocumentBatch::makeFileName(row)) != FALSE;
  };
  const int existing = static_cast<int>(std::count_if(rows.begin(), rows.end(), exists));
  if (existing == 0) return true;
  const FXuint answer =
      FXMessageBox::question(this, MBOX_YES_NO_CANCEL, translate(kExporting.title),
                             dgettext("quillane",
                                      "A mappában már megvan a kijelölt bizonylatok fájljai közül ennyi: %d.\n"
                                      "Felülírja őket? (Nem: csak a hiányzók készülnek el.)"),
                             existing);
  if (answer == MBOX_CLICKED_NO) rows.erase(std::remove_if(rows.begin(), rows.end(), exists), rows.end());
  return answer != MBOX_CLICKED_CANCEL && !rows.empty();
}

long MainWindow::onCloseDocuments(FXObject*, FXSelector, void*) {
  std::vector<Host::DocumentRow> rows = panel->getSelectedRows();
  rows.erase(std::remove_if(rows.begin(), rows.end(), std::not_fn(isDraft)), rows.end());
  if (rows.empty()) return 1;
  const FXString question =
      rows.size() == 1
          ? FXStringFormat(dgettext("quillane", "Lezárja ezt a bizonylatot: %s? Számot kap, és többé nem módosítható."),
                           DocumentBatch::describe(rows.front()).text())
          : FXStringFormat(
                dgettext("quillane", "Lezárja a kijelölt %d piszkozatot? Számot kapnak, és többé nem módosíthatók."),
                static_cast<int>(rows.size()));
  if (!ask(translate(kClosing.title), question) || !closeWindowsOf(rows)) return 1;
  runBatch(kClosing, rows, [](DocumentBatch& batch, const Host::DocumentRow& row) { batch.close(row); });
  return 1;
}

long MainWindow::onDeleteDocuments(FXObject*, FXSelector, void*) {
  const std::vector<Host::DocumentRow> rows = panel->getSelectedRows();
  if (rows.empty()) return 1;
  const FXString question =
      rows.size() == 1
          ? FXStringFormat(dgettext("quillane", "Törli ezt a bizonylatot: %s? A tételei és az adataik is elvesznek."),
                           DocumentBatch::describe(rows.front()).text())
          : FXStringFormat(
                dgettext("quillane", "Törli a kijelölt %d bizonylatot? A tételeik és az adataik is elvesznek."),
                static_cast<int>(rows.size()));
  if (!ask(translate(kDeleting.title), question) || !closeWindowsOf(rows)) return 1;
  runBatch(kDeleting, rows, [](DocumentBatch& batch, const Host::DocumentRow& row) { batch.remove(row); });
  return 1;
}

void MainWindow::runBatch(const BatchRun::Activity& activity, const std::vector<Host::DocumentRow>& rows,
                          const BatchRun::Work& work) {
  const FXString result = BatchRun(this, *company, activity, icons->get(Host::Icon::NOTICE)).run(rows, work);
  documentsChanged();
  if (!result.empty()) tellResult(result);
}

long MainWindow::onSelectAll(FXObject*, FXSelector, void*) {
  panel->getList()->selectAll();
  return 1;
}

long MainWindow::onSearch(FXObject*, FXSelector, void*) {
  panel->getSearchField()->setFocus();
  panel->getSearchField()->selectAll();
  return 1;
}

long MainWindow::onReload(FXObject*, FXSelector, void*) {
  documentsChanged();
  return 1;
}

// ---- records, about, the end ----

long MainWindow::onPartners(FXObject*, FXSelector, void*) {
  PartnerListWindow(this, company->getDatabase(), *icons).execute(PLACEMENT_OWNER);
  documentsChanged();  // the name of a partner may have been changed
  return 1;
}

long MainWindow::onArticles(FXObject*, FXSelector, void*) {
  ArticleListWindow(this, company->getDatabase(), *icons,
                    company->getPlugins().getHooks<Plugin::PanelProvider::Plugin>())
      .execute(PLACEMENT_OWNER);
  refreshDocumentWindows();
  return 1;
}

long MainWindow::onPlugins(FXObject*, FXSelector, void*) {
  PluginListWindow(this, company->getPlugins(), *icons).execute(PLACEMENT_OWNER);
  refreshDocumentWindows();
  return 1;
}

long MainWindow::onPluginSettings(FXObject*, FXSelector selector, void*) {
  const std::vector<Host::PluginLoader::Loaded>& modules = company->getPlugins().getLoaded();
  const std::size_t index = FXSELID(selector) - ID_PLUGIN_SETTINGS;
  if (index < modules.size() && PluginListWindow::hasSettings(*modules[index].container))
    PluginListWindow::runSettings(this, *modules[index].container);
  refreshDocumentWindows();
  return 1;
}

long MainWindow::onAbout(FXObject*, FXSelector, void*) {
  FXString text = FXStringFormat(
      dgettext("quillane", "Quillane %s\nSzámlák, szállítólevelek és a tételeikhez rögzített adatok.\n\nBővítmények:"),
      QUILLANE_VERSION);
  for (const Host::PluginLoader::Loaded& module : company->getPlugins().getLoaded()) {
    text += FXStringFormat("\n• %s, %s", module.container->getName().text(), module.container->getVersion().text());
  }
  FXMessageBox(this, dgettext("quillane", "Névjegy"), text, icons->get(Host::Icon::APPLICATION_32), MBOX_OK)
      .execute(PLACEMENT_OWNER);
  return 1;
}

long MainWindow::onQuit(FXObject*, FXSelector, void*) {
  if (!closeDocumentWindows()) return 1;
  savePlacement();
  getApp()->exit(0);
  return 1;
}

}  // namespace Quillane::Desktop
