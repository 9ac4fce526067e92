// The module's part in the check of a document.
#include "plugin/InvoiceCheck.h"

#include "itemdata/ItemDataList.h"
#include "plugin/RepairItemDataMessageEvent.h"
#include "plugin/contract/Invoice.h"
#include "plugin/contract/Message.h"

using namespace FX;

namespace Quillane::Plugin::ItemData {

int InvoiceCheck::checkInvoice(FXWindow* window, Invoice* invoice, ListOfMessage& messages, FXString prefix) {
  // A copy: the walk is over the items that the document has now, whatever becomes of its list meanwhile.
  const FXObjectListOf<InvoiceItem> items = invoice->getItems();
  for (FXint i = 0; i < items.no(); ++i) {
    ItemDataList* list = ItemDataList::of(*items[i]);
    if (!list || items[i]->getArticleKind() == InvoiceItem::ARTICLE_NONE) continue;
    ListOfMessage found;
    list->check(i + 1, found, prefix);
    for (FXint k = 0; k < found.no(); ++k) found[k]->setSecondEvent(new RepairItemDataMessageEvent(window, items[i]));
    messages.append(found);
  }
  return 1;
}

}  // namespace Quillane::Plugin::ItemData
