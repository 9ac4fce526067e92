// The pair as a toolkit object.
#include "fxext/FXPair.h"

#include <gtest/gtest.h>

#include <type_traits>

#include "plugin/contract/ManagedObjectList.h"

using namespace FX;
using FXExt::FXPair;

namespace {

using TextCount = FXPair<FXString, int>;

static_assert(std::is_base_of_v<FXObject, TextCount>);
static_assert(std::has_virtual_destructor_v<TextCount>);
static_assert(std::is_same_v<decltype(TextCount::first), FXString> && std::is_same_v<decltype(TextCount::second), int>);

// Counts how many of its kind live.
struct Tracked {
  static int living;
  Tracked() { ++living; }
  Tracked(const Tracked&) { ++living; }
  Tracked& operator=(const Tracked&) = default;
  ~Tracked() { --living; }
};
int Tracked::living = 0;

TEST(FXPair, holdsItsTwoValues) {
  TextCount pair("kék", 2);
  EXPECT_EQ(pair.first, "kék");
  EXPECT_EQ(pair.second, 2);
  ++pair.second;
  pair.first.append("!");
  EXPECT_EQ(pair.first, "kék!");
  EXPECT_EQ(pair.second, 3);
}

TEST(FXPair, isEmptyAndZeroByDefault) {
  const TextCount pair;
  EXPECT_TRUE(pair.first.empty());
  EXPECT_EQ(pair.second, 0);
}

TEST(FXPair, isAPlainObjectToTheToolkit) {
  TextCount pair("a", 1);
  EXPECT_EQ(pair.getMetaClass(), &FXObject::metaClass);
  EXPECT_STREQ(pair.getClassName(), "FXObject");
  EXPECT_EQ(pair.handle(nullptr, FXSEL(SEL_COMMAND, 1), nullptr), 0);
}

TEST(FXPair, hasTheObjectAsItsFirstBaseSoThatListsFindItAgain) {
  TextCount pair("a", 1);
  EXPECT_EQ(static_cast<void*>(static_cast<FXObject*>(&pair)), static_cast<void*>(&pair));
}

TEST(FXPair, releasesItsValuesWhenDeletedAsAnObject) {
  FXObject* object = new FXPair<Tracked, int>;
  EXPECT_EQ(Tracked::living, 1);
  delete object;
  EXPECT_EQ(Tracked::living, 0);
}

TEST(FXPair, isDeletedWithTheManagedListThatHoldsIt) {
  {
    FXManagedObjectListOf<FXPair<Tracked, int>> list;
    for (int i = 0; i < 3; ++i) {
      list.append(new FXPair<Tracked, int>);
      list[i]->second = i;
    }
    EXPECT_EQ(Tracked::living, 3);
    EXPECT_EQ(list[2]->second, 2);
  }
  EXPECT_EQ(Tracked::living, 0);
}

TEST(FXPair, releasesItsTextWithTheManagedList) {
  // A leaked text would be reported by the address sanitizer.
  FXManagedObjectListOf<TextCount> list;
  list.append(new TextCount(FXString('x', 1000), 1));
  EXPECT_EQ(list[0]->first.length(), 1000);
}

}  // namespace
