#include "plugin/contract/MemoryGuard.h"

#include <gtest/gtest.h>

namespace {

class Base {
 public:
  virtual ~Base() = default;
};

class Counted : public Base {
 public:
  explicit Counted(int& counter) : living(counter) { ++living; }
  ~Counted() override { --living; }

 private:
  int& living;
};

TEST(MemoryGuard, isEmptyAtFirst) { EXPECT_EQ(MemoryGuard<Base>().getCount(), 0); }

TEST(MemoryGuard, deletesItsElementsThroughTheirDestructors) {
  int living = 0;
  {
    MemoryGuard<Base> guard;
    for (int i = 0; i < 100; ++i) guard.append(new Counted(living));
    EXPECT_EQ(guard.getCount(), 100);
    EXPECT_EQ(living, 100);
  }
  EXPECT_EQ(living, 0);
}

TEST(MemoryGuard, keepsOrderAndTakesNull) {
  int living = 0;
  MemoryGuard<Base> guard;
  auto* last = new Counted(living);
  guard.append(nullptr);
  guard.append(last);
  EXPECT_EQ(guard[0], nullptr);
  EXPECT_EQ(guard[1], last);
}

}  // namespace
