// The window of one document.
//
//  1. Whatever changes items ends with a check: the findings hold items, so earlier ones go before an item does.
//  2. What works on the stored document first has unsaved changes settled, so that it is what the user sees.
//  3. When the window closes, the document goes at once, since the modules that made parts of it may go before the
//     window does.
#include "host/desktop/DocumentWindow.h"

#include <fxkeys.h>
#include <libintl.h>

#include <algorithm>

#include "host/desktop/DeriveDialog.h"
#include "host/desktop/DocumentHeadPanel.h"
#include "host/desktop/DocumentItemTable.h"
#include "host/desktop/ItemDialog.h"
#include "host/desktop/MenuBar.h"
#include "host/desktop/MessageListPanel.h"
#include "host/desktop/UnsavedChangesDialog.h"
#include "host/desktop/XmlFile.h"
#include "host/document/DocumentRules.h"
#include "host/document/NumberText.h"
#include "host/windows/LabelText.h"
#include "plugin/contract/PanelProvider.h"
#include "plugin/contract/PluginContainer.h"

using namespace FX;

namespace Quillane::Desktop {

using Host::DocumentRules;
using Host::Icon;

FXDEFMAP(DocumentWindow)
documentWindowMap[] = {
    FXMAPFUNC(SEL_KEYPRESS, 0, DocumentWindow::onKeyPress),
    FXMAPFUNC(SEL_COMMAND, DocumentWindow::ID_SAVE, DocumentWindow::onSave),
    FXMAPFUNC(SEL_COMMAND, DocumentWindow::ID_CHECK, DocumentWindow::onCheck),
    FXMAPFUNC(SEL_COMMAND, DocumentWindow::ID_NEXT_PROBLEM, DocumentWindow::onNextProblem),
    FXMAPFUNC(SEL_COMMAND, DocumentWindow::ID_EXPORT, DocumentWindow::onExport),
    FXMAPFUNC(SEL_COMMAND, DocumentWindow::ID_CLOSE_DOCUMENT, DocumentWindow::onCloseDocument),
    FXMAPFUNC(SEL_COMMAND, DocumentWindow::ID_MAKE_DRAFT, DocumentWindow::onMakeDraft),
    FXMAPFUNC(SEL_COMMAND, DocumentWindow::ID_DERIVE, DocumentWindow::onDerive),
    FXMAPFUNC(SEL_COMMAND, DocumentWindow::ID_CANCEL_DOCUMENT, DocumentWindow::onCancelDocument),
    FXMAPFUNC(SEL_COMMAND, DocumentWindow::ID_DELETE_DOCUMENT, DocumentWindow::onDeleteDocument),
    FXMAPFUNC(SEL_COMMAND, DocumentWindow::ID_ADD_ITEM, DocumentWindow::onAddItem),
    FXMAPFUNC(SEL_COMMAND, DocumentWindow::ID_CHANGE_ITEM, DocumentWindow::onChangeItem),
    FXMAPFUNC(SEL_COMMAND, DocumentWindow::ID_REMOVE_ITEM, DocumentWindow::onRemoveItem),
    FXMAPFUNC(SEL_COMMAND, DocumentWindow::ID_MOVE_UP, DocumentWindow::onMoveItem),
    FXMAPFUNC(SEL_COMMAND, DocumentWindow::ID_MOVE_DOWN, DocumentWindow::onMoveItem),
    FXMAPFUNCS(SEL_COMMAND, DocumentWindow::ID_PLUGIN_ENTRY, DocumentWindow::ID_LAST_PLUGIN_ENTRY,
               DocumentWindow::onPluginEntry),
    FXMAPFUNC(SEL_CHANGED, DocumentWindow::ID_HEAD, DocumentWindow::onHeadChanged),
    FXMAPFUNC(SEL_DOUBLECLICKED, DocumentWindow::ID_ITEMS, DocumentWindow::onItemPicked),
    FXMAPFUNC(SEL_KEYPRESS, DocumentWindow::ID_ITEMS, DocumentWindow::onItemKey),
    FXMAPFUNC(SEL_COMMAND, DocumentWindow::ID_MESSAGES, DocumentWindow::onMessagePicked),
    FXMAPFUNCS(SEL_UPDATE, DocumentWindow::ID_SAVE, DocumentWindow::ID_MOVE_DOWN, DocumentWindow::onUpdCommand),
    FXMAPFUNCS(SEL_UPDATE, DocumentWindow::ID_PLUGIN_ENTRY, DocumentWindow::ID_LAST_PLUGIN_ENTRY,
               DocumentWindow::onUpdCommand),
    FXMAPFUNC(SEL_CHORE, DocumentWindow::ID_TELL_OPENING_ERROR, DocumentWindow::onTellOpeningError),
    FXMAPFUNC(SEL_CHORE, DocumentWindow::ID_DELETE_WINDOW, DocumentWindow::onDeleteWindow),
};
static_assert(ARRAYNUMBER(documentWindowMap) == 24);

FXIMPLEMENT_ABSTRACT(DocumentWindow, InvoiceForm, documentWindowMap, ARRAYNUMBER(documentWindowMap))

#define N_(text) text

namespace {

constexpr FXint kWidth = 1180;
constexpr FXint kHeight = 720;
constexpr FXint kPadding = 10;
constexpr FXint kSpacing = 6;
constexpr FXint kProblemsHeight = 170;
constexpr FXint kButtonPadding = 6;
constexpr std::size_t kMostPluginEntries = DocumentWindow::ID_LAST_PLUGIN_ENTRY - DocumentWindow::ID_PLUGIN_ENTRY + 1;
constexpr std::size_t kMostPluginKeys = 9;

/// A command as the menus, the tool bar and the buttons beside the table offer it.
struct Command {
  FXuint id;
  Icon icon;
  const char* menuText;  // as the toolkit takes it: label, accelerator and help with tabs between them
};

constexpr Icon kNoIcon = Icon::COUNT;

constexpr Command kStoreCommands[] = {
    {DocumentWindow::ID_SAVE, Icon::SAVE, N_("&Mentés\tCtrl+S\tA bizonylat mentése")},
    {DocumentWindow::ID_CHECK, Icon::CHECK, N_("&Ellenőrzés\tF5\tA bizonylat ellenőrzése")},
    {DocumentWindow::ID_NEXT_PROBLEM, Icon::NEXT_PROBLEM,
     N_("&Következő probléma\tF8\tUgrás a következő problémára, és ami kijavítja, annak megnyitása")},
    {DocumentWindow::ID_EXPORT, Icon::EXPORT,
     N_("&XML exportálása...\tCtrl+E\tAz elmentett bizonylat kiírása XML-fájlba")},
};

constexpr Command kLifeCommands[] = {
    {DocumentWindow::ID_CLOSE_DOCUMENT, Icon::CLOSE_DOCUMENT,
     N_("&Lezárás...\tCtrl+L\tA bizonylat lezárása; számot kap, és többé nem módosítható")},
    {DocumentWindow::ID_MAKE_DRAFT, kNoIcon,
     N_("&Piszkozattá alakítás...\tCtrl+K\tA díjbekérő számlapiszkozattá alakítása")},
    {DocumentWindow::ID_DERIVE, Icon::DERIVE,
     N_("Szárma&ztatás...\tCtrl+D\tÚj bizonylat készítése ebből, a még nyitott mennyiségekkel")},
    {DocumentWindow::ID_CANCEL_DOCUMENT, Icon::CANCEL_DOCUMENT,
     N_("&Sztornózás...\tCtrl+T\tA lezárt bizonylat sztornózása")},
    {DocumentWindow::ID_DELETE_DOCUMENT, Icon::REMOVE, N_("&Törlés...\tCtrl+Shift+Del\tA bizonylat törlése")},
};

constexpr Command kCloseCommand = {FXTopWindow::ID_CLOSE, kNoIcon, N_("&Bezárás\tCtrl+W\tAz ablak bezárása")};

constexpr char kRemoveKey[] = "Del";

constexpr Command kItemCommands[] = {
    {DocumentWindow::ID_ADD_ITEM, Icon::ADD, N_("Ú&j tétel...\tIns\tÚj tétel a bizonylat végére")},
    {DocumentWindow::ID_CHANGE_ITEM, Icon::EDIT, N_("&Módosítás...\tF2\tA kijelölt tétel módosítása")},
    {DocumentWindow::ID_REMOVE_ITEM, Icon::REMOVE, N_("&Eltávolítás\tDel\tA kijelölt tétel eltávolítása")},
    {DocumentWindow::ID_MOVE_UP, Icon::MOVE_UP, N_("&Fel\tCtrl+Up\tA kijelölt tétel feljebb")},
    {DocumentWindow::ID_MOVE_DOWN, Icon::MOVE_DOWN, N_("&Le\tCtrl+Down\tA kijelölt tétel lejjebb")},
};

/// The tool bar's buttons; 0 for a gap.
constexpr FXuint kToolBar[] = {
    DocumentWindow::ID_SAVE,           DocumentWindow::ID_CHECK,  DocumentWindow::ID_NEXT_PROBLEM, 0,
    DocumentWindow::ID_CLOSE_DOCUMENT, DocumentWindow::ID_DERIVE, DocumentWindow::ID_EXPORT};

FXString translated(const char* text) { return dgettext("quillane", text); }

FXIcon* iconOf(const Host::IconSet& icons, Icon icon) { return icon == kNoIcon ? nullptr : icons.get(icon); }

const Command& findCommand(FXuint id) {
  const auto hasId = [id](const Command& command) { return command.id == id; };
  const auto* found = std::find_if(std::begin(kStoreCommands), std::end(kStoreCommands), hasId);
  if (found != std::end(kStoreCommands)) return *found;
  return *std::find_if(std::begin(kLifeCommands), std::end(kLifeCommands), hasId);
}

/// The text of a menu command as a button takes it: label, tip and help.
FXString toButtonText(const FXString& menuText) {
  const FXString key = menuText.section('\t', 1);
  const FXString help = menuText.section('\t', 2);
  const FXString tip = key.empty() ? help : FXStringFormat("%s (%s)", help.text(), key.text());
  return menuText.section('\t', 0) + "\t" + tip + "\t" + help;
}

/// The same with a label without a letter for the keyboard: the tool bar's letters would be those of the menus.
FXString toToolText(const FXString& menuText) {
  FXString text = toButtonText(menuText);
  const FXint letter = text.find('&');
  if (letter >= 0) text.erase(letter);
  return text;
}

FXString labelOf(const Plugin::InvoiceItemMenuPlugin& plugin) { return plugin.getMenuText().section('\t', 0); }

/// The picture that says that the user has to wait.
class WaitCursor {
 public:
  explicit WaitCursor(FXApp* waiting) : application(waiting) { application->beginWaitCursor(); }
  ~WaitCursor() { application->endWaitCursor(); }
  WaitCursor(const WaitCursor&) = delete;
  WaitCursor& operator=(const WaitCursor&) = delete;

