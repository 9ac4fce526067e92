#pragma once

#include <fx.h>

#include "plugin/contract/Message.h"

namespace Quillane {

class InvoiceItem;

namespace Plugin::ItemData {

/// What the user can do about a finding in the item data of an item: opens the item data dialog on the item and has the
/// document checked again.
class RepairItemDataMessageEvent : public MessageEvent {
 public:
  /// The kind of such an event.
  static constexpr int kKind = 2;

  /// formWindow is the DBForm that the item's document is edited in. Neither is owned; both have to outlive the message
  /// that carries the event.
  RepairItemDataMessageEvent(FX::FXWindow* formWindow, InvoiceItem* checkedItem)
      : MessageEvent(kKind), window(formWindow), item(checkedItem) {}

  /// Returns when the dialog is closed; however it was, the form is asked to check the document again.
  void execute(Message* message, int option) override;

 private:
  FX::FXWindow* window;  // not owned
  InvoiceItem* item;     // not owned
};

}  // namespace Plugin::ItemData
}  // namespace Quillane
