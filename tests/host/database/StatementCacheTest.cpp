#include "host/database/StatementCache.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using Quillane::Database::CachedStatement;
using Quillane::Database::StatementCache;

void use(StatementCache& cache, const std::string& key) {
  CachedStatement* statement = cache.find(key);
  cache.release(statement ? statement : cache.add(key, {}));
}

bool knows(StatementCache& cache, const std::string& key) {
  CachedStatement* statement = cache.find(key);
  if (statement) cache.release(statement);
  return statement != nullptr;
}

TEST(StatementCache, findsWhatWasAdded) {
  StatementCache cache(4);
  EXPECT_EQ(cache.find("a"), nullptr);
  CachedStatement* added = cache.add("a", {});
  EXPECT_EQ(cache.find("a"), added);
  EXPECT_EQ(added->users, 2);
  EXPECT_EQ(cache.find("b"), nullptr);
}

TEST(StatementCache, keepsTheLatestOfTheUnused) {
  StatementCache cache(2);
  for (const char* key : {"a", "b", "c"}) use(cache, key);
  EXPECT_EQ(cache.size(), 2u);
  EXPECT_FALSE(knows(cache, "a"));
  use(cache, "b");
  use(cache, "d");
  EXPECT_TRUE(knows(cache, "b"));
  EXPECT_FALSE(knows(cache, "c"));
  EXPECT_TRUE(knows(cache, "d"));
}

TEST(StatementCache, keepsEverythingThatIsInUse) {
  StatementCache cache(1);
  CachedStatement* first = cache.add("first", {});
  CachedStatement* second = cache.add("second", {});
  for (int i = 0; i < 10; ++i) use(cache, std::to_string(i));
  EXPECT_EQ(cache.size(), 3u);
  EXPECT_EQ(cache.find("first"), first);
  cache.release(first);
  cache.release(first);
  EXPECT_EQ(cache.size(), 2u);
  EXPECT_FALSE(knows(cache, "9"));
  EXPECT_TRUE(knows(cache, "first"));
  cache.release(second);
  EXPECT_EQ(cache.size(), 1u);
}

TEST(StatementCache, forgetsAllWhenCleared) {
  StatementCache cache(4);
  use(cache, "a");
  cache.add("b", {});
  cache.clear();
  EXPECT_EQ(cache.size(), 0u);
  use(cache, "a");
  EXPECT_TRUE(knows(cache, "a"));
}

TEST(StatementCache, worksWithoutRoomForTheUnused) {
  StatementCache cache(0);
  use(cache, "a");
  EXPECT_EQ(cache.size(), 0u);
}

}  // namespace
