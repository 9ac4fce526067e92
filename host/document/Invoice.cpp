// Documents and their items, as modules see them.
#include "plugin/contract/Invoice.h"

using namespace FX;

namespace Quillane {

FXIMPLEMENT(InvoiceItem, Entity, nullptr, 0)
FXIMPLEMENT(Invoice, Entity, nullptr, 0)

Invoice::~Invoice() {
  for (FXint i = 0; i < items.no(); ++i) delete items[i];
}

void Invoice::appendItem(InvoiceItem* item) {
  item->setInvoice(this);
  items.append(item);
}

}  // namespace Quillane