 private:
  FXApp* application;
};

/// Read when they are needed: they go with the company.
PanelProviders getPanelProviders(Workplace& workplace) {
  return workplace.getCompany().getPlugins().getHooks<Plugin::PanelProvider::Plugin>();
}

}  // namespace

DocumentWindow::DocumentWindow(Workplace& programWorkplace, std::unique_ptr<Host::Document> document)
    : InvoiceForm(&programWorkplace.getAccount(), FXString::null, programWorkplace.getIcons().get(Icon::APPLICATION_32),
                  programWorkplace.getIcons().get(Icon::APPLICATION), DECOR_ALL, 0, 0, kWidth, kHeight),
      workplace(programWorkplace),
      session(programWorkplace.getCompany(), std::move(document)),
      plugins(programWorkplace.getCompany().getPlugins().getHooks<MenuPlugin>()) {
  std::stable_sort(plugins.begin(), plugins.end(), [](const MenuPlugin* left, const MenuPlugin* right) {
    return left->getPosition() < right->getPosition();
  });
  if (plugins.size() > kMostPluginEntries) plugins.resize(kMostPluginEntries);
  createMenus();
  createToolBar();
  statusBar = new FXStatusBar(this, LAYOUT_SIDE_BOTTOM | LAYOUT_FILL_X | STATUSBAR_WITH_DRAGCORNER);
  tell(FXString::null);
  createContent();
  createContextMenu();
  if (!Host::StatusCatalogue::read(workplace.getCompany().getDatabase(), statuses, openingError))
    getApp()->addChore(this, ID_TELL_OPENING_ERROR);
  showDocument(0);
  checkAll();
}

DocumentWindow::~DocumentWindow() {
  getApp()->removeChore(this, ID_TELL_OPENING_ERROR);
  getApp()->removeChore(this, ID_DELETE_WINDOW);
}

void DocumentWindow::create() {
  InvoiceForm::create();
  for (const auto& menu : menus) menu->create();
  if (session.isStored() || session.countItems() > 0) {
    items->setFocus();
  } else {
    head->getPartnerField()->setFocus();
  }
}

// ---- what it is made of ----

void DocumentWindow::createMenus() {
  menuBar = new MenuBar(this);
  createDocumentMenu();
  createItemMenu();
}

FXMenuPane* DocumentWindow::createMenu(const char* text) {
  menus.push_back(std::make_unique<FXMenuPane>(this));
  new FXMenuTitle(menuBar, text, nullptr, menus.back().get());
  return menus.back().get();
}

void DocumentWindow::createDocumentMenu() {
  FXMenuPane* menu = createMenu(dgettext("quillane", "&Bizonylat"));
  const auto add = [this, menu](const Command& command) {
    new FXMenuCommand(menu, translated(command.menuText), iconOf(workplace.getIcons(), command.icon), this, command.id);
  };
  for (const Command& command : kStoreCommands) add(command);
  new FXMenuSeparator(menu);
  for (const Command& command : kLifeCommands) add(command);
  new FXMenuSeparator(menu);
  add(kCloseCommand);
}

void DocumentWindow::createItemMenu() {
  FXMenuPane* menu = createMenu(dgettext("quillane", "&Tétel"));
  for (const Command& command : kItemCommands)
    new FXMenuCommand(menu, translated(command.menuText), iconOf(workplace.getIcons(), command.icon), this, command.id);
  // Shown, but acting only in the table: pressed anywhere else it is not the item that is meant to go.
  getAccelTable()->removeAccel(parseAccel(kRemoveKey));
  if (!plugins.empty()) new FXMenuSeparator(menu);
  for (std::size_t i = 0; i < plugins.size(); ++i) {
    FXString text = labelOf(*plugins[i]);
    if (i < kMostPluginKeys) text += FXStringFormat("\tCtrl+%d", static_cast<int>(i) + 1);
    new FXMenuCommand(menu, text, plugins[i]->getContainer()->getIcon16(), this,
                      ID_PLUGIN_ENTRY + static_cast<FXuint>(i));
  }
}

void DocumentWindow::createToolBar() {
  new FXHorizontalSeparator(this, LAYOUT_SIDE_TOP | LAYOUT_FILL_X | SEPARATOR_GROOVE);
  auto* bar =
      new FXHorizontalFrame(this, LAYOUT_SIDE_TOP | LAYOUT_FILL_X, 0, 0, 0, 0, kPadding - 4, kPadding - 4, 2, 2, 2);
  for (const FXuint id : kToolBar) {
    if (id == 0) {
      new FXVerticalSeparator(bar, LAYOUT_FILL_Y | SEPARATOR_GROOVE);
      continue;
    }
    const Command& command = findCommand(id);
    new FXButton(bar, toToolText(translated(command.menuText)), iconOf(workplace.getIcons(), command.icon), this, id,
                 BUTTON_TOOLBAR | ICON_BEFORE_TEXT | FRAME_RAISED, 0, 0, 0, 0, kButtonPadding, kButtonPadding);
  }
  new FXHorizontalSeparator(this, LAYOUT_SIDE_TOP | LAYOUT_FILL_X | SEPARATOR_GROOVE);
}

void DocumentWindow::createContent() {
  auto* content = new FXVerticalFrame(this, LAYOUT_FILL_X | LAYOUT_FILL_Y, 0, 0, 0, 0, kPadding, kPadding, kPadding,
                                      kPadding, kSpacing, kPadding);
  head = new DocumentHeadPanel(content, session, workplace, this, ID_HEAD);
  auto* splitter = new FXSplitter(
      content, SPLITTER_VERTICAL | SPLITTER_REVERSED | SPLITTER_TRACKING | LAYOUT_FILL_X | LAYOUT_FILL_Y);
  splitter->setBarSize(kPadding);
  createItems(splitter);
  createProblems(splitter);
}

void DocumentWindow::createItems(FXComposite* container) {
  auto* area = new FXHorizontalFrame(container, LAYOUT_FILL_X | LAYOUT_FILL_Y, 0, 0, 0, 0, 0, 0, 0, 0, kPadding, 0);
  auto* left = new FXVerticalFrame(area, LAYOUT_FILL_X | LAYOUT_FILL_Y, 0, 0, 0, 0, 0, 0, 0, 0, 0, kSpacing);
  auto* frame =
      new FXVerticalFrame(left, FRAME_SUNKEN | FRAME_THICK | LAYOUT_FILL_X | LAYOUT_FILL_Y, 0, 0, 0, 0, 0, 0, 0, 0);
  items = new DocumentItemTable(frame, this, this, ID_ITEMS, LAYOUT_FILL_X | LAYOUT_FILL_Y);
  sum = new FXLabel(left, FXString::null, nullptr, JUSTIFY_RIGHT | LAYOUT_FILL_X);
  createItemButtons(area);
}

void DocumentWindow::createItemButtons(FXComposite* container) {
  auto* buttons =
      new FXVerticalFrame(container, LAYOUT_FILL_Y | PACK_UNIFORM_WIDTH, 0, 0, 0, 0, 0, 0, 0, 0, 0, kSpacing);
  const auto add = [this, buttons](const FXString& text, FXIcon* picture, FXuint id) {
    return new FXButton(buttons, text, picture, this, id,
                        FRAME_RAISED | FRAME_THICK | JUSTIFY_LEFT | ICON_BEFORE_TEXT | LAYOUT_FILL_X, 0, 0, 0, 0,
                        kButtonPadding, kButtonPadding);
  };
  for (const Command& command : kItemCommands)
    add(toButtonText(translated(command.menuText)), iconOf(workplace.getIcons(), command.icon), command.id);
  if (!plugins.empty()) new FXHorizontalSeparator(buttons, LAYOUT_FILL_X | SEPARATOR_GROOVE);
  for (std::size_t i = 0; i < plugins.size(); ++i)
    pluginButtons.push_back(
        add(labelOf(*plugins[i]), plugins[i]->getContainer()->getIcon16(), ID_PLUGIN_ENTRY + static_cast<FXuint>(i)));
}

void DocumentWindow::createProblems(FXComposite* container) {
  problems = new MessageListPanel(container, workplace.getIcons(), this, ID_MESSAGES);
  problems->setHeight(kProblemsHeight);
  const Command& step = findCommand(ID_NEXT_PROBLEM);
  new FXButton(problems->getHead(), toToolText(translated(step.menuText)), iconOf(workplace.getIcons(), step.icon),
               this, step.id, BUTTON_NORMAL | ICON_BEFORE_TEXT | LAYOUT_RIGHT, 0, 0, 0, 0, kButtonPadding,
               kButtonPadding);
}

void DocumentWindow::createContextMenu() {
  for (const Command& command : kItemCommands)
    new FXMenuCommand(items->getMenu(), translated(command.menuText), iconOf(workplace.getIcons(), command.icon), this,
                      command.id);
  for (MenuPlugin* plugin : plugins) items->appendPluginEntry(plugin);
}

// ---- what it shows ----

void DocumentWindow::showDocument(int row) {
  head->showDocument();
  items->showItems(session, row);
  showSum();
  showTitle();
}

/// How the document is called where it has to be told from others: a closed one not by its number alone.
FXString DocumentWindow::getName() const {
  const Host::Document& document = session.getDocument();
  if (!session.isReadOnly() || document.getNumber().empty()) return document.getDisplayText();
  const FXString name = document.getStatusName() + ", " + document.getNumber();
  return document.getPartnerName().empty() ? name : name + ", " + document.getPartnerName();
}

void DocumentWindow::showTitle() {
  const FXString name = getName();
  setTitle(FXStringFormat(session.isKnownChanged() ? "* %s – Quillane" : "%s – Quillane", name.text()));
  updateMenus();
}

/// The keys of commands do nothing while their menu entries are disabled, and the toolkit asks about those only when it
/// has nothing else to do: a key that is pressed at once after a change would be lost.
void DocumentWindow::updateMenus() {
  for (const auto& menu : menus)
    for (FXWindow* entry = menu->getFirst(); entry; entry = entry->getNext())
      entry->handle(this, FXSEL(SEL_UPDATE, 0), nullptr);
}

void DocumentWindow::showSum() {
  const Host::Document& document = session.getDocument();
  const bool cancelling = DocumentRules::findFamilyOfCancelling(document.getStatus()) != nullptr;
  Host::ValueSum values;
  for (int i = 0; i < session.countItems(); ++i)
    values.add(document.getItem(i)->getQuantityText(), document.getItem(i)->getPriceText());
  const FXString text = values.isExact() ? Host::displayNumber(values.getText(cancelling ? -1 : 1))
                                         : FXString(dgettext("quillane", "túl sok számjegy"));
  sum->setText(FXStringFormat(dgettext("quillane", "Összesen: %s"), text.text()));
}

void DocumentWindow::tell(const FXString& text) { statusBar->getStatusLine()->setNormalText(text); }

void DocumentWindow::tellError(const FXString& text) {
  FXMessageBox::error(this, MBOX_OK, dgettext("quillane", "Hiba"), "%s", Host::messageText(text).text());
}

bool DocumentWindow::ask(const char* subject, const FXString& question) {
  return FXMessageBox::question(this, MBOX_YES_NO, subject, "%s", Host::messageText(question).text()) ==
         MBOX_CLICKED_YES;
}

void DocumentWindow::checkAll() {
  if (closing) return;
  session.noticeChanges();
  session.runCheck(this);
  problems->showMessages(session.getMessages());
  items->showItems(session, items->getCurrentItemIndex());
  showSum();
  showTitle();
}

// ---- what may be done now ----

bool DocumentWindow::mayRun(FXuint command) const {
  const bool open = !session.isReadOnly() && !closing;
  const int row = items->getCurrentItemIndex();
  const bool gateOpen = session.getDocument().getStatusGate() > 0;
  switch (command) {
    case ID_SAVE:
      return open && (!session.isStored() || session.isKnownChanged());
    case ID_NEXT_PROBLEM:
      return problems->getNumMessages() > 0;
    case ID_CLOSE_DOCUMENT:
      return gateOpen && findMove(true) != 0;
    case ID_MAKE_DRAFT:
      return gateOpen && findMove(false) != 0;
    case ID_DERIVE:
      return !listDerivable().empty();
    case ID_CANCEL_DOCUMENT:
      return DocumentRules::findFamilyOfClosed(session.getDocument().getStatus()) != nullptr;
    case ID_DELETE_DOCUMENT:
      return open && session.isStored();
    case ID_ADD_ITEM:
      return open;
    case ID_CHANGE_ITEM:
    case ID_REMOVE_ITEM:
      return open && row >= 0;
    case ID_MOVE_UP:
      return open && row > 0;
    case ID_MOVE_DOWN:
      return open && row >= 0 && row + 1 < session.countItems();
    default:
      return !closing && (command < ID_PLUGIN_ENTRY || row >= 0);
  }
}

/// The status that the document may move to, a closed one or another; 0 when there is none.
int DocumentWindow::findMove(bool closed) const {
  for (const Host::Status& status : statuses)
    if (status.closed == closed && DocumentRules::mayMove(session.getDocument().getStatus(), status.code))
      return status.code;
  return 0;
}

std::vector<Host::Status> DocumentWindow::listDerivable() const {
  std::vector<Host::Status> choices;
  for (const Host::Status& status : statuses)
    if (DocumentRules::mayDerive(session.getDocument().getStatus(), status.code)) choices.push_back(status);
  return choices;
}

long DocumentWindow::onUpdCommand(FXObject* sender, FXSelector selector, void*) {
  sender->handle(this, FXSEL(SEL_COMMAND, mayRun(FXSELID(selector)) ? ID_ENABLE : ID_DISABLE), nullptr);
  return 1;
}

// ---- the stored document ----

bool DocumentWindow::saveDocument() {
  if (!head->requireDate()) return false;
  const int row = items->getCurrentItemIndex();
  FXString error;
  bool stored = false;
  bool loaded = false;
  {
    WaitCursor wait(getApp());
    loaded = session.save(stored, error);
  }
  if (stored) {
    workplace.documentsChanged();
    showDocument(row);
    checkAll();
    tell(FXStringFormat(dgettext("quillane", "Elmentve: %s"), getName().text()));
  }
  if (!loaded) tellError(error);
  return stored && loaded;
}

bool DocumentWindow::discardChanges() {
  FXString error;
  const int row = items->getCurrentItemIndex();
  if (!session.loadAnew(error)) {
    tellError(error);
    return false;
  }
  showDocument(row);
  checkAll();
  return true;
}

void DocumentWindow::refresh() {
  if (!closing && session.isStored() && !isChanged()) discardChanges();
}

/// Whether the document is stored as it is shown, after what the user answered to that.
bool DocumentWindow::settleChanges() {
  if (!session.isStored())
    return ask(dgettext("quillane", "Nincs elmentve"),
               dgettext("quillane", "A bizonylat még nincs elmentve. Elmenti most?")) &&
           saveDocument();
  if (!isChanged()) return true;
  switch (UnsavedChangesDialog::ask(this, getName())) {
    case UnsavedChangesDialog::SAVE:
      return saveDocument();
    case UnsavedChangesDialog::DISCARD:
      return discardChanges();
    default:
      return false;
  }
}

long DocumentWindow::onSave(FXObject*, FXSelector, void*) {
  if (mayRun(ID_SAVE)) saveDocument();
  return 1;
}

long DocumentWindow::onExport(FXObject*, FXSelector, void*) {
  if (!settleChanges()) return 1;
  const Host::Document& document = session.getDocument();
  const FXString name = XmlFile::makeName(document.getStatusName(), document.getNumber(), document.getId());
  FXString file;
  if (!XmlFile::ask(this, name, file)) return 1;
  FXString error;
  if (session.exportXml(file, error)) {
    tell(FXStringFormat(dgettext("quillane", "Az XML elkészült: %s"), file.text()));
  } else {
    tellError(error);
  }
  return 1;
}

void DocumentWindow::changeStatus(int status) {
  FXString error;
  bool changed = false;
  {
    WaitCursor wait(getApp());
    changed = session.changeStatus(status, error);
  }
  if (changed) workplace.documentsChanged();
  showDocument(items->getCurrentItemIndex());
  checkAll();
  if (!changed) {
    tellError(error);
    return;
  }
  tell(FXStringFormat(dgettext("quillane", "Új állapota: %s"), getName().text()));
}

long DocumentWindow::onCloseDocument(FXObject*, FXSelector, void*) {
  if (!settleChanges()) return 1;
  checkAll();
  // With errors it will be refused, with the reason: there is nothing to confirm.
  if (session.countErrors() > 0 ||
      ask(dgettext("quillane", "Lezárás"),
          FXStringFormat(dgettext("quillane", "A lezárt bizonylat számot kap, és többé nem módosítható. Lezárja?\n%s"),
                         getName().text())))
    changeStatus(findMove(true));
  return 1;
}

long DocumentWindow::onMakeDraft(FXObject*, FXSelector, void*) {
  if (!settleChanges()) return 1;
  if (ask(dgettext("quillane", "Piszkozattá alakítás"),
          FXStringFormat(dgettext("quillane", "A díjbekérőből számlapiszkozat lesz. Átalakítja?\n%s"),
                         getName().text())))
    changeStatus(findMove(false));
  return 1;
}

/// Makes a document of this status from the stored one, and shows it.
void DocumentWindow::makeFromThis(int status) {
  FXString error;
  int id = 0;
  {
    WaitCursor wait(getApp());
    id = session.derive(status, error);
  }
  if (id == 0) {
    tellError(error);
    return;
  }
  workplace.documentsChanged();
  workplace.openDocument(id);
}

long DocumentWindow::onDerive(FXObject*, FXSelector, void*) {
  if (!settleChanges()) return 1;
  DeriveDialog dialog(this, getName(), listDerivable());
  if (dialog.execute(PLACEMENT_OWNER)) makeFromThis(dialog.getStatus());
  return 1;
}

long DocumentWindow::onCancelDocument(FXObject*, FXSelector, void*) {
  const DocumentRules::Family* family = DocumentRules::findFamilyOfClosed(session.getDocument().getStatus());
  if (family && ask(dgettext("quillane", "Sztornózás"),
                    FXStringFormat(dgettext("quillane",
                                            "Sztornóbizonylat készül, amely szintén számot kap, és nem vonható "
                                            "vissza. Sztornózza?\n%s"),
                                   getName().text())))
    makeFromThis(family->cancelling);
  return 1;
}

long DocumentWindow::onDeleteDocument(FXObject*, FXSelector, void*) {
  if (!ask(dgettext("quillane", "Törlés"),
           FXStringFormat(dgettext("quillane", "Törli a bizonylatot minden tételével együtt?\n%s"), getName().text())))
    return 1;
  FXString error;
  if (!session.deleteDocument(error)) {
    tellError(error);
    return 1;
  }
  workplace.documentsChanged();
  letGo();
  return 1;
}

// ---- items ----

long DocumentWindow::onAddItem(FXObject*, FXSelector, void*) {
  if (!mayRun(ID_ADD_ITEM)) return 1;
  ItemDialog dialog(this, workplace.getCompany().getDatabase(), workplace.getIcons(), ItemDialog::NEW_ITEM, ItemInput(),
                    getPanelProviders(workplace));
  if (!dialog.execute(PLACEMENT_OWNER)) return 1;
  const int known = problems->getNumMessages();
  session.insertItem(session.countItems(), dialog.getInput());
  items->showItems(session, session.countItems() - 1);
  checkAll();
  items->setFocus();
  tell(problems->getNumMessages() > known
           ? dgettext("quillane",
                      "Kattintson duplán egy problémára, vagy nyomja meg az F8 billentyűt: megnyílik, ami "
                      "kijavítja.")
           : "");
  return 1;
}

/// Text fields take Insert for themselves, the partner's too: there it would do nothing. It is the key for a new item
/// wherever the cursor is.
long DocumentWindow::onKeyPress(FXObject* sender, FXSelector selector, void* event) {
  const auto* key = static_cast<FXEvent*>(event);
  const bool isInsert = key->code == KEY_Insert || key->code == KEY_KP_Insert;
  const bool isPlain = !(key->state & (SHIFTMASK | CONTROLMASK | ALTMASK));
  if (isInsert && isPlain && !getApp()->getPopupWindow()) return onAddItem(sender, selector, event);
  return InvoiceForm::onKeyPress(sender, selector, event);
}

long DocumentWindow::onChangeItem(FXObject*, FXSelector, void*) {
  if (!mayRun(ID_CHANGE_ITEM)) return 1;
  const int row = items->getCurrentItemIndex();
  ItemDialog dialog(this, workplace.getCompany().getDatabase(), workplace.getIcons(), ItemDialog::CHANGED_ITEM,
                    session.getInput(row), getPanelProviders(workplace));
  if (!dialog.execute(PLACEMENT_OWNER)) return 1;
  if (session.wouldLoseValues(row, dialog.getInput()) &&
      !ask(dgettext("quillane", "Más cikk"),
           FXStringFormat(dgettext("quillane",
                                   "A(z) „%s” tételhez rögzített egyéb adatok elvesznek, ha más cikkre "
                                   "cseréli. Lecseréli?"),
                          session.getInput(row).name.text())))
    return 1;
  session.changeItem(row, dialog.getInput());
  checkAll();
  return 1;
}

long DocumentWindow::onRemoveItem(FXObject*, FXSelector, void*) {
  if (!mayRun(ID_REMOVE_ITEM)) return 1;
  const int row = items->getCurrentItemIndex();
  if (!session.getAttachedText(row).empty() &&
      !ask(dgettext("quillane", "Eltávolítás"),
           FXStringFormat(dgettext("quillane",
                                   "A(z) „%s” tétellel a hozzá rögzített egyéb adatok is elvesznek. "
                                   "Eltávolítja?"),
                          session.getInput(row).name.text())))
    return 1;
  session.removeItem(row);
  items->showItems(session, row);
  checkAll();
  return 1;
}

long DocumentWindow::onMoveItem(FXObject*, FXSelector selector, void*) {
  const FXuint command = FXSELID(selector);
  if (!mayRun(command)) return 1;
  const int row = items->getCurrentItemIndex();
  const int to = command == ID_MOVE_UP ? row - 1 : row + 1;
  session.moveItem(row, to);
  items->showItems(session, to);
  checkAll();
  return 1;
}

long DocumentWindow::onPluginEntry(FXObject*, FXSelector selector, void*) {
  const std::size_t index = FXSELID(selector) - ID_PLUGIN_ENTRY;
  if (index < plugins.size() && mayRun(FXSELID(selector))) items->runPluginEntry(plugins[index]);
  return 1;
}

long DocumentWindow::onHeadChanged(FXObject*, FXSelector, void*) {
  showTitle();
  return 1;
}

long DocumentWindow::onItemPicked(FXObject* sender, FXSelector, void*) {
  return onChangeItem(sender, FXSEL(SEL_COMMAND, ID_CHANGE_ITEM), nullptr);
}

/// Keys that mean an item only in the table, and those that the table would take for itself.
long DocumentWindow::onItemKey(FXObject* sender, FXSelector, void* event) {
  const auto* key = static_cast<FXEvent*>(event);
  const bool control = key->state & CONTROLMASK;
  switch (key->code) {
    case KEY_Delete:
    case KEY_KP_Delete:
      return control ? 0 : onRemoveItem(sender, FXSEL(SEL_COMMAND, ID_REMOVE_ITEM), nullptr);
    case KEY_Up:
    case KEY_KP_Up:
      return control ? onMoveItem(sender, FXSEL(SEL_COMMAND, ID_MOVE_UP), nullptr) : 0;
    case KEY_Down:
    case KEY_KP_Down:
      return control ? onMoveItem(sender, FXSEL(SEL_COMMAND, ID_MOVE_DOWN), nullptr) : 0;
    default:
      return 0;
  }
}

// ---- problems ----

long DocumentWindow::onCheck(FXObject*, FXSelector, void*) {
  checkAll();
  tell(FXStringFormat(dgettext("quillane", "Ellenőrizve: %s"), problems->getSummary().text()));
  return 1;
}

long DocumentWindow::onNextProblem(FXObject*, FXSelector, void*) {
  const int index = problems->stepToNext();
  if (index >= 0) runMessage(index);
  return 1;
}

long DocumentWindow::onMessagePicked(FXObject*, FXSelector, void* event) {
  runMessage(static_cast<int>(reinterpret_cast<FXival>(event)));
  return 1;
}

void DocumentWindow::runMessage(int index) {
  const ListOfMessage& messages = session.getMessages();
  if (index >= messages.no()) return;
  Message* picked = messages[index];
  MessageEvent* event = picked->getSecondEvent() ? picked->getSecondEvent() : picked->getFirstEvent();
  if (event) event->execute(picked, 0);
}

// ---- closing ----

bool DocumentWindow::closeDocument() {
  if (closing) return true;
  if (isChanged()) {
    const auto answer = UnsavedChangesDialog::ask(this, getName());
    if (answer == UnsavedChangesDialog::STAY) return false;
    if (answer == UnsavedChangesDialog::SAVE && !saveDocument()) return false;
  }
  letGo();
  return true;
}

FXbool DocumentWindow::close(FXbool) { return closeDocument(); }

void DocumentWindow::letGo() {
  closing = true;
  hide();
  getApp()->removeChore(this, ID_CHECK_ALL);
  getApp()->removeTimeout(this, ID_CHECK_ALL);
  // The entries would ask their modules whether they may be picked, as long as the window is there.
  for (FXWindow* entry = items->getMenu()->getFirst(); entry; entry = entry->getNext()) entry->setTarget(nullptr);
  problems->clearMessages();
  session.release();
  items->showItems(session, 0);
  workplace.windowClosed(*this);
  getApp()->addChore(this, ID_DELETE_WINDOW);
}

long DocumentWindow::onTellOpeningError(FXObject*, FXSelector, void*) {
  if (!closing) tellError(openingError);
  return 1;
}

long DocumentWindow::onDeleteWindow(FXObject*, FXSelector, void*) {
  delete this;
  return 1;
}

}  // namespace Quillane::Desktop
