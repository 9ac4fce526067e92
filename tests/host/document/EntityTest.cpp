#include "plugin/contract/Entity.h"

#include <gtest/gtest.h>

#include <string>

using namespace FX;

namespace Quillane {
namespace {

/// Counts its living objects.
class Counted : public EntityMiscData {
 public:
  explicit Counted(int& counter) : living(counter) { ++living; }
  ~Counted() override { --living; }

 private:
  int& living;
};

TEST(Entity, isNotStoredAtFirst) {
  Entity entity;
  EXPECT_EQ(entity.getId(), 0);
  entity.setId(7);
  EXPECT_EQ(entity.getId(), 7);
}

TEST(Entity, hasNoDataUntilSomeAreAttached) {
  Entity entity;
  EXPECT_EQ(entity.getMiscData("ItemData"), nullptr);
}

TEST(Entity, findsAttachedDataByTheTextOfTheKey) {
  int living = 0;
  Entity entity;
  auto* first = new Counted(living);
  auto* second = new Counted(living);
  entity.addMiscData("first", first);
  entity.addMiscData("second", second);
  const std::string sameText = "first";
  EXPECT_EQ(entity.getMiscData(sameText.c_str()), first);
  EXPECT_EQ(entity.getMiscData("second"), second);
  EXPECT_EQ(entity.getMiscData("First"), nullptr);
  EXPECT_EQ(entity.getMiscData(""), nullptr);
}

TEST(Entity, deletesItsDataWithItself) {
  int living = 0;
  {
    Entity entity;
    entity.addMiscData("first", new Counted(living));
    entity.addMiscData("second", new Counted(living));
    EXPECT_EQ(living, 2);
  }
  EXPECT_EQ(living, 0);
}

TEST(Entity, deletesDataThatAreReplaced) {
  int living = 0;
  Entity entity;
  entity.addMiscData("key", new Counted(living));
  auto* replacement = new Counted(living);
  entity.addMiscData("key", replacement);
  EXPECT_EQ(living, 1);
  EXPECT_EQ(entity.getMiscData("key"), replacement);
  entity.addMiscData("key", replacement);
  EXPECT_EQ(living, 1);
  entity.addMiscData("key", nullptr);
  EXPECT_EQ(living, 0);
  EXPECT_EQ(entity.getMiscData("key"), nullptr);
}

TEST(EntityMiscData, clonesToBareDataOfTheNewOwner) {
  int living = 0;
  Entity owner;
  const Counted data(living);
  EntityMiscData* copy = data.clone(&owner);
  EXPECT_EQ(copy->getOwner(), &owner);
  EXPECT_EQ(copy->getMetaClass(), &EntityMiscData::metaClass);
  EXPECT_EQ(living, 1);
  delete copy;
}

TEST(EntityMiscData, knowsItsOwner) {
  Entity owner;
  EXPECT_EQ(EntityMiscData(&owner).getOwner(), &owner);
  EXPECT_EQ(EntityMiscData().getOwner(), nullptr);
}

class Numbers : public ListOfEntityMiscData<Entity> {
 public:
  using ListOfEntityMiscData::ListOfEntityMiscData;
  EntityMiscData* clone(Entity* newOwner) const override { return new Numbers(newOwner); }
};

TEST(ListOfEntityMiscData, isBothDataAndAList) {
  Entity owner;
  Entity member;
  auto* list = new Numbers(&owner);
  list->FXObjectListOf<Entity>::append(&member);
  owner.addMiscData("list", list);
  EXPECT_EQ(list->getOwner(), &owner);
  ASSERT_EQ(list->no(), 1);
  EXPECT_EQ((*list)[0], &member);
  EXPECT_EQ(dynamic_cast<Numbers*>(owner.getMiscData("list")), list);
}

}  // namespace
}  // namespace Quillane
