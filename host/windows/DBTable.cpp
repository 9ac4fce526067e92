// A table of records. What holds at any time between two messages:
//
//  1. A row's key is the text of its row header; the key of a row that is not stored begins with "-".
//  2. A stored row has an entry in storedRows: the values that the database has. Whether it was changed is found by
//     comparing, so that it does not matter which road a change took.
//  3. Every cell has an item of its column's type.
#include "plugin/contract/DBTable.h"

#include <FX88591Codec.h>
#include <fxkeys.h>
#include <libintl.h>

#include <algorithm>

#include "host/windows/ChoiceEditor.h"
#include "host/windows/CutOffTip.h"
#include "host/windows/DBTableItems.h"
#include "host/windows/PastedText.h"
#include "host/windows/SaveFailureDialog.h"
#include "host/windows/TableSave.h"
#include "plugin/contract/Tarnwell.h"

using namespace FX;

namespace Quillane {

FXDEFMAP(DBTable)
DBTableMap[] = {
    FXMAPFUNC(SEL_LEFTBUTTONPRESS, 0, DBTable::onLeftButtonPress),
    FXMAPFUNC(SEL_LEFTBUTTONRELEASE, 0, DBTable::onLeftButtonRelease),
    FXMAPFUNC(SEL_RIGHTBUTTONPRESS, 0, DBTable::onRightButtonPress),
    FXMAPFUNC(SEL_RIGHTBUTTONRELEASE, 0, DBTable::onRightButtonRelease),
    FXMAPFUNC(SEL_KEYPRESS, 0, DBTable::onKeyPress),
    FXMAPFUNC(SEL_MOTION, 0, DBTable::onMotion),
    FXMAPFUNC(SEL_QUERY_TIP, 0, DBTable::onQueryTip),
    FXMAPFUNC(SEL_COMMAND, DBTable::ID_CUT_SEL, DBTable::onCutOrClear),
    FXMAPFUNC(SEL_COMMAND, DBTable::ID_DELETE_SEL, DBTable::onCutOrClear),
    FXMAPFUNC(SEL_COMMAND, DBTable::ID_PASTE_SEL, DBTable::onPaste),
    FXMAPFUNC(SEL_COMMAND, DBTable::ID_ADD_ROW, DBTable::onAddRow),
    FXMAPFUNC(SEL_COMMAND, DBTable::ID_TOGGLE, DBTable::onToggle),
    FXMAPFUNC(SEL_COMMAND, DBTable::ID_DELETE_ROWS, DBTable::onDeleteRows),
};
static_assert(ARRAYNUMBER(DBTableMap) == 13);
static_assert(DBTable::ID_ADD_ROW == 88 && DBTable::ID_DELETE_ROWS == 90, "modules know the numbers");

FXIMPLEMENT(DBTable, FXTable, DBTableMap, ARRAYNUMBER(DBTableMap))

namespace {

constexpr FXchar kNewRowMark = '-';

constexpr FXint kRowHeaderWidth = 44;  // pixels; room for five digits
constexpr FXint kLeastLastWidth = 80;
constexpr FXint kGridWidth = 2;  // at the table's edges

// Keys that the toolkit combines with others.
constexpr FXuint kModifiers = SHIFTMASK | CONTROLMASK | ALTMASK;

bool opensMenu(const FXEvent& key) { return key.code == KEY_Menu || (key.code == KEY_F10 && (key.state & SHIFTMASK)); }

bool isPlain(const FXEvent& event) { return !(event.state & kModifiers); }

bool isInsert(const FXEvent& key) { return (key.code == KEY_Insert || key.code == KEY_KP_Insert) && isPlain(key); }

bool isDelete(const FXEvent& key) { return (key.code == KEY_Delete || key.code == KEY_KP_Delete) && isPlain(key); }

bool isSpace(const FXEvent& key) { return (key.code == KEY_space || key.code == KEY_KP_Space) && isPlain(key); }

bool opensList(const FXEvent& key) {
  return isSpace(key) || ((key.code == KEY_Down || key.code == KEY_KP_Down) && (key.state & ALTMASK));
}

bool isTab(const FXEvent& key) { return key.code == KEY_Tab || key.code == KEY_ISO_Left_Tab; }

bool isBackTab(const FXEvent& tab) { return tab.code == KEY_ISO_Left_Tab || (tab.state & SHIFTMASK); }

bool isOfManyCells(const FXString& text) {
  const auto lines = splitPastedText(text);
  return lines.size() > 1 || (lines.size() == 1 && lines[0].size() > 1);
}

DBTableChoice readChoice(const FXString& line, bool hasKey) {
  if (!hasKey) return {line, line};
  return {line.section('\t', 0), line.section('\t', 1)};
}

std::vector<DBTableChoice> readChoices(const FXString& values, bool haveKeys) {
  std::vector<DBTableChoice> choices;
  if (values.empty()) return choices;
  for (FXint line = 0; line <= values.contains('\n'); ++line)
    choices.push_back(readChoice(values.section('\n', line), haveKeys));
  return choices;
}

FXString keyOf(const FXTableItem& item) {
  const auto* value = dynamic_cast<const DBTableValue*>(&item);
  return value ? value->getKey() : item.getText();
}

void giveKey(FXTableItem& item, const FXString& key) {
  auto* value = dynamic_cast<DBTableValue*>(&item);
  if (value)
    value->setKey(key);
  else
    item.setText(key);
}

}  // namespace

/// Fills the table with the rows of a result.
class DBTable::RowLoader : public DataBaseValueLoader {
 public:
  explicit RowLoader(DBTable& filled) : table(filled) {}

