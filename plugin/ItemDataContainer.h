#pragma once

#include <fx.h>

#include <memory>

#include "plugin/contract/PluginContainer.h"

namespace Quillane::Plugin::ItemData {

/// What this module is to the host: its texts, its icon, its hook objects. Made by get_plugin.
class ItemDataContainer : public PluginContainer {
 public:
  explicit ItemDataContainer(Tarnwell* application);

  /// Deletes the prototypes of the field kinds, whose pointers stay in the registry: the module is unloaded next.
  ~ItemDataContainer() override;

  FX::FXIcon* getIcon16() override;

  /// Registers the hook objects and the field kinds and brings the module's tables up to date. To be called once, with
  /// the company's database open. Always returns 1.
  int init() override;

  /// Shows the item variables until the user closes them, and writes what he accepted. Returns 1 when he gave them up,
  /// else what saving them came to.
  long onSettings(FX::FXObject* sender, FX::FXSelector selector, void* data) override;

  /// Always returns 1.
  long onHasSettings(FX::FXObject* sender, FX::FXSelector selector, void* data) override;

 private:
  std::unique_ptr<FX::FXIcon> icon16;
};

}  // namespace Quillane::Plugin::ItemData

/// The module's one entry point: returns a new container on account, owned by the host.
extern "C" __attribute__((visibility("default"))) Quillane::Plugin::PluginContainer* get_plugin(
    Quillane::Tarnwell* account);
