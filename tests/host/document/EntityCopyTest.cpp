#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "plugin/contract/Entity.h"

namespace Quillane {
namespace {

/// Attached data that count themselves.
class Note : public EntityMiscData {
 public:
  Note(Entity* entity, std::string noteText) : EntityMiscData(entity), text(std::move(noteText)) { ++alive; }
  ~Note() override { --alive; }

  EntityMiscData* clone(Entity* newOwner) const override { return new Note(newOwner, text + "'"); }

  static int alive;
  std::string text;
};

int Note::alive = 0;

std::string textOf(const Entity& entity, const char* key) {
  const auto* note = dynamic_cast<Note*>(entity.getMiscData(key));
  return note ? note->text : "none";
}

TEST(EntityCopy, clonesEverythingUnderItsKeyForTheNewOwner) {
  {
    Entity source;
    source.addMiscData("A", new Note(&source, "a"));
    source.addMiscData("B", new Note(&source, "b"));
    Entity copy;
    copy.copyMiscData(source);
    EXPECT_EQ(textOf(copy, "A"), "a'");
    EXPECT_EQ(textOf(copy, "B"), "b'");
    EXPECT_EQ(copy.getMiscData("A")->getOwner(), &copy);
    EXPECT_EQ(textOf(source, "A"), "a");
    EXPECT_EQ(source.getMiscData("A")->getOwner(), &source);
    EXPECT_EQ(Note::alive, 4);
  }
  EXPECT_EQ(Note::alive, 0);
}

TEST(EntityCopy, replacesWhatTheCopyHadUnderTheSameKeyAndKeepsTheRest) {
  {
    Entity source;
    source.addMiscData("A", new Note(&source, "a"));
    Entity copy;
    copy.addMiscData("A", new Note(&copy, "old"));
    copy.addMiscData("C", new Note(&copy, "c"));
    copy.copyMiscData(source);
    EXPECT_EQ(textOf(copy, "A"), "a'");
    EXPECT_EQ(textOf(copy, "C"), "c");
    EXPECT_EQ(Note::alive, 3);
  }
  EXPECT_EQ(Note::alive, 0);
}

TEST(EntityCopy, copiesNothingFromAnEntityWithoutData) {
  Entity source;
  Entity copy;
  copy.copyMiscData(source);
  EXPECT_EQ(copy.getMiscData("A"), nullptr);
}

}  // namespace
}  // namespace Quillane
