#pragma once

#include <fx.h>

#include "plugin/contract/HostApi.h"
#include "plugin/contract/PluginModule.h"

namespace Quillane {

class PanelisedWindow;

namespace Plugin::PanelProvider {

class Handler;

/// Offers a panel to the host's editing windows.
class QUILLANE_HOST_API Plugin : public PluginModule {
  FXDECLARE_ABSTRACT(Plugin)
 public:
  explicit Plugin(PluginContainer* owner) : PluginModule(owner) {}

  /// Asked for every window that is made: whether the module has a panel for it.
  virtual bool acceptWindow(PanelisedWindow* window) = 0;

  /// A new handler of the panel on a window that was accepted; null for any other window. The host owns it, and deletes
  /// it before the window.
  virtual Handler* getHandler(PanelisedWindow* window) = 0;

 protected:
  Plugin() = default;
};

/// One panel on one window.
class QUILLANE_HOST_API Handler : public FX::FXObject {
  FXDECLARE_ABSTRACT(Handler)
 public:
  explicit Handler(Plugin* provider) : plugin(provider) {}

  /// The panel's picture, owned by the module; by default the container's.
  virtual FX::FXIcon* getIcon16() const;

  /// By default null: the host shows what createGUI put into the composite that it was given.
  virtual FX::FXComposite* getPanel() const;

  /// Called once: makes the panel inside parent, which owns it.
  virtual void createGUI(FX::FXComposite* parent) = 0;

  /// The panel's title, in the user's language.
  virtual FX::FXString getPanelName() const = 0;

  /// The user accepted the window; its own record is written already, inside the same transaction.
  virtual long onOKButton(FX::FXObject* sender, FX::FXSelector selector, void* data) = 0;

  /// The user gave the window up. Does nothing and returns 0 by default.
  virtual long onCancelButton(FX::FXObject* sender, FX::FXSelector selector, void* data);

  /// By default the container's code name.
  virtual FX::FXString getCodeName() const;

  /// The panel came to the front. Does nothing by default.
  virtual void onFocus();

  Plugin* getPlugin() const { return plugin; }

  Handler(const Handler&) = delete;
  Handler& operator=(const Handler&) = delete;

 protected:
  Handler() = default;

  Plugin* plugin = nullptr;  // not owned
};

}  // namespace Plugin::PanelProvider
}  // namespace Quillane
