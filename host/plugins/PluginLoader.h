#pragma once

#include <fx.h>

#include <vector>

#include "host/document/DocumentCheck.h"
#include "host/document/EntityHooks.h"
#include "plugin/contract/PluginContainer.h"
#include "plugin/contract/Tarnwell.h"

namespace Quillane::Host {

/// Finds the modules, loads them and keeps them until it is destroyed. A file that is no good is reported and left out.
///
/// Everything that modules made (data attached to items, messages, windows) has to be gone before the modules are
/// unloaded.
class PluginLoader {
 public:
  /// A module that is loaded.
  struct Loaded {
    FX::FXString file;
    Plugin::PluginContainer* container;  // owned
    void* library;                       // owned
  };

  /// A file that was found and is not in use.
  struct Rejected {
    FX::FXString file;
    FX::FXString reason;  // for the user
  };

  /// account is not owned and has to outlive the loader.
  explicit PluginLoader(Tarnwell& programAccount) : account(programAccount) {}

  /// Unloads.
  ~PluginLoader();

  /// Where modules are searched, the first folder first: those named by QUILLANE_PLUGIN_PATH, the build tree, the
  /// installed one.
  static std::vector<FX::FXString> getDefaultFolders();

  /// Loads what the folders hold, by the order of the folders and then of the file names. Of two modules with one code
  /// name the one found first is taken. Folders that do not exist are passed over.
  void load(const std::vector<FX::FXString>& folders);

  /// Lets the modules that were loaded since the last call register their hooks, then starts them. False, with nothing
  /// done, when no company's database is open in the account.
  bool start();

  /// Deletes the containers and unloads the modules, the last one first.
  void unload();

  /// In the order of loading.
  const std::vector<Loaded>& getLoaded() const { return loaded; }

  /// Files that could not be loaded as modules, and hooks that did not start.
  const std::vector<Rejected>& getRejected() const { return rejected; }

  /// Modules that were left out because one with their code name is loaded already.
  const std::vector<Rejected>& getShadowed() const { return shadowed; }

  /// The hook objects of the kind T, in the order of loading and then of registration; owned by their containers.
  template <class T>
  std::vector<T*> getHooks() const {
    std::vector<T*> hooks;
    for (const Loaded& module : loaded) {
      const FX::FXObjectList& modules = module.container->getModules();
      for (FX::FXint i = 0; i < modules.no(); ++i)
        if (T* hook = dynamic_cast<T*>(modules[i])) hooks.push_back(hook);
    }
    return hooks;
  }

  /// The hooks into loading, saving, exporting and printing.
  EntityHooks getEntityHooks() const;

  /// Adds the hooks into the check of documents.
  void addHooksTo(DocumentCheck& check) const;

  PluginLoader(const PluginLoader&) = delete;
  PluginLoader& operator=(const PluginLoader&) = delete;

 private:
  void loadFile(const FX::FXString& file);

  Tarnwell& account;
  std::vector<Loaded> loaded;
  std::size_t started = 0;  // how many of the loaded modules were started
  std::vector<Rejected> rejected;
  std::vector<Rejected> shadowed;
};

}  // namespace Quillane::Host
