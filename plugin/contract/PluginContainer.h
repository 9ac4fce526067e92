#pragma once

#include <fx.h>

#include "plugin/contract/HostApi.h"

namespace Quillane {

class Tarnwell;

namespace Plugin {

/// What a module is to the host: its description and its hook objects. The module's exported function
/// `extern "C" PluginContainer* get_plugin(Tarnwell*)` makes it, once for one loading of the module; the host owns it,
/// calls init and then start, and deletes it before it unloads the module.
class QUILLANE_HOST_API PluginContainer : public FX::FXObject {
  FXDECLARE(PluginContainer)
 public:
  /// Messages that the host's commands send to the container.
  enum { ID_SETTINGS = 1, ID_LAST };

  PluginContainer(Tarnwell* account, const FX::FXString& codeName, const FX::FXString& name,
                  const FX::FXString& version, const FX::FXString& description);
  /// Deletes the hook objects.
  ~PluginContainer() override;

  /// The module's picture, owned by the container; null when it has none of that size.
  virtual FX::FXIcon* getIcon16();
  virtual FX::FXIcon* getIcon32();
  virtual FX::FXIcon* getIcon64();

  /// Called once, with the company's database open: the module registers its hook objects and brings its tables up to
  /// date. The host takes no decision from the result.
  virtual int init();

  /// Called once, after every module's init.
  virtual void start();

  /// The user asked for the module's settings. Returns 0 when they could not be saved.
  virtual long onSettings(FX::FXObject* sender, FX::FXSelector selector, void* data);

  /// Returns 1 when the module has settings; by default it has none.
  virtual long onHasSettings(FX::FXObject* sender, FX::FXSelector selector, void* data);

  Tarnwell* getAccount() const { return account; }
  /// The module's name among modules, which is also its text domain; never translated.
  const FX::FXString& getCodeName() const { return codeName; }
  /// The module's name for people.
  const FX::FXString& getName() const { return name; }
  const FX::FXString& getVersion() const { return version; }
  const FX::FXString& getDescription() const { return description; }

  /// The hook objects (each a PluginModule), in the order in which the module registered them.
  const FX::FXObjectList& getModules() const { return modules; }

  PluginContainer(const PluginContainer&) = delete;
  PluginContainer& operator=(const PluginContainer&) = delete;

 protected:
  PluginContainer() = default;

  Tarnwell* account = nullptr;  // not owned
  FX::FXString codeName;
  FX::FXString name;
  FX::FXString version;
  FX::FXString description;
  FX::FXObjectList modules;  // owned
};

}  // namespace Plugin
}  // namespace Quillane
