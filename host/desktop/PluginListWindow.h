#pragma once

#include <fx.h>

#include <vector>

#include "host/plugins/PluginLoader.h"
#include "host/windows/IconSet.h"

namespace Quillane::Desktop {

/// The modules at work: what each is, the file that it was loaded from, and a button to its settings when it has some.
class PluginListWindow : public FX::FXDialogBox {
  FXDECLARE(PluginListWindow)
 public:
  enum {
    ID_SETTINGS = FX::FXDialogBox::ID_LAST,  // of the first module; those of the others follow
    ID_LAST_SETTINGS = ID_SETTINGS + 31,
    ID_LAST
  };

  /// The loader and the icons are not owned and have to outlive the window, with the modules that are loaded.
  PluginListWindow(FX::FXWindow* ownerWindow, const Host::PluginLoader& plugins, const Host::IconSet& icons);

  /// Whether the module offers settings.
  static bool hasSettings(Plugin::PluginContainer& container);

  /// Lets the user change the module's settings; says so over owner when they could not be saved.
  static void runSettings(FX::FXWindow* owner, Plugin::PluginContainer& container);

  /// The text that is shown of each module, in the order of loading.
  const std::vector<FX::FXLabel*>& getTexts() const { return texts; }

  /// The settings buttons of the modules, in the same order; null for a module without settings.
  const std::vector<FX::FXButton*>& getSettingsButtons() const { return settingsButtons; }

  long onSettings(FX::FXObject* sender, FX::FXSelector selector, void* data);

  PluginListWindow(const PluginListWindow&) = delete;
  PluginListWindow& operator=(const PluginListWindow&) = delete;

 protected:
  PluginListWindow() = default;

 private:
  void createButtons();
  void createList(const Host::PluginLoader& plugins, const Host::IconSet& icons);
  void createEntry(FX::FXComposite* list, const Host::PluginLoader::Loaded& module, const Host::IconSet& icons);

  std::vector<Plugin::PluginContainer*> containers;  // not owned
  std::vector<FX::FXLabel*> texts;                   // owned by the window tree
  std::vector<FX::FXButton*> settingsButtons;        // owned by the window tree
};

}  // namespace Quillane::Desktop
