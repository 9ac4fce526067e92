#pragma once

#include "plugin/contract/PluginModule.h"

namespace Quillane::Plugin::ItemData {

/// The entry in the context menu of a document's item table that opens the item data dialog. It can always be picked.
class InvoiceItemMenu : public InvoiceItemMenuPlugin {
 public:
  using InvoiceItemMenuPlugin::InvoiceItemMenuPlugin;

  /// Opens the dialog for each selected item in turn, or for the item of the current row when none is selected, and
  /// then asks the form to check the document again, also when there was no item. sender is the menu command, whose
  /// owner's owner is the item table. Always returns 1.
  long onCmdMenuItem(FX::FXObject* sender, FX::FXSelector selector, void* data) override;
};

}  // namespace Quillane::Plugin::ItemData
