// From a finding of the check to the dialog in which it is put right.
#include "plugin/RepairItemDataMessageEvent.h"

#include "plugin/contract/Forms.h"
#include "ui/ItemDataDialog.h"

using namespace FX;

namespace Quillane::Plugin::ItemData {

void RepairItemDataMessageEvent::execute(Message*, int) {
  ItemDataDialog dialog(window, item);
  dialog.execute(PLACEMENT_CURSOR);
  static_cast<DBForm*>(window)->proposeCheckAll();
}

}  // namespace Quillane::Plugin::ItemData
