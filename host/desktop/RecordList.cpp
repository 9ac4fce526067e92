// A list of records in columns, sorted and filtered.
//
// The rows are kept as they were set; what the toolkit's list shows is made of them anew whenever the order or the
// filter changes. An item of that list knows its record by the record's id.
#include "host/desktop/RecordList.h"

#include <fxkeys.h>

#include <algorithm>
#include <cstdlib>

#include "host/database/FoldedText.h"

using namespace FX;

namespace Quillane::Desktop {

FXDEFMAP(RecordList)
kRecordListMap[] = {
    FXMAPFUNC(SEL_DOUBLECLICKED, RecordList::ID_LIST, RecordList::onPicked),
    FXMAPFUNC(SEL_CHANGED, RecordList::ID_LIST, RecordList::onCurrentChanged),
    FXMAPFUNC(SEL_KEYPRESS, RecordList::ID_LIST, RecordList::onKeyPress),
    FXMAPFUNC(SEL_COMMAND, RecordList::ID_HEADER, RecordList::onHeaderClicked),
    FXMAPFUNC(SEL_CHANGED, RecordList::ID_HEADER, RecordList::onHeaderChanged),
    FXMAPFUNC(SEL_CLICKED, RecordList::ID_HEADER, RecordList::onHeaderChanged),
    FXMAPFUNC(SEL_CHANGED, RecordList::ID_FILTER, RecordList::onFilter),
};
static_assert(ARRAYNUMBER(kRecordListMap) == 7);

FXIMPLEMENT(RecordList, FXVerticalFrame, kRecordListMap, ARRAYNUMBER(kRecordListMap))

namespace {

constexpr FXint kCellMargin = 4;  // as in the header
constexpr FXint kRowMargin = 2;
constexpr char kEllipsis[] = "…";
constexpr char kNoBreakBlank[] = "\xC2\xA0";

/// text on one line.
FXString onOneLine(const FXString& text) {
  FXString line = text;
  for (FXint i = 0; i < line.length(); ++i)
    if (static_cast<FXuchar>(line[i]) < ' ') line[i] = ' ';
  return line;
}

/// As much of text as fits into the room, with dots for what does not.
FXString fitted(const FXString& text, const FXFont& font, FXint room) {
  if (font.getTextWidth(text) <= room) return text;
  const FXint dots = font.getTextWidth(FXString(kEllipsis));
  FXint length = text.length();
  while (length > 0 && font.getTextWidth(text.text(), static_cast<FXuint>(length)) + dots > room)
    length = text.dec(length);
  return text.left(length) + kEllipsis;
}

/// A row of the toolkit's list: every text stands in its column, numbers to the right.
class RecordItem : public FXIconItem {
 public:
  RecordItem(int recordId, std::vector<FXString> rowTexts)
      : FXIconItem(rowTexts.empty() ? FXString() : rowTexts.front()), id(recordId), texts(std::move(rowTexts)) {}

  int getId() const { return id; }
  FXint getNumCells() const { return static_cast<FXint>(texts.size()); }
  const FXString& getCell(FXint column) const { return texts[static_cast<std::size_t>(column)]; }

  FXint getHeight(const FXIconList* list) const override { return list->getFont()->getFontHeight() + 2 * kRowMargin; }
  FXint getWidth(const FXIconList* list) const override { return list->getHeader()->getTotalSize(); }

 protected:
  void drawDetails(const FXIconList* list, FXDC& dc, FXint x, FXint y, FXint w, FXint h) const override {
    const FXint width = std::max(w, list->getHeader()->getTotalSize());
    if (isSelected()) {
      dc.setForeground(list->getSelBackColor());
      dc.fillRectangle(x, y, width, h);
    }
    if (hasFocus()) dc.drawFocusRectangle(x + 1, y + 1, width - 2, h - 2);
    dc.setForeground(isSelected() ? list->getSelTextColor() : list->getTextColor());
    const FXint columns = std::min(list->getHeader()->getNumItems(), getNumCells());
    for (FXint column = 0; column < columns; ++column) drawCell(*list, dc, x, y, column, h);
  }

