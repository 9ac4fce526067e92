// The window of a record to which modules add panels.
//
//  1. A handler is deleted before the widgets that it made, and these before the module is unloaded.
//  2. Everything is written in one transaction, the record first: a panel finds the id of a new record. After a failure
//     the record has the id that it had before.
#include <libintl.h>

#include "host/document/Transaction.h"
#include "host/windows/FieldMatrix.h"
#include "host/windows/LabelText.h"
#include "host/windows/Mnemonic.h"
#include "host/windows/TabPages.h"
#include "plugin/contract/Forms.h"
#include "plugin/contract/PanelProvider.h"

using namespace FX;

namespace Quillane {

FXDEFMAP(PanelisedWindow)
PanelisedWindowMap[] = {
    FXMAPFUNC(SEL_COMMAND, PanelisedWindow::ID_ACCEPT, PanelisedWindow::onCmdAccept),
    FXMAPFUNC(SEL_COMMAND, PanelisedWindow::ID_CANCEL, PanelisedWindow::onCmdCancel),
    FXMAPFUNC(SEL_CLOSE, 0, PanelisedWindow::onCmdCancel),
    FXMAPFUNC(SEL_COMMAND, PanelisedWindow::ID_TABS, PanelisedWindow::onTab),
};
static_assert(ARRAYNUMBER(PanelisedWindowMap) == 4);

FXIMPLEMENT(PanelisedWindow, FXDialogBox, PanelisedWindowMap, ARRAYNUMBER(PanelisedWindowMap))

namespace {

constexpr FXint kMargin = 10;
constexpr FXint kTabPadding = 10;
constexpr FXint kWidthWithPanels = 720;
constexpr FXint kHeightWithPanels = 580;

}  // namespace

PanelisedWindow::PanelisedWindow() = default;

PanelisedWindow::PanelisedWindow(FXWindow* ownerWindow, TarnwellDatabase& companyDatabase, const FXString& windowTitle,
                                 FXIcon* windowMiniIcon)
    : FXDialogBox(ownerWindow, windowTitle, DECOR_TITLE | DECOR_BORDER | DECOR_RESIZE | DECOR_CLOSE, 0, 0, 0, 0,
                  kMargin, kMargin, kMargin, kMargin),
      database(&companyDatabase) {
  setMiniIcon(windowMiniIcon);
  Host::addDialogButtons(this, this);
  tabs = new Host::TabPages(this, this, ID_TABS, TABBOOK_NORMAL | LAYOUT_FILL_X | LAYOUT_FILL_Y);
  fieldFrame = addTab(dgettext("quillane", "&Adatok"), windowMiniIcon);
}

PanelisedWindow::~PanelisedWindow() { handlers.clear(); }

FXuint PanelisedWindow::execute(FXuint placement) { return FXDialogBox::execute(placement); }

FXVerticalFrame* PanelisedWindow::addTab(const FXString& label, FXIcon* tabIcon) {
  new FXTabItem(tabs, label, tabIcon, TAB_TOP_NORMAL | ICON_BEFORE_TEXT, 0, 0, 0, 0, kTabPadding, kTabPadding);
  return new FXVerticalFrame(tabs, FRAME_RAISED | FRAME_THICK | LAYOUT_FILL_X | LAYOUT_FILL_Y, 0, 0, 0, 0, kMargin,
                             kMargin, kMargin, kMargin);
}

void PanelisedWindow::addPanels(const std::vector<Plugin::PanelProvider::Plugin*>& providers) {
  for (Plugin::PanelProvider::Plugin* provider : providers)
    if (provider->acceptWindow(this)) addPanel(*provider);
  if (handlers.empty()) return;
  setWidth(kWidthWithPanels);
  setHeight(kHeightWithPanels);
}

void PanelisedWindow::addPanel(Plugin::PanelProvider::Plugin& provider) {
  std::unique_ptr<Plugin::PanelProvider::Handler> handler(provider.getHandler(this));
  if (!handler) return;
  std::string used = Host::getUsedMnemonics(*this);
  handler->createGUI(addTab(Host::markMnemonic(handler->getPanelName(), used), handler->getIcon16()));
  handlers.push_back(std::move(handler));
}

void PanelisedWindow::showTab(int tab) {
  if (0 <= tab && tab <= static_cast<int>(handlers.size())) tabs->setCurrent(tab, TRUE);
}

long PanelisedWindow::onTab(FXObject*, FXSelector, void* ptr) {
  const FXival tab = reinterpret_cast<FXival>(ptr);
  if (0 < tab && tab <= static_cast<FXival>(handlers.size())) handlers[static_cast<std::size_t>(tab - 1)]->onFocus();
  return 1;
}

bool PanelisedWindow::writeRecord(FXString&) { return true; }

void PanelisedWindow::recordRefused() {}

/// What the panels answer is not asked for: a statement of theirs that failed fails the transaction by itself.
bool PanelisedWindow::writeAll(FXString& reason, FXObject* sender, FXSelector selector, void* ptr) {
  if (!writeRecord(reason)) return false;
  for (const std::unique_ptr<Plugin::PanelProvider::Handler>& handler : handlers)
    handler->onOKButton(sender, selector, ptr);
  return true;
}

long PanelisedWindow::onCmdAccept(FXObject* sender, FXSelector selector, void* ptr) {
  const int idBefore = recordId;
  FXString refusal;
  FXString reason;
  const bool written = Host::Transaction::run(*database, reason, [&](FXString& said) {
    const bool done = writeAll(refusal, sender, selector, ptr);
    said = refusal;
    return done;
  });
  if (written) return FXDialogBox::onCmdAccept(sender, selector, ptr);
  recordId = idBefore;
  if (refusal.empty())
    reason = FXStringFormat(dgettext("quillane", "Az adatok nem tárolhatók, semmi sem változott. %s"), reason.text());
  FXMessageBox::error(this, MBOX_OK, getTitle().text(), "%s", Host::messageText(reason).text());
  if (id() != 0) setFocus();
  recordRefused();
  return 1;
}

long PanelisedWindow::onCmdCancel(FXObject* sender, FXSelector selector, void* ptr) {
  for (const std::unique_ptr<Plugin::PanelProvider::Handler>& handler : handlers)
    handler->onCancelButton(sender, selector, ptr);
  return FXDialogBox::onCmdCancel(sender, selector, ptr);
}

}  // namespace Quillane
