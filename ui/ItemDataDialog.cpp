// The item data dialog: a field for each per-item entry, a table of the unit rows, everything edited in place.
#include "ui/ItemDataDialog.h"

#include <libintl.h>

#include <algorithm>

#include "fxext/FXDecimal.h"
#include "itemdata/ItemDataEntry.h"
#include "itemdata/ItemDataList.h"
#include "plugin/contract/Invoice.h"
#include "plugin/contract/Tarnwell.h"
#include "ui/ItemDataTable.h"
#include "ui/LabelText.h"

using namespace FX;

namespace Quillane::Plugin::ItemData {

using UI::ItemDataTable;

FXDEFMAP(ItemDataDialog)
ItemDataDialogMap[] = {
    FXMAPFUNC(SEL_COMMAND, ItemDataTable::ID_ADD_ROW, ItemDataDialog::onAddRow),
    FXMAPFUNC(SEL_COMMAND, ItemDataTable::ID_DELETE_ROW, ItemDataDialog::onDeleteRow),
    FXMAPFUNC(SEL_REPLACED, ItemDataDialog::ID_TABLE, ItemDataDialog::onChange),
};
static_assert(ARRAYNUMBER(ItemDataDialogMap) == 3, "what the table tells");
static_assert(ItemDataDialog::ID_TABLE == 63, "the first id after the dialog box's");
static_assert(FXDialogBox::ID_ACCEPT == 61, "what the OK button sends");

FXObject* ItemDataDialog::manufacture() { return new ItemDataDialog; }

const FXMetaClass ItemDataDialog::metaClass("ItemDataDialog", ItemDataDialog::manufacture, &FXDialogBox::metaClass,
                                            ItemDataDialogMap, ARRAYNUMBER(ItemDataDialogMap),
                                            sizeof(ItemDataDialog::FXMapEntry));

namespace {

constexpr const char* kTextDomain = "QuillanePluginItemData";

constexpr int kWidth = 600;
constexpr int kHeightWithTable = 400;
constexpr int kWidthOfColumns = 568;

// The fields that belong to the item as a whole, of a list or of its settings.
int numberOfFields(const ItemDataList& list) { return list.firstUnitIndex < 0 ? list.no() : list.firstUnitIndex; }

// The same item data with every field that is missing, for the eyes alone.
std::unique_ptr<ItemDataList> completedCopy(const ItemDataList& list) {
  auto copy = std::make_unique<ItemDataList>();
  copy->settings = list.settings->clone(list.getOwner());
  for (FXint i = 0; i < list.no(); ++i) {
    if (list[i] && !list[i]->del) copy->append(list[i]->clone(list.getOwner()));
  }
  copy->completeFromSettings();
  return copy;
}

// A text can still be marked and copied.
void makeReadOnly(FXWindow* widget) {
  if (auto* field = dynamic_cast<FXTextField*>(widget)) {
    field->setEditable(FALSE);
    field->setBackColor(field->getApp()->getBaseColor());
    return;
  }
  widget->disable();
  for (FXWindow* child = widget->getFirst(); child; child = child->getNext()) child->disable();
}

}  // namespace

// What FXIMPLEMENT writes, and behind it: whoever opens the dialog can type at once. The fields get their texts first,
// for one that has the keyboard no longer asks for its own and would stay empty, to be typed over.
long ItemDataDialog::handle(FXObject* sender, FXSelector sel, void* ptr) {
  const auto* entry = static_cast<const FXMapEntry*>(metaClass.search(sel));
  const long handled = entry ? (this->*entry->func)(sender, sel, ptr) : FXDialogBox::handle(sender, sel, ptr);
  if (sel == FXSEL(SEL_FOCUSIN, 0) && !getFocus()) {
    forceRefresh();
    handle(this, FXSEL(SEL_FOCUS_NEXT, 0), ptr);
  }
  return handled;
}

ItemDataDialog::ItemDataDialog() : item(nullptr), table(nullptr), list(nullptr) {}

ItemDataDialog::ItemDataDialog(FXWindow* ownerWindow, InvoiceItem* invoiceItem)
    : FXDialogBox(ownerWindow, FXString::null, DECOR_ALL, 0, 0, 0, 0, 10, 10, 10, 10, 4, 4),
      item(invoiceItem),
      table(nullptr),
      list(nullptr) {
  setTitle(FXStringFormat(dgettext(kTextDomain, "%s egyéb tételadatai"), item->getName().text()));
  setWidth(kWidth);
  auto* frame = new FXVerticalFrame(this, LAYOUT_FILL, 0, 0, 0, 0, 4, 4, 4, 4, 4, 4);
  takeList();
  if (list) createContent(frame);
  createButtons(frame);
}

ItemDataDialog::~ItemDataDialog() {
  if (table) table->acceptInput(TRUE);
}

void ItemDataDialog::createContent(FXComposite* container) {
  createFields(container);
  if (list->firstUnitIndex < 0 || !list->settings || list->settings->unitColumnCount < 1) return;
  createTable(container);
  createMenu();
  createCells();
  if (isReadOnly()) return;
  if (list->getRowNum() == 0)
    table->handle(this, FXSEL(SEL_COMMAND, ItemDataTable::ID_ADD_ROW), nullptr);
  else
    table->setCurrentItem(0, 0);
}

void ItemDataDialog::triggerQtyChange(int row, int column) {
  if (!table || !table->getEntry(row, column)) return;
  const FXString quantity = table->getItemText(row, column);
  for (FXint other = 0; other < table->getNumColumns(); ++other) {
    if (other == column) continue;
    if (ItemDataEntry* entry = table->getEntry(row, other)) entry->onQuantityChanged(quantity);
  }
}

long ItemDataDialog::onAddRow(FXObject*, FXSelector, void*) {
  if (!list || !table || isReadOnly()) return 1;
  // A paste appends many rows at once.
  FXint row = table->getNumRows() - 1;
  while (row > 0 && !table->getEntry(row - 1, 0)) --row;
  const FXint firstNew = list->no();
  list->addRows(std::max(table->getNumRows() - row, 1));
  proposeQuantities(firstNew);

  for (FXint i = firstNew, column = 0; i < list->no(); ++i, ++column) {
    if (i > firstNew && list->at(i)->row != list->at(i - 1)->row) {
      ++row;
      column = 0;
    }
    if (row >= 0 && column < table->getNumColumns()) table->placeItem(row, column, list->at(i)->getTableItem());
  }
  return 1;
}

long ItemDataDialog::onDeleteRow(FXObject*, FXSelector, void* ptr) {
  if (!list || !table || isReadOnly()) return 1;
  const auto row = static_cast<FXint>(reinterpret_cast<FXival>(ptr));
  const ItemDataEntry* quantity = table->getEntry(row, 0);
  if (!quantity) return 1;
  const int rowNumber = quantity->row;
  // The list deletes entries that were never stored; no cell may outlive its entry.
  for (FXint column = 0; column < table->getNumColumns(); ++column) {
    const ItemDataEntry* entry = table->getEntry(row, column);
    if (entry && !entry->pk) table->setItem(row, column, nullptr);
  }
  list->markRowForDelete(rowNumber);
  return 1;
}

long ItemDataDialog::onChange(FXObject*, FXSelector, void* ptr) {
  const auto* range = static_cast<const FXTableRange*>(ptr);
  if (!table || !range) return 1;
  for (FXint row = range->fm.row; row <= range->to.row; ++row) {
    for (FXint column = range->fm.col; column <= range->to.col; ++column) {
      const ItemDataEntry* entry = table->getEntry(row, column);
      if (entry && entry->type == ItemDataEntry::TYPE_QUANTITY) triggerQtyChange(row, column);
    }
  }
  return 1;
}

bool ItemDataDialog::isReadOnly() const { return item->getInvoice() && item->getInvoice()->isStatusClosed(); }

void ItemDataDialog::takeList() {
  list = ItemDataList::of(*item);
  if (!list || list->isComplete()) return;
  if (isReadOnly()) {
    copy = completedCopy(*list);
    list = copy.get();
  } else {
    list->completeFromSettings();
  }
}

void ItemDataDialog::createFields(FXComposite* container) {
  const int count = numberOfFields(list->settings ? *list->settings : *list);
  if (count < 1) return;
  auto* matrix = new FXMatrix(container, 2, MATRIX_BY_COLUMNS | LAYOUT_FILL_X, 0, 0, 0, 0, 4, 4, 4, 4, 4, 4);
  for (FXint i = 0; i < std::min<FXint>(count, list->no()); ++i) {
    ItemDataEntry* entry = list->at(i);
    if (!entry) continue;
    new FXLabel(matrix, UI::labelText(entry->name) + ":", nullptr, LAYOUT_RIGHT, 0, 0, 0, 0, 2, 2, 2, 2);
    entry->addWidget(matrix, targets);
    if (isReadOnly()) makeReadOnly(matrix->getLast());
  }
  // The matrix is not laid out yet, so that the dialog takes the height that it needs.
  setHeight(matrix->getHeight());
}

void ItemDataDialog::createTable(FXComposite* container) {
  setHeight(kHeightWithTable);
  auto* frame =
      new FXHorizontalFrame(container, FRAME_LINE | LAYOUT_FILL_X | LAYOUT_FILL_Y, 0, 0, 0, 0, 0, 0, 0, 0, 4, 4);
  table = new ItemDataTable(frame, this, ID_TABLE, TABLE_COL_SIZABLE | LAYOUT_FILL_X | LAYOUT_FILL_Y, 0, 0, 0, 0, 2, 2,
                            2, 2);
  table->setRowHeaderWidth(0);
  // As high as its texts need it; the toolkit's own height cuts letters off.
  table->setColumnHeaderMode(0);
  table->setEditable(!isReadOnly());
}

void ItemDataDialog::createMenu() {
  const auto* account = static_cast<Tarnwell*>(getApp());
  // The keys of the menu work while the dialog is active, because it owns the menu. The earlier menu goes first:
  // with it go the keys.
  table->setMenu(nullptr);
  auto* menu = new FXMenuPane(this);
  auto* add = new FXMenuCommand(menu, dgettext(kTextDomain, "&Új sor\tIns"), account->getAddIcon(), table,
                                ItemDataTable::ID_ADD_ROW);
  auto* remove = new FXMenuCommand(menu, dgettext(kTextDomain, "&Törlés\tDel"), account->getDeleteIcon(), table,
                                   ItemDataTable::ID_DELETE_ROW);
  if (isReadOnly()) {
    add->disable();
    remove->disable();
  }
  table->setMenu(menu);
}

void ItemDataDialog::createCells() {
  const ItemDataList& settings = *list->settings;
  const int rows = list->getRowNum();
  const int columns = settings.unitColumnCount;
  table->setTableSize(rows, columns);
  if (settings.firstUnitIndex >= settings.no()) return;

  const int start = list->firstUnitIndex;
  int placed = start;
  for (int i = start; i < std::max(list->no(), settings.no()); ++i) {
    const int row = (placed - start) / columns;
    const int column = (placed - start) % columns;
    // On purpose: with per-item variables this is not always the header of the cell's own column. The label beside the
    // OK button names the current cell rightly.
    if (row == 0) createHeader(rows <= 0 || (i <= rows && i < settings.no()) ? i : column);
    if (i >= list->no()) continue;
    ItemDataEntry* entry = list->at(i);
    if (!entry || entry->del || !fitsColumn(*entry, column)) continue;
    if (row < table->getNumRows()) table->placeItem(row, column, entry->getTableItem());
    ++placed;
  }
}

void ItemDataDialog::createHeader(int index) {
  const ItemDataList& settings = *list->settings;
  if (index < 0 || index >= table->getNumColumns() || index >= settings.no() || !settings[index]) return;
  table->setColumnText(index, settings[index]->name);
  table->setColumnWidth(index, kWidthOfColumns / table->getNumColumns());
}

void ItemDataDialog::createButtons(FXComposite* container) {
  new FXHorizontalSeparator(container, SEPARATOR_GROOVE | LAYOUT_FILL_X | LAYOUT_SIDE_BOTTOM);
  auto* buttons = new FXHorizontalFrame(container, LAYOUT_FILL_X | LAYOUT_SIDE_BOTTOM, 0, 0, 0, 0, 4, 4, 4, 4, 4, 4);
  if (list && isReadOnly()) {
    new FXLabel(buttons, dgettext(kTextDomain, "A bizonylat lezárt, az adatok csak olvashatók."), nullptr,
                LAYOUT_CENTER_Y);
  }
  if (table) {
    auto* cellLabel = new FXLabel(buttons, FXString::null, nullptr, LAYOUT_CENTER_Y);
    table->setCellLabel(cellLabel);
  }
  new FXButton(buttons, dgettext(kTextDomain, "&OK"), nullptr, this, ID_ACCEPT,
               BUTTON_NORMAL | BUTTON_INITIAL | BUTTON_DEFAULT | LAYOUT_RIGHT, 0, 0, 0, 0, 20, 20, 2, 2);
  if (table && !isReadOnly()) {
    new FXLabel(buttons, dgettext(kTextDomain, "Új sor: Ins, törlés: Del"), nullptr, LAYOUT_RIGHT | LAYOUT_CENTER_Y, 0,
                0, 0, 0, 4, 12, 2, 2);
  }
}

// The first new row proposes what the other rows leave over, so that nothing is left for the next ones.
void ItemDataDialog::proposeQuantities(int firstNew) {
  FXExt::FXDecimal open = item->getQuantity() - list->getSumQuantity();
  for (FXint i = firstNew; i < list->no(); ++i) {
    ItemDataEntry* entry = list->at(i);
    if ((i > firstNew && entry->row == list->at(i - 1)->row) || !entry->getValue().empty()) continue;
    entry->value = open.toString();
    open = FXExt::FXDecimal();
  }
}

// Whether the entry is the one that the settings have in this column; entries of variables that they do not know, or
// know elsewhere, have no cell.
bool ItemDataDialog::fitsColumn(const ItemDataEntry& entry, int column) const {
  const ItemDataList& settings = *list->settings;
  const int index = settings.firstUnitIndex + column;
  return 0 <= index && index < settings.no() && settings[index] && settings[index]->itemvariable == entry.itemvariable;
}

}  // namespace Quillane::Plugin::ItemData
