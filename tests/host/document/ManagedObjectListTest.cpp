#include "plugin/contract/ManagedObjectList.h"

#include <gtest/gtest.h>

using namespace FX;

namespace {

class Counted : public FXObject {
 public:
  explicit Counted(int& counter) : living(counter) { ++living; }
  ~Counted() override { --living; }

 private:
  int& living;
};

TEST(FXManagedObjectListOf, deletesItsMembersWithItself) {
  int living = 0;
  {
    FXManagedObjectListOf<Counted> list;
    list.append(new Counted(living));
    list.append(nullptr);
    list.append(new Counted(living));
    EXPECT_EQ(list.no(), 3);
    EXPECT_EQ(living, 2);
  }
  EXPECT_EQ(living, 0);
}

TEST(FXManagedObjectListOf, isEmptyAfterItsMembersAreDeleted) {
  int living = 0;
  FXManagedObjectListOf<Counted> list;
  list.append(new Counted(living));
  list.deleteMembers();
  EXPECT_EQ(list.no(), 0);
  EXPECT_EQ(living, 0);
}

}  // namespace
