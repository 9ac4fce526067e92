#pragma once

#include <fx.h>

#include "plugin/contract/HostApi.h"

namespace Quillane::Plugin {

class PluginContainer;

namespace UI {

/// The frame of a module's settings dialog: its title, an OK and a Cancel button, and room above them for what the
/// module asks.
class QUILLANE_HOST_API PluginSettingsDialogBox : public FX::FXDialogBox {
  FXDECLARE(PluginSettingsDialogBox)
 public:
  /// The box is named after the container, which has to outlive it.
  PluginSettingsDialogBox(PluginContainer* container, FX::FXApp* application);

  /// Where a module puts its widgets; owned by the window tree.
  FX::FXVerticalFrame* getContentFrame() const { return contentFrame; }

  PluginSettingsDialogBox(const PluginSettingsDialogBox&) = delete;
  PluginSettingsDialogBox& operator=(const PluginSettingsDialogBox&) = delete;

 protected:
  PluginSettingsDialogBox() = default;

 private:
  FX::FXVerticalFrame* contentFrame = nullptr;  // owned by the window tree
};

}  // namespace UI
}  // namespace Quillane::Plugin
