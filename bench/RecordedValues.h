#pragma once

#include <memory>
#include <string>
#include <vector>

#include "itemdata/ItemDataList.h"
#include "plugin/contract/Invoice.h"

namespace Bench {

/// One recorded value, in plain C++.
struct RecordedValue {
  int type;  // as ItemDataEntry has it
  int row;   // 0 for a value of the item as a whole
  std::string name;
  std::string value;
};

/// Unit rows of four values each: a quantity (1, 2 or 3), a text, a date and a choice from a list.
std::vector<RecordedValue> recordRows(int rows);

/// The same rows with nothing recorded yet.
std::vector<RecordedValue> leaveRowsEmpty(int rows);

/// Texts of the item as a whole, all of them different.
std::vector<RecordedValue> recordDistinctTexts(int texts);

/// The same text of the item as a whole so many times.
std::vector<RecordedValue> recordEqualTexts(int texts);

/// A draft with one item that carries these values as stored item data.
class ItemWithData {
 public:
  explicit ItemWithData(const std::vector<RecordedValue>& values);

  Quillane::Invoice& getInvoice() { return invoice; }
  Quillane::InvoiceItem& getItem() { return *item; }
  Quillane::Plugin::ItemData::ItemDataList& getList() { return *list; }

 private:
  Quillane::Invoice invoice;
  Quillane::InvoiceItem* item;                     // owned by the invoice
  Quillane::Plugin::ItemData::ItemDataList* list;  // owned by the item
};

}  // namespace Bench
