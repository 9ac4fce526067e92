#pragma once

#include "plugin/contract/PluginModule.h"

namespace Quillane::Plugin::ItemData {

/// Has the item data of every item of a document check themselves when the document is checked.
class InvoiceCheck : public InvoiceCheckPlugin {
 public:
  using InvoiceCheckPlugin::InvoiceCheckPlugin;

  /// Every finding carries an event of its own that opens the item's dialog over window, the document's form. Always
  /// returns 1. Items are numbered by their place on the document, also those that are not checked: items
  /// without item data and items without an article.
  int checkInvoice(FX::FXWindow* window, Invoice* invoice, ListOfMessage& messages, FX::FXString prefix) override;
};

}  // namespace Quillane::Plugin::ItemData
