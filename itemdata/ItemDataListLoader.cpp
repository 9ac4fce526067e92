// Turns result rows into the entries of an item data list.
#include "itemdata/ItemDataListLoader.h"

#include <libintl.h>

#include <cstdlib>

#include "itemdata/ItemDataList.h"
#include "itemdata/ItemDataPluginList.h"

using namespace FX;

namespace Quillane::Plugin::ItemData {

namespace {

// NULL counts as 0.
int toInt(const char* text) { return text ? std::atoi(text) : 0; }

// NULL is no text.
const char* toText(const char* text) { return text ? text : ""; }

}  // namespace

ItemDataListLoader::~ItemDataListLoader() { delete current; }

bool ItemDataListLoader::processValue(int column, const char*, const char* text) {
  if (column == 0) {
    delete current;
    current = plugins.getByType(toInt(text), owner);
    return true;
  }
  if (!current) return true;

  switch (column) {
    case 1:
      current->pk = toInt(text);
      break;
    case 2:
      current->itemvariable = toInt(text);
      break;
    case 3:
      if (text) current->name = text;
      break;
    case 4:
      current->mandatory = toInt(text) == 1;
      break;
    case 5:
      if (current->pk)
        placeStoredEntry(toInt(text));
      else
        placeNewEntry(toInt(text));
      break;
    case 6:
      (current->pk ? current->value : current->vvalue) = toText(text);
      list->append(current);
      current = nullptr;
      break;
    default:
      break;
  }
  return true;
}

void ItemDataListLoader::placeNewEntry(int process) {
  current->process = process != 0;
  if (!current->process) return;
  if (list->firstUnitIndex == -1) appendQuantityEntry();
  ++list->unitColumnCount;
  current->row = process;
}

void ItemDataListLoader::placeStoredEntry(int row) {
  current->row = row;
  current->process = row != 0;
  if (!current->process) return;
  if (firstRow == -2) firstRow = row;
  // The columns are counted in the first row only.
  if (row == firstRow) ++list->unitColumnCount;
}

void ItemDataListLoader::appendQuantityEntry() {
  list->firstUnitIndex = list->no();
  ItemDataEntry* quantity = plugins.getByType(ItemDataEntry::TYPE_QUANTITY, owner);
  quantity->name = gettext("Mennyiség");
  quantity->itemvariable = ItemDataEntry::kQuantityVariable;
  quantity->mandatory = 1;
  quantity->process = 1;
  quantity->row = 1;
  list->append(quantity);
  ++list->unitColumnCount;
}

}  // namespace Quillane::Plugin::ItemData
