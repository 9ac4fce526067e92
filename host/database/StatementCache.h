#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "host/database/PreparedStatement.h"
#include "host/database/StatementText.h"

namespace Quillane::Database {

/// One SQL text that a connection knows, with what is ready to run it.
struct CachedStatement {
  std::string key;
  StatementText text;
  std::vector<std::unique_ptr<PreparedStatement>> idle;  // ready and not running at the moment
  int users = 0;                                         // of the cache's find
  CachedStatement* newer = nullptr;                      // in the list of the unused
  CachedStatement* older = nullptr;
};

/// The texts of one connection, found by key. Those in use are all kept; of the unused the latest, up to capacity.
class StatementCache {
 public:
  explicit StatementCache(size_t capacity);
  ~StatementCache();

  /// The statement with this key, in use from now on until release; null when it is not known.
  CachedStatement* find(std::string_view key);

  /// Adds a statement whose key is not known yet; it is in use until release.
  CachedStatement* add(std::string_view key, StatementText text);

  /// One more user of a statement that has some.
  static void retain(CachedStatement* statement) { ++statement->users; }

  /// One user less.
  void release(CachedStatement* statement);

  /// Forgets every statement, whoever uses it.
  void clear();

  /// How many texts are known.
  size_t size() const { return statements.size(); }

  StatementCache(const StatementCache&) = delete;
  StatementCache& operator=(const StatementCache&) = delete;

 private:
  void unlink(CachedStatement* statement);

  size_t capacity;
  size_t unused = 0;
  std::unordered_map<std::string_view, std::unique_ptr<CachedStatement>> statements;  // the keys live in the values
  CachedStatement* newest = nullptr;                                                  // of the unused
  CachedStatement* oldest = nullptr;
};

}  // namespace Quillane::Database
