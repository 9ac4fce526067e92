// Recorded values in memory, for the benchmarks that need no company.
#include "bench/RecordedValues.h"

#include "itemdata/ItemDataComboEntry.h"
#include "itemdata/ItemDataDateEntry.h"
#include "itemdata/ItemDataStringEntry.h"

namespace Bench {

namespace {

using Quillane::InvoiceItem;
using Quillane::Plugin::ItemData::ItemDataComboEntry;
using Quillane::Plugin::ItemData::ItemDataDateEntry;
using Quillane::Plugin::ItemData::ItemDataEntry;
using Quillane::Plugin::ItemData::ItemDataList;
using Quillane::Plugin::ItemData::ItemDataStringEntry;

ItemDataEntry* makeEntry(int type, InvoiceItem* item) {
  switch (type) {
    case ItemDataEntry::TYPE_DATE:
      return new ItemDataDateEntry(item);
    case ItemDataEntry::TYPE_LIST:
      return new ItemDataComboEntry(item);
    default:
      return new ItemDataStringEntry(item);
  }
}

FX::FXString toFox(const std::string& text) { return FX::FXString(text.data(), static_cast<FX::FXint>(text.size())); }

}  // namespace

std::vector<RecordedValue> recordRows(int rows) {
  std::vector<RecordedValue> values;
  for (int row = 1; row <= rows; ++row) {
    values.push_back({ItemDataEntry::TYPE_QUANTITY, row, "Mennyiség", std::to_string(1 + row % 3)});
    values.push_back({ItemDataEntry::TYPE_TEXT, row, "Gyári szám", "SN-" + std::to_string(100'000 + row)});
    values.push_back({ItemDataEntry::TYPE_DATE, row, "Hitelesítve", "2024.05." + std::to_string(10 + row % 20)});
    values.push_back({ItemDataEntry::TYPE_LIST, row, "Minőség", row % 2 ? "első" : "másod"});
  }
  return values;
}

std::vector<RecordedValue> leaveRowsEmpty(int rows) {
  std::vector<RecordedValue> values = recordRows(rows);
  for (RecordedValue& value : values) value.value.clear();
  return values;
}

std::vector<RecordedValue> recordDistinctTexts(int texts) {
  std::vector<RecordedValue> values;
  for (int i = 0; i < texts; ++i)
    values.push_back({ItemDataEntry::TYPE_TEXT, 0, "Gyári szám", "SN-" + std::to_string(100'000 + i)});
  return values;
}

std::vector<RecordedValue> recordEqualTexts(int texts) {
  return std::vector<RecordedValue>(texts, {ItemDataEntry::TYPE_TEXT, 0, "Gyári szám", "SN-100000"});
}

ItemWithData::ItemWithData(const std::vector<RecordedValue>& values) : item(new InvoiceItem) {
  invoice.setStatus(101, false);
  invoice.setDisplayText("Piszkozat Minta Kft. #1");
  invoice.appendItem(item);
  item->setId(1);
  item->setUnit("db");
  list = new ItemDataList(item, nullptr);
  item->addMiscData(ItemDataList::kMiscDataKey, list);
  for (const RecordedValue& value : values) {
    ItemDataEntry* entry = makeEntry(value.type, item);
    entry->pk = list->no() + 1;
    entry->type = value.type;
    entry->row = value.row;
    entry->process = value.row > 0;
    entry->name = toFox(value.name);
    entry->value = toFox(value.value);
    if (value.row > 0 && list->firstUnitIndex < 0) list->firstUnitIndex = list->no();
    list->append(entry);
  }
}

}  // namespace Bench
