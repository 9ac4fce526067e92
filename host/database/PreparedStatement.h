#pragma once

#include "host/database/BoundValue.h"
#include "host/database/Failure.h"

class DataBaseValueLoader;

namespace Quillane::Database {

/// A statement that a driver has made ready to run. It runs once at a time.
class PreparedStatement {
 public:
  virtual ~PreparedStatement() = default;

  /// Whether it leaves the database as it is.
  virtual bool isReadOnly() const = 0;

  /// Runs it with values, one for each parameter of its text, and hands the rows to loader, which may be null. The
  /// values need not last longer than the call, and when there is a loader not even until its first row. changes
  /// becomes the number of rows that were inserted, updated or deleted. False with a failure when it did not run to its
  /// end, or to where the loader stopped it.
  virtual bool run(const BoundValue* const* values, DataBaseValueLoader* loader, long long& changes,
                   Failure& failure) = 0;
};

}  // namespace Quillane::Database
