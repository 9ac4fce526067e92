#pragma once

#include <string>

namespace Quillane::Database {

/// Why the database did not do what it was asked.
struct Failure {
  enum class Cause {
    Other,
    Locked,      // another program is in the way
    Full,        // no room left
    ReadOnly,    // may be read only
    Unreadable,  // the file cannot be read or written
    Damaged,     // the file is damaged, or no database
    Constraint,  // the data would break a rule of the database
    Empty,       // there is no statement in the text
    Several,     // there is more than one statement in the text
    Parameters   // the text has parameters that are not written %name
  };

  Cause cause = Cause::Other;
  std::string reason;  // in the database's own words
};

}  // namespace Quillane::Database
