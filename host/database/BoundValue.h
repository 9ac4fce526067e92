#pragma once

#include <string>

namespace Quillane::Database {

/// A value that is bound to a parameter of a statement.
struct BoundValue {
  enum class Kind : unsigned char {
    Null,
    Integer,
    Text,
    NotAnInteger,  // text holds what was given instead; the statement must not run
    CutText        // text has a NUL byte and could not be read back; the statement must not run
  };

  std::string name;
  Kind kind = Kind::Null;
  long long integer = 0;
  std::string text;
};

}  // namespace Quillane::Database