  bool processValue(int column, const char* name, const char* value) override {
    if (column == 0)
      row = table.appendStoredRow(value);
    else
      table.loadValue(row, column - 1, value);
    return DataBaseValueLoader::processValue(column, name, value);
  }

 private:
  DBTable& table;
  FXint row = -1;
};

DBTablePersister::~DBTablePersister() = default;

bool DBTablePersister::updateItem(int, std::map<FXString, FXString>) { return true; }

bool DBTablePersister::deleteItem(int) { return true; }

bool DBTablePersister::insertItem(std::map<FXString, FXString>) { return true; }

FXString DBTablePersister::getColName(int) { return FXString::null; }

DBTable::DBTable() = default;

DBTable::DBTable(FXComposite* container, FXObject* receiver, FXSelector sel, FXuint opts, FXint x, FXint y, FXint w,
                 FXint h, FXint pl, FXint pr, FXint pt, FXint pb)
    : FXTable(container, receiver, sel, opts, x, y, w, h, pl, pr, pt, pb),
      rowLoader(std::make_unique<RowLoader>(*this)),
      tip(std::make_unique<Host::CutOffTip>()) {
  setColumnHeaderMode(0);  // as high as its texts need
  setRowHeaderWidth(kRowHeaderWidth);
  createMenu();
}

DBTable::~DBTable() { delete menu; }

void DBTable::create() {
  FXTable::create();
  menu->create();
}

void DBTable::layout() {
  FXTable::layout();
  const FXint lastColumn = getNumColumns() - 1;
  if (lastColumn < 0) return;
  FXint others = getRowHeaderWidth();
  for (FXint column = 0; column < lastColumn; ++column) others += getColumnWidth(column);
  const FXint room = std::max(viewport_w - others - kGridWidth, kLeastLastWidth);
  if (room == getColumnWidth(lastColumn)) return;
  setColumnWidth(lastColumn, room);
  FXTable::layout();
}

void DBTable::setTableSize(FXint rowCount, FXint columnCount, FXbool notify) {
  cancelInput();
  FXTable::setTableSize(rowCount, columnCount, notify);
  columns.assign(columnCount, Column());
  storedRows.clear();
  deletedKeys.clear();
  lastNewRow = 0;
  for (FXint row = 0; row < getNumRows(); ++row) fillRow(row, makeNewKey());
}

void DBTable::insertRows(FXint row, FXint count, FXbool notify) {
  if (row < 0 || row > getNumRows() || count < 1) return;
  acceptInput(TRUE);
  FXTable::insertRows(row, count, notify);
  for (FXint added = row; added < row + count; ++added) fillRow(added, makeNewKey());
}

void DBTable::removeRows(FXint row, FXint count, FXbool notify) {
  if (row < 0 || count < 1 || row + count > getNumRows()) return;
  acceptInput(TRUE);
  killSelection(TRUE);
  FXTable::removeRows(row, count, notify);
  // The current cell changed without setCurrentItem.
  if (isCell(current.row, current.col)) getItem(current.row, current.col)->setFocus(hasFocus());
}

void DBTable::removeItem(FXint row, FXint column, FXbool notify) {
  if (!isCell(row, column)) return;
  getItem(row, column)->setText(FXString::null);
  updateItem(row, column);
  if (notify) tellReplaced({{row, column}, {row, column}});
}

DataBaseValueLoader* DBTable::getRowLoader() { return rowLoader.get(); }

void DBTable::setColumnType(FXint column, COLUMN_TYPES type) {
  if (column < 0 || column >= static_cast<FXint>(columns.size())) return;
  columns[column].type = type;
  renewItems(column);
}

DBTable::COLUMN_TYPES DBTable::getColumnType(FXint column) const {
  return 0 <= column && column < static_cast<FXint>(columns.size()) ? columns[column].type : COLUMN_TEXT;
}

void DBTable::setColumnValues(FXint column, FXString values, bool haveKeys) {
  if (column < 0 || column >= static_cast<FXint>(columns.size())) return;
  columns[column].choices = std::make_shared<const std::vector<DBTableChoice>>(readChoices(values, haveKeys));
  setColumnType(column, COLUMN_CHOICE);
}

FXString DBTable::getValueKey(FXint row, FXint column) const {
  return isCell(row, column) ? keyOf(*getItem(row, column)) : FXString::null;
}

void DBTable::setValueKey(FXint row, FXint column, const FXString& key) {
  if (!isCell(row, column)) return;
  giveKey(*getItem(row, column), key);
  updateItem(row, column);
}

bool DBTable::isChecked(FXint row, FXint column) const {
  return isCheckBox(row, column) && static_cast<DBTableCheckItem*>(getItem(row, column))->isChecked();
}

bool DBTable::isNewRow(FXint row) const {
  if (!isRow(row)) return false;
  const FXString key = getRowText(row);
  return key[0] == kNewRowMark && storedRows.count(key) == 0;
}

bool DBTable::isChangedRow(FXint row) const {
  if (!isRow(row)) return false;
  const auto stored = storedRows.find(getRowText(row));
  return stored != storedRows.end() && stored->second != getValues(row);
}

bool DBTable::saveToDB(DBTablePersister* persister) {
  acceptInput(TRUE);
  for (;;) {
    SaveFailure failure;
    if (tryToSave(*persister, failure)) {
      forgetChanges();
      return true;
    }
    if (!wantsAnotherTry(failure)) return false;
  }
}

void DBTable::pasteText(const FXString& text) {
  acceptInput(TRUE);
  const auto lines = splitPastedText(text);
  if (!isEditable() || lines.empty() || getNumColumns() < 1) return;

  const FXTablePos from = isAnythingSelected() ? selection.fm : current;
  std::size_t fields = 0;
  for (const auto& line : lines) fields = std::max(fields, line.size());
  FXTableRange filled;
  filled.fm.row = from.row < 0 ? getNumRows() : from.row;
  filled.fm.col = std::max(from.col, 0);
  filled.to.row = filled.fm.row + static_cast<FXint>(lines.size()) - 1;
  filled.to.col = std::min(filled.fm.col + static_cast<FXint>(fields), getNumColumns()) - 1;

  if (getNumRows() <= filled.to.row) insertRows(getNumRows(), filled.to.row - getNumRows() + 1, FALSE);
  for (FXint row = filled.fm.row; row <= filled.to.row; ++row) {
    const auto& line = lines[row - filled.fm.row];
    for (FXint column = filled.fm.col; column <= filled.to.col; ++column) {
      const std::size_t field = column - filled.fm.col;
      if (field < line.size()) setItemText(row, column, line[field], FALSE);
    }
  }
  tellReplaced(filled);
  selectRange(filled.fm.row, filled.to.row, filled.fm.col, filled.to.col, TRUE);
}

long DBTable::onLeftButtonPress(FXObject* sender, FXSelector selector, void* ptr) {
  const auto& event = *static_cast<FXEvent*>(ptr);
  pressed = isPlain(event) ? cellAt(event) : FXTablePos{-1, -1};
  pressedCurrent = hasFocus() && pressed.row == current.row && pressed.col == current.col;
  return FXTable::onLeftBtnPress(sender, selector, ptr);
}

// A press that is dragged to another cell selects. The first click on a choice only makes it the current cell, so that
// a row can be clicked anywhere.
long DBTable::onLeftButtonRelease(FXObject* sender, FXSelector selector, void* ptr) {
  const FXTablePos cell = cellAt(*static_cast<FXEvent*>(ptr));
  const bool isClick = isEnabled() && cell.row == pressed.row && cell.col == pressed.col;
  pressed = {-1, -1};
  const long handled = FXTable::onLeftBtnRelease(sender, selector, ptr);
  if (!isClick) return handled;
  toggle(cell.row, cell.col);
  if (pressedCurrent && isChoice(cell.row, cell.col)) openChoices();
  return handled;
}

long DBTable::onRightButtonPress(FXObject* sender, FXSelector selector, void* ptr) {
  if (isEnabled()) goToClickedCell(*static_cast<FXEvent*>(ptr));
  return FXTable::onRightBtnPress(sender, selector, ptr);
}

// The toolkit's own handler ends the grab and the scrolling that the press began; without it the next click would be
// lost.
long DBTable::onRightButtonRelease(FXObject* sender, FXSelector selector, void* ptr) {
  if (!FXTable::onRightBtnRelease(sender, selector, ptr)) return 0;
  const auto& event = *static_cast<FXEvent*>(ptr);
  if (!event.moved) openMenu(event.root_x, event.root_y);
  return 1;
}

long DBTable::onKeyPress(FXObject* sender, FXSelector selector, void* ptr) {
  const auto& key = *static_cast<FXEvent*>(ptr);
  if (!isEnabled() || isForWindow(key)) return 0;
  if (!editor && actOnKey(key)) return 1;
  if (isAtRowsEnd(key)) {
    goToNextRow(key);
    return 1;
  }
  if (pastesTable(key)) return handle(this, FXSEL(SEL_COMMAND, ID_PASTE_SEL), nullptr);
  return FXTable::onKeyPress(sender, selector, ptr);
}

long DBTable::onMotion(FXObject* sender, FXSelector selector, void* ptr) {
  const long asksAnew = tip->onMotion(*this, *static_cast<FXEvent*>(ptr));
  return FXTable::onMotion(sender, selector, ptr) || asksAnew;
}

long DBTable::onQueryTip(FXObject* sender, FXSelector, void*) { return tip->onQueryTip(*this, sender); }

long DBTable::onCutOrClear(FXObject* sender, FXSelector selector, void* ptr) {
  acceptInput(TRUE);
  if (!isEditable()) return 1;
  return FXSELID(selector) == ID_CUT_SEL ? FXTable::onCmdCutSel(sender, selector, ptr)
                                         : FXTable::onCmdDeleteSel(sender, selector, ptr);
}

long DBTable::onPaste(FXObject*, FXSelector, void*) {
  if (isEditable()) pasteText(getClipboardText());
  return 1;
}

long DBTable::onAddRow(FXObject*, FXSelector, void*) {
  if (!isEditable() || getNumColumns() < 1) return 1;
  insertRows(getNumRows(), 1, TRUE);
  layout();  // or the table would not scroll to the row
  goToCell(getNumRows() - 1, 0);
  takeKeyboard();
  return 1;
}

long DBTable::onToggle(FXObject*, FXSelector, void*) {
  toggle(current.row, current.col);
  return 1;
}

// The menu has asked already: it could not be clicked otherwise.
long DBTable::onDeleteRows(FXObject* sender, FXSelector, void*) {
  if (!isEditable()) return 1;
  acceptInput(TRUE);
  if (sender != deleteCommand && !askWhetherToDelete()) {
    getApp()->beep();
    return 1;
  }
  if (!selectRowsToDelete()) return 1;
  if (target)
    target->tryHandle(this, FXSEL(SEL_COMMAND, ID_DELETE_ROWS), nullptr);
  else
    deleteSelectedRows();
  takeKeyboard();
  return 1;
}

bool DBTable::isCell(FXint row, FXint column) const {
  return isRow(row) && 0 <= column && column < getNumColumns() && getItem(row, column);
}

bool DBTable::isCheckBox(FXint row, FXint column) const {
  return isCell(row, column) && dynamic_cast<DBTableCheckItem*>(getItem(row, column));
}

bool DBTable::isChoice(FXint row, FXint column) const {
  return isCell(row, column) && dynamic_cast<DBTableChoiceItem*>(getItem(row, column));
}

FXTableItem* DBTable::makeItem(FXint column) const {
  switch (getColumnType(column)) {
    case COLUMN_CHOICE: {
      const auto& choices = columns[column].choices;
      return new DBTableChoiceItem(choices ? choices : std::make_shared<const std::vector<DBTableChoice>>());
    }
    case COLUMN_CHECK:
      return new DBTableCheckItem;
    case COLUMN_TEXT:
      break;
  }
  auto* item = new FXTableItem(FXString::null);
  item->setJustify(FXTableItem::LEFT);
  return item;
}

// A stored key can be negative when somebody gave it by hand.
FXString DBTable::makeNewKey() {
  FXString key;
  do key = FXStringFormat("%c%d", kNewRowMark, ++lastNewRow);
  while (storedRows.count(key) != 0);
  return key;
}

void DBTable::fillRow(FXint row, const FXString& key) {
  setRowText(row, key);
  for (FXint column = 0; column < getNumColumns(); ++column) setItem(row, column, makeItem(column));
  // A table that had no rows has no current cell.
  if (current.col < 0 && getNumColumns() > 0) setCurrentItem(row, 0);
}

// Values that the result does not have are empty.
FXint DBTable::appendStoredRow(const FXString& key) {
  const FXint row = getNumRows();
  acceptInput(TRUE);
  FXTable::insertRows(row, 1, FALSE);
  fillRow(row, key);
  for (FXint column = 0; column < getNumColumns(); ++column) setValueKey(row, column, FXString::null);
  storedRows[key] = getValues(row);
  return row;
}

void DBTable::loadValue(FXint row, FXint column, const FXString& value) {
  if (!isCell(row, column)) return;
  setValueKey(row, column, value);
  storedRows[getRowText(row)][column] = value;
}

void DBTable::renewItems(FXint column) {
  acceptInput(TRUE);
  for (FXint row = 0; row < getNumRows(); ++row) {
    const FXString key = getValueKey(row, column);
    FXTableItem* item = makeItem(column);
    if (!isNewRow(row) || !key.empty()) giveKey(*item, key);
    setItem(row, column, item);
  }
}

DBTable::Values DBTable::getValues(FXint row) const {
  Values values;
  for (FXint column = 0; column < getNumColumns(); ++column) values.push_back(getValueKey(row, column));
  return values;
}

void DBTable::createMenu() {
  menu = new FXMenuPane(this);
  const auto* account = dynamic_cast<Tarnwell*>(getApp());
  new FXMenuCommand(menu, dgettext("quillane", "Ú&j sor\tIns"), account ? account->getAddIcon() : nullptr, this,
                    ID_ADD_ROW);
  deleteCommand = new FXMenuCommand(menu, dgettext("quillane", "Sorok &törlése\tDel"),
                                    account ? account->getDeleteIcon() : nullptr, this, ID_DELETE_ROWS);
  new FXMenuSeparator(menu);
  new FXMenuCommand(menu, dgettext("quillane", "&Kivágás\tCtrl+X"), nullptr, this, ID_CUT_SEL);
  new FXMenuCommand(menu, dgettext("quillane", "&Másolás\tCtrl+C"), nullptr, this, ID_COPY_SEL);
  new FXMenuCommand(menu, dgettext("quillane", "&Beillesztés\tCtrl+V"), nullptr, this, ID_PASTE_SEL);
}

void DBTable::openMenu(FXint rootX, FXint rootY) {
  if (!isEditable()) return;
  acceptInput(TRUE);
  // What is cut and copied is what is selected.
  if (!isAnythingSelected() && isCell(current.row, current.col))
    selectRange(current.row, current.row, current.col, current.col, TRUE);
  askWhetherToDelete();
  menu->popup(nullptr, rootX, rootY);
  menu->grabKeyboard();  // or the menu would not hear of any key; hiding it ends the grab
  getApp()->runModalWhileShown(menu);
}

void DBTable::openMenuAtCurrentCell() {
  FXint x = 0;
  FXint y = getColumnHeaderHeight();
  if (isCell(current.row, current.col)) {
    makePositionVisible(current.row, current.col);
    x = std::max(getColumnX(current.col), 0);
    y = getRowY(current.row) + getRowHeight(current.row);
  }
  FXint rootX = 0;
  FXint rootY = 0;
  translateCoordinatesTo(rootX, rootY, getRoot(), x, y);
  openMenu(rootX, rootY);
}

// The answer may cost a query, so it is asked for when it is needed, not whenever nothing else is to do.
bool DBTable::askWhetherToDelete() {
  if (isEditable() && (isAnythingSelected() || isRow(current.row)))
    deleteCommand->enable();
  else
    deleteCommand->disable();
  if (target && deleteCommand->isEnabled())
    target->tryHandle(deleteCommand, FXSEL(SEL_UPDATE, ID_DELETE_ROWS), nullptr);
  return deleteCommand->isEnabled();
}

// The user sees which rows it is about.
bool DBTable::selectRowsToDelete() {
  const FXint from = isAnythingSelected() ? selection.fm.row : current.row;
  const FXint to = isAnythingSelected() ? selection.to.row : current.row;
  if (!isRow(from) || !isRow(to) || getNumColumns() < 1) return false;
  selectRange(from, to, 0, getNumColumns() - 1, TRUE);
  return true;
}

void DBTable::deleteSelectedRows() {
  const FXTableRange rows = selection;
  for (FXint row = rows.fm.row; row <= rows.to.row; ++row) {
    if (getRowText(row)[0] != kNewRowMark) deletedKeys.push_back(FXIntVal(getRowText(row)));
  }
  removeRows(rows.fm.row, rows.to.row - rows.fm.row + 1, TRUE);
}

// What the toolkit's table would do with these keys is of no use among records.
bool DBTable::actOnKey(const FXEvent& key) {
  if (opensMenu(key)) {
    openMenuAtCurrentCell();
  } else if (isInsert(key)) {
    handle(this, FXSEL(SEL_COMMAND, ID_ADD_ROW), nullptr);
  } else if (isDelete(key)) {
    handle(this, FXSEL(SEL_COMMAND, ID_DELETE_ROWS), nullptr);
  } else if (opensList(key) && isChoice(current.row, current.col)) {
    openChoices();
  } else if (isSpace(key) && isCheckBox(current.row, current.col)) {
    handle(this, FXSEL(SEL_COMMAND, ID_TOGGLE), nullptr);
  } else {
    return false;
  }
  return true;
}

// Keys that the toolkit's table keeps though it has no use for them: it would never let go of the Tab key.
bool DBTable::isForWindow(const FXEvent& key) const {
  if (key.code == KEY_Escape) return !editor;
  if (!isRow(current.row)) return isTab(key);
  return isAtRowsEnd(key) && (isBackTab(key) ? current.row < 1 : current.row >= getNumRows() - 1);
}

bool DBTable::isAtRowsEnd(const FXEvent& tab) const {
  if (!isTab(tab)) return false;
  return isBackTab(tab) ? current.col < 1 : current.col >= getNumColumns() - 1;
}

// A cell's editor is one line; a table is for the cells.
bool DBTable::pastesTable(const FXEvent& key) const {
  return editor && key.code == KEY_v && (key.state & CONTROLMASK) && isOfManyCells(getClipboardText());
}

void DBTable::goToCell(FXint row, FXint column) {
  killSelection(TRUE);
  setCurrentItem(row, column, TRUE);
  setAnchorItem(row, column);
  makePositionVisible(row, column);
}

void DBTable::goToNextRow(const FXEvent& tab) {
  if (isBackTab(tab))
    goToCell(current.row - 1, getNumColumns() - 1);
  else
    goToCell(current.row + 1, 0);
}

// The menu's commands mean the selected rows; without this they would mean others than the one that was clicked.
void DBTable::goToClickedCell(const FXEvent& click) {
  const FXTablePos cell = cellAt(click);
  if (!isCell(cell.row, cell.col) || isItemSelected(cell.row, cell.col)) return;
  goToCell(cell.row, cell.col);
}

FXTablePos DBTable::cellAt(const FXEvent& click) const { return {rowAtY(click.win_y), colAtX(click.win_x)}; }

void DBTable::toggle(FXint row, FXint column) {
  if (!isEditable() || !isCheckBox(row, column)) return;
  static_cast<DBTableCheckItem*>(getItem(row, column))->toggle();
  updateItem(row, column);
  tellReplaced({{row, column}, {row, column}});
}

void DBTable::openChoices() {
  if (!isEditable()) return;
  startInput(current.row, current.col);
  if (auto* choices = dynamic_cast<ChoiceEditor*>(editor)) choices->openList();
}

// After a command of a button or a menu what is typed is for the table.
void DBTable::takeKeyboard() {
  if (id() != 0) setFocus();
}

// The toolkit's own changes of cells are told before they happen, when the old text is still there.
void DBTable::tellReplaced(FXTableRange range) {
  if (target) target->tryHandle(this, FXSEL(SEL_REPLACED, message), &range);
}

FXString DBTable::getClipboardText() const {
  FXString text;
  if (!id() || getDNDData(FROM_CLIPBOARD, utf8Type, text)) return text;
  if (!getDNDData(FROM_CLIPBOARD, stringType, text)) return FXString::null;
  return FX88591Codec().mb2utf(text);
}

// A dialog is often saved when it has closed already; then the window that was opened last has to do.
FXWindow* DBTable::getVisibleOwner() const {
  if (getShell()->shown()) return getShell();
  for (FXWindow* window = getRoot()->getLast(); window; window = window->getPrev()) {
    if (window->shown() && dynamic_cast<FXTopWindow*>(window)) return window;
  }
  return getShell();
}

// Deleted records first: what they had alone may be given to another one.
std::vector<TableChange> DBTable::getChanges(DBTablePersister& persister) const {
  std::vector<TableChange> changes;
  for (const FXint key : deletedKeys) {
    const auto stored = storedRows.find(FXStringVal(key));
    const FXString name = stored == storedRows.end() || stored->second.empty() ? FXStringVal(key) : stored->second[0];
    changes.push_back({TableChange::DELETED,
                       key,
                       {},
                       FXStringFormat(dgettext("quillane", "Ez a sor nem törölhető: \"%s\"."), name.text())});
  }
  for (const bool inserted : {false, true}) {
    for (FXint row = 0; row < getNumRows(); ++row) {
      if (!(inserted ? isNewRow(row) : isChangedRow(row))) continue;
      changes.push_back({inserted ? TableChange::INSERTED : TableChange::CHANGED, FXIntVal(getRowText(row)),
                         getNamedValues(row, persister),
                         FXStringFormat(dgettext("quillane", "A táblázat %d. sora nem menthető: \"%s\"."), row + 1,
                                        getItemText(row, 0).text())});
    }
  }
  return changes;
}

std::map<FXString, FXString> DBTable::getNamedValues(FXint row, DBTablePersister& persister) const {
  std::map<FXString, FXString> values;
  for (FXint column = 0; column < getNumColumns(); ++column) {
    const FXString name = persister.getColName(column + 1);
    if (!name.empty()) values[name] = getValueKey(row, column);
  }
  return values;
}

bool DBTable::tryToSave(DBTablePersister& persister, SaveFailure& failure) {
  const std::vector<TableChange> changes = getChanges(persister);
  if (changes.empty()) return true;
  const auto* account = dynamic_cast<Tarnwell*>(getApp());
  TarnwellDatabase* database = account ? account->getDB() : nullptr;
  if (!database) {
    failure = {changes.front().problem, dgettext("quillane", "Nincs megnyitva cég.")};
    return false;
  }
  getApp()->beginWaitCursor();
  const bool saved = saveChanges(*database, persister, changes, failure);
  getApp()->endWaitCursor();
  return saved;
}

bool DBTable::wantsAnotherTry(const SaveFailure& failure) {
  FXWindow* before = getVisibleOwner();
  return SaveFailureDialog(before, failure).execute(before->shown() ? PLACEMENT_OWNER : PLACEMENT_SCREEN);
}

void DBTable::forgetChanges() {
  deletedKeys.clear();
  storedRows.clear();
  for (FXint row = 0; row < getNumRows(); ++row) storedRows[getRowText(row)] = getValues(row);
}

}  // namespace Quillane
