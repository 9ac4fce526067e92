#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "host/database/BoundValue.h"

namespace Quillane::Database {

struct CachedStatement;
class Connection;

/// What a statement object consists of. Connections keep the bodies of destroyed statements for the next ones: most
/// statements live for one row, and so need no memory of their own.
class StatementBody {
 public:
  enum class Kind : unsigned char { None, Text, Insert, Update, Delete };

  /// The place of the value that is bound to name; a new one, with the name set, when none is.
  BoundValue& place(std::string_view name);

  /// The value that is bound to name, or null.
  const BoundValue* find(std::string_view name) const;

  /// The bound values, in the order of binding.
  size_t size() const { return bound; }
  const BoundValue* begin() const { return values.data(); }
  const BoundValue* end() const { return values.data() + bound; }

  /// Forgets everything but the memory it has, and of that what is more than usual.
  void clear();

  Connection* connection = nullptr;  // not owned; null when there is none, or none any more
  Kind kind = Kind::None;
  std::string table;                  // of an insert, update or delete
  std::string where;                  // of an update
  CachedStatement* cached = nullptr;  // held in the connection's cache; null as long as it is not known
  StatementBody* next = nullptr;      // among the connection's live bodies
  StatementBody* previous = nullptr;

 private:
  std::vector<BoundValue> values;  // the first ones are bound, the others are kept for their memory
  size_t bound = 0;
};

}  // namespace Quillane::Database
