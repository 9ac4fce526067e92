// From the item table of a document's form to the dialogs of the selected items.
#include "plugin/InvoiceItemMenu.h"

#include "plugin/contract/Forms.h"
#include "plugin/contract/Invoice.h"
#include "ui/ItemDataDialog.h"

using namespace FX;

namespace Quillane::Plugin::ItemData {

long InvoiceItemMenu::onCmdMenuItem(FXObject* sender, FXSelector, void*) {
  const FXWindow* menu = static_cast<FXWindow*>(sender)->getOwner();
  const auto* table = static_cast<InvoiceItemTable*>(menu->getOwner());
  InvoiceForm* form = table->getForm();
  const FXObjectListOf<InvoiceItem>& items = form->getInvoice()->getItems();

  FXint first = table->getSelStartRow();
  FXint last = table->getSelEndRow();
  if (last < 0) first = last = table->getCurrentRow();
  if (first >= 0) {
    for (FXint row = first; row <= last && row < items.no(); ++row) {
      ItemDataDialog dialog(form, items[row]);
      dialog.execute(PLACEMENT_CURSOR);
    }
  }
  form->proposeCheckAll();
  return 1;
}

}  // namespace Quillane::Plugin::ItemData
