// The table of a document's items: whole rows are selected, and a menu offers what can be done with them.
#include "plugin/contract/Forms.h"

#include <fxkeys.h>

#include <algorithm>

#include "plugin/contract/PluginContainer.h"
#include "plugin/contract/PluginModule.h"

using namespace FX;

namespace Quillane {

FXDEFMAP(InvoiceItemTable)
InvoiceItemTableMap[] = {
    FXMAPFUNC(SEL_RIGHTBUTTONPRESS, 0, InvoiceItemTable::onRightButtonPress),
    FXMAPFUNC(SEL_RIGHTBUTTONRELEASE, 0, InvoiceItemTable::onRightButtonRelease),
    FXMAPFUNC(SEL_KEYPRESS, 0, InvoiceItemTable::onKeyPress),
    FXMAPFUNC(SEL_COMMAND, InvoiceItemTable::ID_MARK, InvoiceItemTable::onMark),
};
static_assert(ARRAYNUMBER(InvoiceItemTableMap) == 4);

FXIMPLEMENT(InvoiceItemTable, FXTable, InvoiceItemTableMap, ARRAYNUMBER(InvoiceItemTableMap))

namespace {

using Plugin::InvoiceItemMenuPlugin;

bool opensMenu(const FXEvent& event) {
  return event.code == KEY_Menu || (event.code == KEY_F10 && (event.state & SHIFTMASK));
}

/// Whether the key would move from cell to cell or begin to edit one, which is of no use among whole rows.
bool concernsCells(const FXEvent& event) {
  switch (event.code) {
    case KEY_Tab:
    case KEY_ISO_Left_Tab:
    case KEY_F2:
    case KEY_Delete:
    case KEY_KP_Delete:
      return true;
    default:
      const bool isText = static_cast<FXuchar>(event.text[0]) >= ' ' && event.text[0] != '\177';
      return isText && !(event.state & (CONTROLMASK | ALTMASK));
  }
}

}  // namespace

InvoiceItemTable::InvoiceItemTable(FXComposite* tableParent, InvoiceForm* invoiceForm, FXObject* tgt, FXSelector sel,
                                   FXuint opts)
    : FXTable(tableParent, tgt, sel, opts | TABLE_READONLY | TABLE_NO_COLSELECT), form(invoiceForm) {
  setRowHeaderWidth(0);
  setColumnHeaderMode(0);  // as high as its texts need
  menu = new FXMenuPane(this);
}

InvoiceItemTable::~InvoiceItemTable() { delete menu; }

void InvoiceItemTable::create() {
  FXTable::create();
  menu->create();
}

FXbool InvoiceItemTable::selectRange(FXint startRow, FXint endRow, FXint, FXint, FXbool notify) {
  return FXTable::selectRange(startRow, endRow, 0, getNumColumns() - 1, notify);
}

FXMenuCommand* InvoiceItemTable::appendPluginEntry(InvoiceItemMenuPlugin* plugin) {
  if (pluginEntries.empty() && menu->getFirst()) {
    auto* separator = new FXMenuSeparator(menu);
    if (menu->id()) separator->create();
  }
  Plugin::PluginContainer* container = plugin->getContainer();
  auto* command = new FXMenuCommand(menu, plugin->getMenuText(), container ? container->getIcon16() : nullptr, plugin,
                                    InvoiceItemMenuPlugin::ID_MENU_ITEM);
  if (menu->id()) command->create();

  const auto following = std::find_if(pluginEntries.begin(), pluginEntries.end(), [plugin](const PluginEntry& entry) {
    return entry.plugin->getPosition() > plugin->getPosition();
  });
  if (following != pluginEntries.end()) command->reparent(menu, following->command);
  pluginEntries.insert(following, {plugin, command});
  return command;
}

bool InvoiceItemTable::runPluginEntry(InvoiceItemMenuPlugin* plugin) {
  const auto entry = std::find_if(pluginEntries.begin(), pluginEntries.end(),
                                  [plugin](const PluginEntry& candidate) { return candidate.plugin == plugin; });
  if (entry == pluginEntries.end()) return false;
  FXMenuCommand* command = entry->command;
  plugin->handle(command, FXSEL(SEL_UPDATE, InvoiceItemMenuPlugin::ID_MENU_ITEM), nullptr);
  if (!command->isEnabled()) return false;
  plugin->handle(command, FXSEL(SEL_COMMAND, InvoiceItemMenuPlugin::ID_MENU_ITEM), nullptr);
  return true;
}

bool InvoiceItemTable::isInSelection(FXint row) const {
  return isAnythingSelected() && getSelStartRow() <= row && row <= getSelEndRow();
}

void InvoiceItemTable::selectOnly(FXint row) {
  if (!isRow(row) || getNumColumns() == 0) return;
  setCurrentItem(row, std::max(getCurrentColumn(), 0), TRUE);
  setAnchorItem(row, getCurrentColumn());
  selectRow(row, TRUE);
}

long InvoiceItemTable::onRightButtonPress(FXObject* sender, FXSelector selector, void* ptr) {
  if (isEnabled()) {
    const FXint row = rowAtY(static_cast<FXEvent*>(ptr)->win_y);
    if (!isInSelection(row)) selectOnly(row);
  }
  return FXTable::onRightBtnPress(sender, selector, ptr);
}

// The toolkit's own release handler ends the grab and the scrolling that the press began; without it the next click
// would be lost.
long InvoiceItemTable::onRightButtonRelease(FXObject* sender, FXSelector selector, void* ptr) {
  if (!FXTable::onRightBtnRelease(sender, selector, ptr)) return 0;
  const auto* event = static_cast<FXEvent*>(ptr);
  if (!event->moved) openMenu(event->root_x, event->root_y);
  return 1;
}

long InvoiceItemTable::onKeyPress(FXObject* sender, FXSelector selector, void* ptr) {
  const FXEvent& event = *static_cast<FXEvent*>(ptr);
  if (!isEnabled()) return 0;
  if (opensMenu(event)) {
    openMenuAtCurrentCell();
    return 1;
  }
  if (concernsCells(event)) return FXWindow::onKeyPress(sender, selector, ptr);
  return FXTable::onKeyPress(sender, selector, ptr);
}

// The keys that move the current cell unselect everything, move it, and then mark it as the anchor of a new selection.
long InvoiceItemTable::onMark(FXObject*, FXSelector, void*) {
  selectOnly(getCurrentRow());
  return 1;
}

void InvoiceItemTable::openMenu(FXint rootX, FXint rootY) {
  if (!menu->getFirst()) return;
  menu->popup(nullptr, rootX, rootY);
  menu->grabKeyboard();  // or the keys would go to the form, which the menu keeps them from; hiding it ends the grab
  getApp()->runModalWhileShown(menu);
}

void InvoiceItemTable::openMenuAtCurrentCell() {
  const FXint row = getCurrentRow();
  const FXint column = std::max(getCurrentColumn(), 0);
  FXint x = 0;
  FXint y = getColumnHeaderHeight();
  if (isRow(row) && column < getNumColumns()) {
    if (!isInSelection(row)) selectOnly(row);
    makePositionVisible(row, column);
    x = std::max(getColumnX(column), 0);
    y = getRowY(row) + getRowHeight(row);
  }
  FXint rootX = 0;
  FXint rootY = 0;
  translateCoordinatesTo(rootX, rootY, getRoot(), x, y);
  openMenu(rootX, rootY);
}

}  // namespace Quillane
