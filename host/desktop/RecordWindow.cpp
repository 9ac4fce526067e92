// A list of records to look at, to search, to add to and to pick from.
#include "host/desktop/RecordWindow.h"

#include <libintl.h>

#include "host/windows/LabelText.h"

using namespace FX;

namespace Quillane::Desktop {

FXDEFMAP(RecordWindow)
kRecordWindowMap[] = {
    FXMAPFUNC(SEL_COMMAND, RecordWindow::ID_LIST, RecordWindow::onPicked),
    FXMAPFUNC(SEL_CHANGED, RecordWindow::ID_FILTER, RecordWindow::onFilter),
    FXMAPFUNC(SEL_COMMAND, RecordWindow::ID_NEW, RecordWindow::onNew),
    FXMAPFUNC(SEL_COMMAND, RecordWindow::ID_CHANGE, RecordWindow::onChange),
    FXMAPFUNC(SEL_UPDATE, RecordWindow::ID_CHANGE, RecordWindow::onUpdNeedsRecord),
    FXMAPFUNC(SEL_COMMAND, RecordWindow::ID_ACCEPT, RecordWindow::onCmdAccept),
    FXMAPFUNC(SEL_UPDATE, RecordWindow::ID_ACCEPT, RecordWindow::onUpdNeedsRecord),
};
static_assert(ARRAYNUMBER(kRecordWindowMap) == 7);

FXIMPLEMENT_ABSTRACT(RecordWindow, FXDialogBox, kRecordWindowMap, ARRAYNUMBER(kRecordWindowMap))

namespace {

constexpr FXint kMargin = 10;
constexpr FXint kSpacing = 8;
constexpr FXint kButtonSpacing = 6;

}  // namespace

RecordWindow::RecordWindow(FXWindow* ownerWindow, const FXString& windowTitle, Purpose windowPurpose,
                           std::unique_ptr<RecordSource> recordSource, const Host::IconSet& icons, int initialWidth,
                           int initialHeight)
    : FXDialogBox(ownerWindow, windowTitle, DECOR_TITLE | DECOR_BORDER | DECOR_RESIZE | DECOR_CLOSE, 0, 0, initialWidth,
                  initialHeight, kMargin, kMargin, kMargin, kMargin, kSpacing, kSpacing),
      purpose(windowPurpose),
      source(std::move(recordSource)) {
  auto* content = new FXVerticalFrame(this, LAYOUT_FILL_X | LAYOUT_FILL_Y, 0, 0, 0, 0, 0, 0, 0, 0, 0, kSpacing);
  head = new FXVerticalFrame(content, LAYOUT_FILL_X, 0, 0, 0, 0, 0, 0, 0, 0, 0, kSpacing);
  head->hide();
  createFilter(content);
  createList(content);
  createButtons(content, icons);
  showCount();
}

void RecordWindow::createFilter(FXComposite* content) {
  auto* row = new FXHorizontalFrame(content, LAYOUT_FILL_X, 0, 0, 0, 0, 0, 0, 0, 0, kButtonSpacing, 0);
  new FXLabel(row, dgettext("quillane", "&Keresés:"), nullptr, LAYOUT_CENTER_Y);
  filterField = new FilterField(row, nullptr, this, ID_FILTER);
  filterField->setTipText(dgettext("quillane", "Írja be a név egy részét"));
}

void RecordWindow::createList(FXComposite* content) {
  recordList = new RecordList(content, this, ID_LIST);
  source->addColumns(*recordList);
  filterField->setList(recordList);
}

void RecordWindow::createButtons(FXComposite* content, const Host::IconSet& icons) {
  auto* row = new FXHorizontalFrame(content, LAYOUT_FILL_X, 0, 0, 0, 0, 0, 0, 0, 0, kButtonSpacing, 0);
  countLabel = new FXLabel(row, FXString(), nullptr, JUSTIFY_LEFT | LAYOUT_FILL_X | LAYOUT_CENTER_Y);
  auto* buttons = new FXHorizontalFrame(row, LAYOUT_RIGHT | PACK_UNIFORM_WIDTH, 0, 0, 0, 0, 0, 0, 0, 0, kButtonSpacing,
                                        kButtonSpacing);
  createButton(buttons, dgettext("quillane", "Ú&j..."), icons.get(Host::Icon::ADD), ID_NEW, 0);
  if (purpose == LIST_WINDOW) {
    createButton(buttons, dgettext("quillane", "&Módosítás..."), icons.get(Host::Icon::EDIT), ID_CHANGE, 0);
    createButton(buttons, dgettext("quillane", "&Bezárás"), nullptr, ID_CANCEL, 0);
    return;
  }
  createButton(buttons, dgettext("quillane", "Ki&választás"), nullptr, ID_ACCEPT, BUTTON_DEFAULT | BUTTON_INITIAL);
  createButton(buttons, dgettext("quillane", "&Mégse"), nullptr, ID_CANCEL, BUTTON_DEFAULT);
}

void RecordWindow::createButton(FXComposite* row, const FXString& text, FXIcon* picture, FXSelector command,
                                FXuint opts) {
  auto* button = new FXButton(row, text, picture, this, command, BUTTON_NORMAL | ICON_BEFORE_TEXT | opts);
  button->setPadLeft(kMargin);
  button->setPadRight(kMargin);
}

void RecordWindow::show() {
  prepare();
  FXDialogBox::show();
  if (filterField->id() != 0) filterField->setFocus();
}

void RecordWindow::show(FXuint placement) {
  prepare();
  FXDialogBox::show(placement);
  if (filterField->id() != 0) filterField->setFocus();
}

// From the field the list is searched and used, whatever button was pressed last.
void RecordWindow::takeKeyboard() {
  if (id() == 0) return;
  setFocus();
  filterField->setFocus();
}

void RecordWindow::prepare() {
  reload();
  if (wantedId != 0) recordList->setCurrentId(wantedId);
}

FXuint RecordWindow::execute(FXuint placement) { return FXDialogBox::execute(placement); }

bool RecordWindow::reload() {
  std::vector<RecordList::Row> rows;
  FXString error;
  if (!source->read(rows, error)) {
    FXMessageBox::error(this, MBOX_OK, getTitle().text(), "%s", Host::messageText(error).text());
    return false;
  }
  recordList->setRows(std::move(rows));
  showCount();
  return true;
}

void RecordWindow::showCount() {
  const int all = recordList->getNumRows();
  const int shown = recordList->getNumShown();
  countLabel->setText(source->describeCount(shown, all));
}

long RecordWindow::onFilter(FXObject*, FXSelector, void* ptr) {
  recordList->setFilter(static_cast<const FXchar*>(ptr));
  showCount();
  return 1;
}

long RecordWindow::onPicked(FXObject* sender, FXSelector, void* ptr) {
  return handle(sender, FXSEL(SEL_COMMAND, purpose == PICKER ? FXuint(ID_ACCEPT) : FXuint(ID_CHANGE)), ptr);
}

long RecordWindow::onNew(FXObject* sender, FXSelector, void*) {
  const int id = source->add(this, filterField->getText());
  takeKeyboard();
  if (id == 0) return 1;
  filterField->clearFilter();
  if (!reload()) return 1;
  const bool listed = recordList->setCurrentId(id);
  if (listed && purpose == PICKER) return handle(sender, FXSEL(SEL_COMMAND, ID_ACCEPT), nullptr);
  return 1;
}

long RecordWindow::onChange(FXObject*, FXSelector, void*) {
  const int id = recordList->getCurrentId();
  if (id == 0) return 1;
  const bool changed = source->change(this, id);
  takeKeyboard();
  if (changed) reload();
  return 1;
}

long RecordWindow::onUpdNeedsRecord(FXObject* sender, FXSelector, void*) {
  const FXuint command = recordList->getCurrentId() != 0 ? FXuint(ID_ENABLE) : FXuint(ID_DISABLE);
  sender->handle(this, FXSEL(SEL_COMMAND, command), nullptr);
  return 1;
}

long RecordWindow::onCmdAccept(FXObject* sender, FXSelector selector, void* ptr) {
  if (purpose == PICKER) {
    if (recordList->getCurrentId() == 0) return 1;
    recordPicked(recordList->getCurrentId());
  }
  return FXDialogBox::onCmdAccept(sender, selector, ptr);
}

}  // namespace Quillane::Desktop