 private:
  void drawCell(const FXIconList& list, FXDC& dc, FXint x, FXint y, FXint column, FXint h) const {
    const FXHeader& header = *list.getHeader();
    const FXFont& font = *list.getFont();
    const FXint room = header.getItemSize(column) - 2 * kCellMargin;
    if (room <= 0) return;
    const FXString text = fitted(getCell(column), font, room);
    FXint left = x + header.getItemOffset(column) - header.getPosition() + kCellMargin;
    if (header.getItemJustify(column) & FXHeaderItem::RIGHT) left += room - font.getTextWidth(text);
    dc.drawText(left, y + (h - font.getFontHeight()) / 2 + font.getFontAscent(), text);
  }

  int id;
  std::vector<FXString> texts;
};

RecordItem* itemAt(const FXIconList& list, FXint index) { return static_cast<RecordItem*>(list.getItem(index)); }

/// The toolkit's list, whose tip would be the text of the first column: what is of use is what cannot be read.
class RowList : public FXIconList {
 public:
  using FXIconList::FXIconList;

  long handle(FXObject* sender, FXSelector selector, void* ptr) override {
    return selector == FXSEL(SEL_QUERY_TIP, 0) ? tellTip(sender) : FXIconList::handle(sender, selector, ptr);
  }

 private:
  long tellTip(FXObject* tip) {
    FXint x = 0;
    FXint y = 0;
    FXuint buttons = 0;
    getCursorPosition(x, y, buttons);
    const FXint row = getItemAt(x, y);
    const FXint column = getHeader()->getItemAt(x);
    if (row < 0 || column < 0 || column >= getHeader()->getNumItems()) return 0;
    const RecordItem* item = itemAt(*this, row);
    if (column >= item->getNumCells()) return 0;
    FXString text = item->getCell(column);
    if (getFont()->getTextWidth(text) <= getHeader()->getItemSize(column) - 2 * kCellMargin) return 0;
    tip->handle(this, FXSEL(SEL_COMMAND, ID_SETSTRINGVALUE), &text);
    return 1;
  }
};

/// A column of numbers has numbers as keys; what says none comes first.
bool isNumberBefore(const FXString& a, const FXString& b) {
  if (a.empty() || b.empty()) return a.empty() && !b.empty();
  return std::strtold(a.text(), nullptr) < std::strtold(b.text(), nullptr);
}

}  // namespace

RecordList::RecordList(FXComposite* container, FXObject* listTarget, FXSelector selector, FXuint opts)
    : FXVerticalFrame(container, FRAME_SUNKEN | FRAME_THICK | opts, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0),
      list(
          new RowList(this, this, ID_LIST, ICONLIST_DETAILED | ICONLIST_BROWSESELECT | LAYOUT_FILL_X | LAYOUT_FILL_Y)) {
  setTarget(listTarget);
  setSelector(selector);
  list->getHeader()->setTarget(this);
  list->getHeader()->setSelector(ID_HEADER);
}

void RecordList::addColumn(const FXString& title, int columnWidth, Alignment alignment) {
  columns.push_back({alignment, columnWidth});
  list->appendHeader(title, nullptr, columnWidth);
  const FXuint side = alignment == RIGHT ? FXHeaderItem::RIGHT : FXHeaderItem::LEFT;
  list->getHeader()->setItemJustify(list->getNumHeaders() - 1, side | FXHeaderItem::CENTER_Y);
  showOrder();
}

void RecordList::allowSeveral() { list->setListStyle(ICONLIST_DETAILED | ICONLIST_EXTENDEDSELECT); }

void RecordList::setRows(std::vector<Row> rows) {
  records.clear();
  records.reserve(rows.size());
  for (Row& row : rows) records.push_back(makeRecord(std::move(row)));
  refresh();
}

RecordList::Record RecordList::makeRecord(Row row) const {
  Record record;
  row.texts.resize(columns.size());
  for (std::size_t column = 0; column < columns.size(); ++column) {
    FXString& text = row.texts[column];
    text = onOneLine(text);
    const FXString& key = column < row.sortKeys.size() ? row.sortKeys[column] : text;
    record.keys.push_back(columns[column].alignment == RIGHT ? key : Database::alphabeticKey(key));
    record.searched += Database::foldCase(text) + "\n";
  }
  record.searched.substitute(kNoBreakBlank, " ");
  record.row = std::move(row);
  return record;
}

void RecordList::sortBy(int column, bool descendingOrder) {
  if (column < 0 || column >= static_cast<int>(columns.size())) return;
  sortColumn = column;
  descending = descendingOrder;
  showOrder();
  refresh();
}

void RecordList::showOrder() {
  // TRUE points upwards.
  for (FXint column = 0; column < list->getNumHeaders(); ++column)
    list->getHeader()->setArrowDir(column, column != sortColumn ? MAYBE : descending ? FALSE : TRUE);
}

void RecordList::setFilter(const FXString& text) {
  FXString wanted = Database::foldCase(text);
  wanted.substitute(kNoBreakBlank, " ");
  wanted.trim();
  if (wanted == filter) return;
  filter = wanted;
  refresh();
}

void RecordList::setVisibleIds(const std::set<int>& ids) {
  visibleIds = ids;
  onlyVisibleIds = true;
  refresh();
}

void RecordList::showAll() {
  visibleIds.clear();
  onlyVisibleIds = false;
  filter.clear();
  refresh();
}

std::vector<const RecordList::Record*> RecordList::collectShown() const {
  std::vector<const Record*> shown;
  for (const Record& record : records) {
    if (onlyVisibleIds && !visibleIds.count(record.row.id)) continue;
    if (!filter.empty() && record.searched.find(filter) < 0) continue;
    shown.push_back(&record);
  }
  std::stable_sort(shown.begin(), shown.end(), [this](const Record* a, const Record* b) {
    return descending ? isBefore(*b, *a) : isBefore(*a, *b);
  });
  return shown;
}

bool RecordList::isBefore(const Record& a, const Record& b) const {
  const auto column = static_cast<std::size_t>(sortColumn);
  if (column >= columns.size()) return false;
  if (columns[column].alignment == RIGHT) return isNumberBefore(a.keys[column], b.keys[column]);
  return compare(a.keys[column], b.keys[column]) < 0;
}

void RecordList::refresh() {
  const std::vector<int> selected = getSelectedIds();
  const int current = getCurrentId();
  const FXint x = list->getXPosition();
  const FXint y = list->getYPosition();
  fill(collectShown());
  list->setPosition(x, y);
  restoreSelection(selected, current);
  tellCurrent();
}

void RecordList::fill(const std::vector<const Record*>& shown) {
  list->clearItems();
  for (const Record* record : shown) list->appendItem(new RecordItem(record->row.id, record->row.texts));
}

void RecordList::restoreSelection(const std::vector<int>& selected, int current) {
  if (list->getNumItems() == 0) return;
  const std::set<int> wanted(selected.begin(), selected.end());
  const int index = findIndex(current);
  list->killSelection();
  list->setCurrentItem(std::max(index, 0));
  list->setAnchorItem(std::max(index, 0));
  for (FXint i = 0; i < list->getNumItems(); ++i)
    if (wanted.count(idAt(i)) || (i == 0 && index < 0)) list->selectItem(i);
  list->makeItemVisible(list->getCurrentItem());
}

int RecordList::idAt(int index) const { return isRow(index) ? itemAt(*list, index)->getId() : 0; }

int RecordList::findIndex(int id) const {
  for (FXint i = 0; i < list->getNumItems(); ++i)
    if (idAt(i) == id) return i;
  return -1;
}

int RecordList::getCurrentId() const { return idAt(list->getCurrentItem()); }

bool RecordList::setCurrentId(int id) {
  const int index = findIndex(id);
  if (index < 0) return false;
  list->killSelection();
  list->setCurrentItem(index);
  list->selectItem(index);
  list->setAnchorItem(index);
  list->makeItemVisible(index);
  tellCurrent();
  return true;
}

std::vector<int> RecordList::getSelectedIds() const {
  std::vector<int> ids;
  for (FXint i = 0; i < list->getNumItems(); ++i)
    if (list->isItemSelected(i)) ids.push_back(idAt(i));
  return ids;
}

void RecordList::selectAll() {
  if ((list->getListStyle() & ICONLIST_BROWSESELECT) != 0) return;
  for (FXint i = 0; i < list->getNumItems(); ++i) list->selectItem(i);
}

std::vector<int> RecordList::getShownIds() const {
  std::vector<int> ids;
  for (FXint i = 0; i < list->getNumItems(); ++i) ids.push_back(idAt(i));
  return ids;
}

void RecordList::setFocus() {
  FXVerticalFrame::setFocus();
  // A child that gets the focus first asks its parent to have it, which brings it back here.
  if (passingFocusOn) return;
  passingFocusOn = true;
  list->setFocus();
  passingFocusOn = false;
}

void RecordList::layout() {
  fitStretchColumn();
  FXVerticalFrame::layout();
}

void RecordList::fitStretchColumn() {
  if (stretchColumn < 0 || stretchColumn >= list->getNumHeaders()) return;
  FXint room = width - 2 * border;
  const FXint rowsHeight = list->getContentHeight() + list->getHeader()->getDefaultHeight();
  if (rowsHeight > height - 2 * border) room -= list->verticalScrollBar()->getDefaultWidth();
  for (FXint column = 0; column < list->getNumHeaders(); ++column)
    if (column != stretchColumn) room -= list->getHeaderSize(column);
  const FXint size = std::max(room, columns[static_cast<std::size_t>(stretchColumn)].width);
  if (size != list->getHeaderSize(stretchColumn)) list->setHeaderSize(stretchColumn, size);
}

void RecordList::tellCurrent() {
  const int id = getCurrentId();
  if (id == toldId) return;
  toldId = id;
  if (target) target->tryHandle(this, FXSEL(SEL_CHANGED, message), reinterpret_cast<void*>(static_cast<FXival>(id)));
}

long RecordList::onPicked(FXObject*, FXSelector, void*) {
  const int id = getCurrentId();
  if (id != 0 && target)
    target->tryHandle(this, FXSEL(SEL_COMMAND, message), reinterpret_cast<void*>(static_cast<FXival>(id)));
  return 1;
}

long RecordList::onCurrentChanged(FXObject*, FXSelector, void*) {
  tellCurrent();
  return 1;
}

void RecordList::moveBy(int rowCount) {
  if (list->getNumItems() == 0) return;
  const int index = std::clamp(list->getCurrentItem() + rowCount, 0, list->getNumItems() - 1);
  setCurrentId(idAt(index));
}

long RecordList::onKeyPress(FXObject*, FXSelector, void* ptr) {
  const FXEvent& event = *static_cast<FXEvent*>(ptr);
  const FXint rowHeight = list->getNumItems() > 0 ? itemAt(*list, 0)->getHeight(list) : 1;
  const FXint page = std::max(list->getViewportHeight() / rowHeight - 1, 1);
  const bool control = (event.state & CONTROLMASK) != 0;
  switch (event.code) {
    case KEY_Return:
    case KEY_KP_Enter:
      return onPicked(list, FXSEL(SEL_DOUBLECLICKED, ID_LIST), nullptr);
    case KEY_Page_Up:
    case KEY_KP_Page_Up:
      moveBy(-page);
      return 1;
    case KEY_Page_Down:
    case KEY_KP_Page_Down:
      moveBy(page);
      return 1;
    default:
      break;
  }
  if (!control || event.code < KEY_1 || event.code > KEY_9) return 0;
  return onHeaderClicked(list->getHeader(), FXSEL(SEL_COMMAND, ID_HEADER),
                         reinterpret_cast<void*>(static_cast<FXival>(event.code - KEY_1)));
}

long RecordList::onHeaderClicked(FXObject*, FXSelector, void* ptr) {
  const int column = static_cast<int>(reinterpret_cast<FXival>(ptr));
  sortBy(column, column == sortColumn && !descending);
  return 1;
}

long RecordList::onHeaderChanged(FXObject* sender, FXSelector selector, void* ptr) {
  list->handle(sender, FXSEL(FXSELTYPE(selector), FXIconList::ID_HEADER_CHANGE), ptr);
  recalc();
  return 1;
}

long RecordList::onFilter(FXObject*, FXSelector, void* ptr) {
  setFilter(static_cast<const FXchar*>(ptr));
  return 1;
}

}  // namespace Quillane::Desktop
