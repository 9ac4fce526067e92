// What every record in memory can do: carry the data that modules attach to it.
#include "plugin/contract/Entity.h"

using namespace FX;

namespace Quillane {

FXIMPLEMENT(Entity, FXObject, nullptr, 0)
FXIMPLEMENT(EntityMiscData, FXObject, nullptr, 0)

Entity::~Entity() {
  for (auto& attached : miscData) delete attached.second;
}

EntityMiscData* Entity::getMiscData(const char* key) const {
  for (const auto& attached : miscData)
    if (attached.first == key) return attached.second;
  return nullptr;
}

void Entity::addMiscData(const char* key, EntityMiscData* data) {
  for (auto& attached : miscData) {
    if (attached.first != key) continue;
    if (attached.second != data) delete attached.second;
    attached.second = data;
    return;
  }
  miscData.emplace_back(key, data);
}

void Entity::copyMiscData(const Entity& source) {
  for (const auto& attached : source.miscData)
    if (EntityMiscData* copy = attached.second ? attached.second->clone(this) : nullptr)
      addMiscData(attached.first.text(), copy);
}

EntityMiscData* EntityMiscData::clone(Entity* newOwner) const { return new EntityMiscData(newOwner); }

}  // namespace Quillane
