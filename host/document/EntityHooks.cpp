// Calls the modules' entity hooks in the order of their weights.
#include "host/document/EntityHooks.h"

#include <algorithm>

#include "plugin/contract/Entity.h"

using namespace FX;

namespace Quillane::Host {

namespace {

using Plugin::EntityPlugin;

/// Puts hook behind those of the same weight, which were added earlier.
void insertByWeight(std::vector<const EntityPlugin*>& hooks, const EntityPlugin* hook,
                    int (EntityPlugin::*weight)() const) {
  const auto place = std::upper_bound(
      hooks.begin(), hooks.end(), hook,
      [weight](const EntityPlugin* a, const EntityPlugin* b) { return (a->*weight)() < (b->*weight)(); });
  hooks.insert(place, hook);
}

bool accepts(const EntityPlugin* hook, const Entity* entity) { return hook->canHandle(*entity->getMetaClass()); }

}  // namespace

void EntityHooks::add(const EntityPlugin* hook) {
  insertByWeight(byLoadWeight, hook, &EntityPlugin::getLoadWeight);
  insertByWeight(bySaveWeight, hook, &EntityPlugin::getSaveWeight);
  insertByWeight(byDeleteWeight, hook, &EntityPlugin::getDeleteWeight);
  insertByWeight(byXmlWeight, hook, &EntityPlugin::getXmlWeight);
  insertByWeight(byStringWeight, hook, &EntityPlugin::getStringWeight);
}

void EntityHooks::load(Entity* entity) const {
  for (const EntityPlugin* hook : byLoadWeight)
    if (accepts(hook, entity)) hook->load(entity);
}

void EntityHooks::save(Entity* entity) const {
  for (const EntityPlugin* hook : bySaveWeight)
    if (accepts(hook, entity)) hook->save(entity);
}

void EntityHooks::del(Entity* entity) const {
  for (const EntityPlugin* hook : byDeleteWeight)
    if (accepts(hook, entity)) hook->del(entity);
}

void EntityHooks::toXml(Entity* entity, XMLBuilder::Element* element) const {
  for (const EntityPlugin* hook : byXmlWeight)
    if (accepts(hook, entity)) hook->toXml(entity, element);
}

FXString EntityHooks::toString(Entity* entity) const {
  FXString joined;
  for (const EntityPlugin* hook : byStringWeight) {
    if (!accepts(hook, entity)) continue;
    const FXString text = hook->toString(entity);
    if (text.empty()) continue;
    if (!joined.empty()) joined += "; ";
    joined += text;
  }
  return joined;
}

}  // namespace Quillane::Host
