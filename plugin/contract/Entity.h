#pragma once

#include <fx.h>

#include <utility>
#include <vector>

#include "plugin/contract/HostApi.h"

namespace Quillane {

class EntityMiscData;

/// One record of the company in memory (a document, an item of it, ...), with the data that modules attach to it.
class QUILLANE_HOST_API Entity : public FX::FXObject {
  FXDECLARE(Entity)
 public:
  Entity() = default;
  /// Deletes the attached data.
  ~Entity() override;

  /// The key of the entity's row; 0 while it is not stored.
  int getId() const { return id; }
  void setId(int key) { id = key; }

  /// The data attached under key, or null; stays owned by the entity.
  EntityMiscData* getMiscData(const char* key) const;

  /// Attaches data under key and owns it from now on. What was attached under key before is deleted.
  void addMiscData(const char* key, EntityMiscData* data);

  /// Attaches a clone of everything that is attached to source, under the same keys. For the host, when it copies an
  /// entity.
  void copyMiscData(const Entity& source);

  Entity(const Entity&) = delete;
  Entity& operator=(const Entity&) = delete;

 private:
  int id = 0;
  std::vector<std::pair<FX::FXString, EntityMiscData*>> miscData;  // the data are owned
};

/// Data that a module attaches to an entity. The entity owns them; they know their entity.
class QUILLANE_HOST_API EntityMiscData : public FX::FXObject {
  FXDECLARE(EntityMiscData)
 public:
  explicit EntityMiscData(Entity* entity = nullptr) : owner(entity) {}

  /// Called when the host copies the owner: returns a copy for newOwner, owned by the caller.
  /// By default a bare EntityMiscData.
  virtual EntityMiscData* clone(Entity* newOwner) const;

  /// The entity that the data belong to; not owned, may be null.
  Entity* getOwner() const { return owner; }

  EntityMiscData(const EntityMiscData&) = delete;
  EntityMiscData& operator=(const EntityMiscData&) = delete;

 protected:
  Entity* owner;  // not owned
};

/// Attached data that are a list. The list does not own its members unless a derived class says so.
template <class T>
class QUILLANE_HOST_API ListOfEntityMiscData : public EntityMiscData, public FX::FXObjectListOf<T> {
 public:
  explicit ListOfEntityMiscData(Entity* entity = nullptr) : EntityMiscData(entity) {}

  EntityMiscData* clone(Entity* newOwner) const override = 0;
};

}  // namespace Quillane
