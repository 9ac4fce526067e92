// The table of unit rows: its rows and cells are the entries' rows and values, whatever road a change takes.
#include "ui/ItemDataTable.h"

#include <FX88591Codec.h>
#include <fxkeys.h>
#include <libintl.h>

#include <algorithm>
#include <string_view>
#include <vector>

#include "itemdata/ItemDataEntry.h"
#include "ui/LabelText.h"

using namespace FX;

namespace Quillane::Plugin::ItemData::UI {

FXDEFMAP(ItemDataTable)
ItemDataTableMap[] = {
    FXMAPFUNC(SEL_RIGHTBUTTONRELEASE, 0, ItemDataTable::onContextMenu),
    FXMAPFUNC(SEL_COMMAND, ItemDataTable::ID_ADD_ROW, ItemDataTable::onAddRow),
    FXMAPFUNC(SEL_COMMAND, ItemDataTable::ID_DELETE_ROW, ItemDataTable::onDeleteRow),
};
static_assert(ARRAYNUMBER(ItemDataTableMap) == 3, "the menu and its two commands");
static_assert(ItemDataTable::ID_ADD_ROW == 88 && ItemDataTable::ID_DELETE_ROW == 89, "the first ids after the table's");

FXObject* ItemDataTable::manufacture() { return new ItemDataTable; }

const FXMetaClass ItemDataTable::metaClass("ItemDataTable", ItemDataTable::manufacture, &FXTable::metaClass,
                                           ItemDataTableMap, ARRAYNUMBER(ItemDataTableMap),
                                           sizeof(ItemDataTable::FXMapEntry));

namespace {

constexpr const char* kTextDomain = "QuillanePluginItemData";

// What a row counts whose quantity was not pasted with it.
const FXString kOneUnit = "1";

using Line = std::vector<std::string_view>;

FXString toText(std::string_view text) { return FXString(text.data(), static_cast<FXint>(text.size())); }

// The part before the separator; it and the separator leave the text.
std::string_view takeUntil(std::string_view& text, std::size_t separator, std::size_t separatorLength) {
  const std::string_view part = text.substr(0, separator);
  text.remove_prefix(std::min(text.size(), separator == text.npos ? text.size() : separator + separatorLength));
  return part;
}

Line splitLine(std::string_view text) {
  Line fields;
  for (bool more = true; more;) {
    const std::size_t tab = text.find('\t');
    more = tab != text.npos;
    fields.push_back(takeUntil(text, tab, 1));
  }
  return fields;
}

// Lines end with LF, CR LF or CR. Line ends behind the last text make no lines. The fields are parts of the text.
std::vector<Line> splitLines(const FXString& pasted) {
  std::string_view text(pasted.text(), pasted.length());
  while (!text.empty() && (text.back() == '\n' || text.back() == '\r')) text.remove_suffix(1);
  std::vector<Line> lines;
  while (!text.empty()) {
    const std::size_t end = text.find_first_of("\r\n");
    const bool isPair = end != text.npos && text.substr(end, 2) == "\r\n";
    lines.push_back(splitLine(takeUntil(text, end, isPair ? 2 : 1)));
  }
  return lines;
}

bool isOfManyCells(const FXString& text) {
  const std::vector<Line> lines = splitLines(text);
  return lines.size() > 1 || (lines.size() == 1 && lines[0].size() > 1);
}

// Whether the text is one of the choices, blanks around it aside; choice is then as the item has it.
bool findChoice(const FXComboTableItem& item, FXString text, FXString& choice) {
  const FXString choices = item.getSelections();
  const FXint count = choices.contains('\n') + 1;
  text.trim();
  for (FXint i = 0; i < count; ++i) {
    choice = choices.section('\n', i);
    FXString trimmed = choice;
    if (trimmed.trim() == text) return true;
  }
  return false;
}

bool isLetter(const FXEvent& key) {
  return !(key.state & (CONTROLMASK | ALTMASK)) && static_cast<FXuchar>(key.text[0]) >= ' ';
}

// The next item, the first one included, that begins with these letters, blanks before it aside; -1 for none.
FXint findItem(const FXComboBox& list, const FXString& letters, FXint first) {
  const FXint count = list.getNumItems();
  for (FXint step = 0; step < count; ++step) {
    const FXint index = (std::max(first, 0) + step) % count;
    FXString text = list.getItemText(index);
    if (text.contains(' ') < text.length()) text.trimBegin();
    if (comparecase(text, letters, letters.count()) == 0) return index;
  }
  return -1;
}

bool isBackTab(const FXEvent& tab) { return tab.code == KEY_ISO_Left_Tab || (tab.state & SHIFTMASK); }

}  // namespace

// What FXIMPLEMENT writes, and before it what the toolkit's table would do to cells that edit entries, and keys that it
// would keep from the dialog.
long ItemDataTable::handle(FXObject* sender, FXSelector sel, void* ptr) {
  switch (sel) {
    case FXSEL(SEL_COMMAND, ID_PASTE_SEL):
      if (!isEditable()) break;
      pasteText(getClipboardText());
      return 1;
    case FXSEL(SEL_COMMAND, ID_CUT_SEL):
    case FXSEL(SEL_COMMAND, ID_DELETE_SEL):
      acceptInput(TRUE);
      break;
    case FXSEL(SEL_RIGHTBUTTONPRESS, 0):
      goToClickedCell(*static_cast<FXEvent*>(ptr));
      break;
    case FXSEL(SEL_KEYPRESS, 0): {
      const auto& key = *static_cast<FXEvent*>(ptr);
      if (isForDialog(key)) return 0;
      if (actOnListKey(key)) return 1;
      if (isAtRowsEnd(key)) {
        goToNextRow(key);
        return 1;
      }
      if (pastesTable(key)) return handle(this, FXSEL(SEL_COMMAND, ID_PASTE_SEL), nullptr);
      break;
    }
    default:
      break;
  }
  const auto* entry = static_cast<const FXMapEntry*>(metaClass.search(sel));
  return entry ? (this->*entry->func)(sender, sel, ptr) : FXTable::handle(sender, sel, ptr);
}

ItemDataTable::ItemDataTable(FXComposite* container, FXObject* receiver, FXSelector sel, FXuint opts, FXint x, FXint y,
                             FXint w, FXint h, FXint pl, FXint pr, FXint pt, FXint pb)
    : FXTable(container, receiver, sel, opts, x, y, w, h, pl, pr, pt, pb), menu(nullptr), cellLabel(nullptr) {}

ItemDataTable::~ItemDataTable() { delete menu; }

void ItemDataTable::create() {
  FXTable::create();
  if (menu) menu->create();
}

void ItemDataTable::removeItem(FXint row, FXint column, FXbool notify) {
  if (!getEntry(row, column)) {
    FXTable::removeItem(row, column, notify);
    return;
  }
  getItem(row, column)->setText(FXString::null);
  updateItem(row, column);
  if (notify) tellReplaced({{row, column}, {row, column}});
}

void ItemDataTable::setCurrentItem(FXint row, FXint column, FXbool notify) {
  FXTable::setCurrentItem(row, column, notify);
  nameCurrentCell();
}

void ItemDataTable::setMenu(FXMenuPane* pane) {
  delete menu;
  menu = pane;
}

void ItemDataTable::setCellLabel(FXLabel* label) {
  cellLabel = label;
  nameCurrentCell();
}

ItemDataEntry* ItemDataTable::getEntry(FXint row, FXint column) const {
  return isCell(row, column) ? static_cast<ItemDataEntry*>(getItemData(row, column)) : nullptr;
}

void ItemDataTable::placeItem(FXint row, FXint column, FXTableItem* item) {
  FXTableItem*& cell = cells[row * ncols + column];
  if (cell)
    setItem(row, column, item);
  else
    cell = item;
}

void ItemDataTable::pasteText(const FXString& text) {
  acceptInput(TRUE);
  const std::vector<Line> lines = splitLines(text);
  if (!isEditable() || lines.empty() || getNumColumns() < 1) return;

  const FXTablePos from = isAnythingSelected() ? selection.fm : current;
  std::size_t columns = 0;
  for (const Line& line : lines) columns = std::max(columns, line.size());
  FXTableRange filled;
  filled.fm.row = from.row < 0 ? getNumRows() : from.row;
  filled.fm.col = std::max(from.col, 0);
  filled.to.row = filled.fm.row + static_cast<FXint>(lines.size()) - 1;
  filled.to.col = std::min(filled.fm.col + static_cast<FXint>(columns), getNumColumns()) - 1;

  appendRows(filled.to.row + 1 - getNumRows());
  for (FXint row = filled.fm.row; row <= filled.to.row; ++row) {
    const Line& line = lines[row - filled.fm.row];
    for (FXint column = filled.fm.col; column <= filled.to.col; ++column) {
      const std::size_t field = column - filled.fm.col;
      if (field < line.size()) fillCell(row, column, toText(line[field]));
    }
  }
  tellReplaced(filled);
  countOneEach(filled);
  selectRange(filled.fm.row, filled.to.row, filled.fm.col, filled.to.col, TRUE);
}

long ItemDataTable::onContextMenu(FXObject* sender, FXSelector sel, void* ptr) {
  FXTable::onRightBtnRelease(sender, sel, ptr);
  const auto* event = static_cast<FXEvent*>(ptr);
  if (!menu || event->moved) return 1;
  menu->popup(nullptr, event->root_x, event->root_y);
  menu->grabKeyboard();  // or the menu would not hear of any key; hiding it ends the grab
  getApp()->runModalWhileShown(menu);
  return 1;
}

long ItemDataTable::onAddRow(FXObject*, FXSelector, void*) {
  if (!isEditable()) return 1;
  appendRows(1);
  killSelection();
  setCurrentItem(getNumRows() - 1, std::max(current.col, 0));
  setAnchorItem(current.row, current.col);
  makePositionVisible(current.row, current.col);
  return 1;
}

long ItemDataTable::onDeleteRow(FXObject*, FXSelector, void*) {
  if (!isEditable()) return 1;
  acceptInput(TRUE);
  std::vector<FXint> rows;
  for (FXint row = getNumRows() - 1; row >= 0; --row) {
    if (row == current.row || isRowSelected(row)) rows.push_back(row);
  }
  // On purpose: from the first row down, though every later index then means the row behind the one it was taken for.
  for (auto row = rows.rbegin(); row != rows.rend(); ++row) {
    if (*row >= getNumRows()) continue;
    if (target) target->tryHandle(this, FXSEL(SEL_COMMAND, ID_DELETE_ROW), reinterpret_cast<void*>(FXival(*row)));
    removeRows(*row, 1, FALSE);
  }
  // The current cell changed without setCurrentItem.
  if (isCell(current.row, current.col) && getItem(current.row, current.col))
    getItem(current.row, current.col)->setFocus(hasFocus());
  nameCurrentCell();
  return 1;
}

// The toolkit's begins at the first choice whatever the cell shows, so that an arrow key would always take the second.
FXWindow* ItemDataTable::getControlForItem(FXint row, FXint column) {
  FXWindow* control = FXTable::getControlForItem(row, column);
  auto* list = dynamic_cast<FXComboBox*>(control);
  const FXint shown = list ? list->findItem(list->getText()) : -1;
  if (shown >= 0) list->setCurrentItem(shown);
  return control;
}

bool ItemDataTable::isCell(FXint row, FXint column) const {
  return 0 <= row && row < getNumRows() && 0 <= column && column < getNumColumns();
}

// Keys that the toolkit's table keeps though it has no use for them: it would begin to edit a cell with Delete, and
// never let go of the Tab key.
bool ItemDataTable::isForDialog(const FXEvent& key) const {
  if (key.code == KEY_Escape || key.code == KEY_Delete || key.code == KEY_KP_Delete) return !editor;
  return isAtRowsEnd(key) && (isBackTab(key) ? current.row < 1 : current.row >= getNumRows() - 1);
}

bool ItemDataTable::isAtRowsEnd(const FXEvent& tab) const {
  if (tab.code != KEY_Tab && tab.code != KEY_ISO_Left_Tab) return false;
  return isBackTab(tab) ? current.col < 1 : current.col >= getNumColumns() - 1;
}

// A cell's editor is one line; a table is for the cells.
bool ItemDataTable::pastesTable(const FXEvent& key) const {
  return editor && key.code == KEY_v && (key.state & CONTROLMASK) && isOfManyCells(getClipboardText());
}

bool ItemDataTable::isList(FXint row, FXint column) const {
  return isCell(row, column) && dynamic_cast<FXComboTableItem*>(getItem(row, column));
}

// The toolkit's list in a cell has no use for letters and Return, and keeps the Tab key.
bool ItemDataTable::actOnListKey(const FXEvent& key) {
  if (!isEditable() || !isList(current.row, current.col)) return false;
  const auto* list = dynamic_cast<FXComboBox*>(editor);
  if (list && list->isPaneShown()) return false;
  switch (key.code) {
    case KEY_Return:
    case KEY_KP_Enter:
      acceptInput(TRUE);
      return list != nullptr;
    case KEY_Tab:
    case KEY_ISO_Left_Tab:
      acceptInput(TRUE);
      return false;
    default:
      break;
  }
  if (!isLetter(key)) return false;
  lookUp(key);
  return true;
}

// The first letters of a choice choose it. Letters that none begins with are taken for a new beginning, so that one
// letter, pressed again and again, goes through all of its choices.
void ItemDataTable::lookUp(const FXEvent& key) {
  startInput(current.row, current.col);
  auto* list = dynamic_cast<FXComboBox*>(editor);
  if (!list) return;
  const bool goesOn = !typed.empty() && key.time - typedAt <= getApp()->getTypingSpeed();
  typed = goesOn ? typed + key.text : key.text;
  typedAt = key.time;
  FXint found = goesOn ? findItem(*list, typed, list->getCurrentItem()) : -1;
  if (found < 0) {
    typed = key.text;
    found = findItem(*list, typed, list->getCurrentItem() + 1);
  }
  if (found >= 0)
    list->setCurrentItem(found);
  else
    getApp()->beep();
}

void ItemDataTable::goToNextRow(const FXEvent& tab) {
  killSelection(TRUE);
  if (isBackTab(tab))
    setCurrentItem(current.row - 1, getNumColumns() - 1, TRUE);
  else
    setCurrentItem(current.row + 1, 0, TRUE);
  setAnchorItem(current.row, current.col);
  makePositionVisible(current.row, current.col);
}

// The menu's commands mean the current row and the rows that are selected whole; without this they would mean another
// one than was clicked.
void ItemDataTable::goToClickedCell(const FXEvent& click) {
  const FXint row = rowAtY(click.win_y);
  const FXint column = colAtX(click.win_x);
  if (!isCell(row, column) || isRowSelected(row) || (row == current.row && isItemSelected(row, column))) return;
  killSelection(TRUE);
  setCurrentItem(row, column, TRUE);
  setAnchorItem(row, column);
}

FXString ItemDataTable::getClipboardText() const {
  FXString text;
  if (!id() || getDNDData(FROM_CLIPBOARD, utf8Type, text)) return text;
  if (!getDNDData(FROM_CLIPBOARD, stringType, text)) return FXString::null;
  return FX88591Codec().mb2utf(text);
}

void ItemDataTable::appendRows(FXint count) {
  if (count < 1) return;
  acceptInput(TRUE);
  insertRows(getNumRows(), count, FALSE);
  if (target) target->tryHandle(this, FXSEL(SEL_COMMAND, ID_ADD_ROW), this);
}

void ItemDataTable::fillCell(FXint row, FXint column, const FXString& text) {
  const auto* list = dynamic_cast<FXComboTableItem*>(getItem(row, column));
  FXString choice = text;
  if (list && !findChoice(*list, text, choice)) return;
  setItemText(row, column, choice, FALSE);
}

// The quantities that were not pasted.
void ItemDataTable::countOneEach(const FXTableRange& filled) {
  for (FXint row = filled.fm.row; row <= filled.to.row; ++row) {
    for (FXint column = 0; column < getNumColumns(); ++column) {
      if (filled.fm.col <= column && column <= filled.to.col) continue;
      const ItemDataEntry* entry = getEntry(row, column);
      if (!entry || entry->type != ItemDataEntry::TYPE_QUANTITY) continue;
      setItemText(row, column, kOneUnit, FALSE);
      tellReplaced({{row, column}, {row, column}});
    }
  }
}

// The toolkit's own changes of cells are told before they happen, when the old text is still there.
void ItemDataTable::tellReplaced(FXTableRange range) {
  if (target) target->tryHandle(this, FXSEL(SEL_REPLACED, message), &range);
}

void ItemDataTable::nameCurrentCell() {
  if (!cellLabel) return;
  const ItemDataEntry* entry = getEntry(current.row, current.col);
  FXString text;
  if (entry) {
    const char* format =
        entry->mandatory ? dgettext(kTextDomain, "%s, %d. sor *") : dgettext(kTextDomain, "%s, %d. sor");
    text = FXStringFormat(format, labelText(entry->name).text(), current.row + 1);
  }
  cellLabel->setText(text);
}

}  // namespace Quillane::Plugin::ItemData::UI
