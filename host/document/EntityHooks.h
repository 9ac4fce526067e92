#pragma once

#include <fx.h>

#include <vector>

#include "plugin/contract/PluginModule.h"

namespace Quillane::Host {

/// The entity hooks of all loaded modules. Each operation asks those that can handle the entity's class, the one with
/// the lowest weight for that operation first; with equal weights the one added first.
class EntityHooks {
 public:
  /// hook stays its container's and has to live as long as it is asked.
  void add(const Plugin::EntityPlugin* hook);

  void load(Entity* entity) const;
  void save(Entity* entity) const;
  void del(Entity* entity) const;
  void toXml(Entity* entity, XMLBuilder::Element* element) const;

  /// The texts that are not empty, with "; " between them.
  FX::FXString toString(Entity* entity) const;

 private:
  using Hooks = std::vector<const Plugin::EntityPlugin*>;

  Hooks byLoadWeight;
  Hooks bySaveWeight;
  Hooks byDeleteWeight;
  Hooks byXmlWeight;
  Hooks byStringWeight;
};

}  // namespace Quillane::Host
