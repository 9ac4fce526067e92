// A document as the host stores it.
#include "host/document/Document.h"

#include <libintl.h>

using namespace FX;

namespace Quillane::Host {

FXIMPLEMENT(Document, Invoice, nullptr, 0)

Document::~Document() = default;

void Document::refreshDisplayText() {
  if (isStatusClosed() && !number.empty()) {
    setDisplayText(number);
    return;
  }
  FXString text = statusName;
  if (!partnerName.empty()) {
    if (!text.empty()) text += ", ";
    text += partnerName;
  }
  if (!text.empty()) text += ", ";
  text += getId() > 0 ? FXStringFormat("#%d", getId()) : FXString(dgettext("quillane", "új"));
  setDisplayText(text);
}

DocumentItem* Document::addItem() { return insertItem(items.no()); }

DocumentItem* Document::insertItem(int index) {
  auto* item = new DocumentItem(this);
  items.insert(index, item);
  return item;
}

void Document::moveItem(int from, int to) {
  InvoiceItem* item = items[from];
  items.erase(from);
  items.insert(to, item);
}

void Document::removeItem(int index) {
  std::unique_ptr<DocumentItem> item(getItem(index));
  items.erase(index);
  if (item->getId() > 0) removedItems.push_back(std::move(item));
}

}  // namespace Quillane::Host
