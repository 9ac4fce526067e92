#pragma once

#include <fx.h>

#include <functional>
#include <vector>

#include "plugin/contract/PluginModule.h"

namespace Quillane {

/// A menu hook that tells by whom and over which rows it was picked.
class TestMenuPlugin : public Plugin::InvoiceItemMenuPlugin {
 public:
  explicit TestMenuPlugin(const FX::FXString& text = "Mutasd...\t\t", int menuPosition = 0,
                          Plugin::PluginContainer* owner = nullptr)
      : InvoiceItemMenuPlugin(owner, menuPosition, text) {}

  long onCmdMenuItem(FX::FXObject* sender, FX::FXSelector, void*) override {
    senders.push_back(sender);
    if (onPicked) onPicked();
    return 1;
  }

  long onUpdMenuItem(FX::FXObject* sender, FX::FXSelector selector, void* data) override {
    if (enabled) return InvoiceItemMenuPlugin::onUpdMenuItem(sender, selector, data);
    sender->handle(this, FXSEL(FX::SEL_COMMAND, FX::FXWindow::ID_DISABLE), nullptr);
    return 1;
  }

  bool enabled = true;
  std::function<void()> onPicked;
  std::vector<FX::FXObject*> senders;
};

}  // namespace Quillane
