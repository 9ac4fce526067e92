// Keeps the statements of a connection ready to run: those in use, and the latest of the others.
#include "host/database/StatementCache.h"

#include <utility>

namespace Quillane::Database {

StatementCache::StatementCache(size_t most) : capacity(most) {}

StatementCache::~StatementCache() = default;

CachedStatement* StatementCache::find(std::string_view key) {
  const auto found = statements.find(key);
  if (found == statements.end()) return nullptr;
  CachedStatement* statement = found->second.get();
  if (statement->users++ == 0) unlink(statement);
  return statement;
}

CachedStatement* StatementCache::add(std::string_view key, StatementText text) {
  auto made = std::make_unique<CachedStatement>();
  CachedStatement* statement = made.get();
  statement->key = key;
  statement->text = std::move(text);
  statement->users = 1;
  statements.emplace(statement->key, std::move(made));
  return statement;
}

void StatementCache::release(CachedStatement* statement) {
  if (--statement->users > 0) return;
  statement->older = newest;
  (newest ? newest->newer : oldest) = statement;
  newest = statement;
  if (++unused <= capacity) return;
  CachedStatement* last = oldest;
  unlink(last);
  statements.erase(last->key);
}

void StatementCache::clear() {
  newest = oldest = nullptr;
  unused = 0;
  statements.clear();
}

void StatementCache::unlink(CachedStatement* statement) {
  (statement->newer ? statement->newer->older : newest) = statement->older;
  (statement->older ? statement->older->newer : oldest) = statement->newer;
  statement->newer = statement->older = nullptr;
  --unused;
}

}  // namespace Quillane::Database
