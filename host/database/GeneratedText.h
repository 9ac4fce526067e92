#pragma once

#include <string>

#include "host/database/StatementBody.h"

namespace Quillane::Database {

/// The SQL text that an insert, update or delete statement builds from its table and what is bound to it.
struct GeneratedText {
  enum class Problem {
    None,
    NoTable,
    NoColumn,     // nothing to insert or to set
    NoCondition,  // nothing that says which rows
    BadName       // name is bound, and cannot be the name of a column
  };

  std::string sql;  // as far as it could be built
  Problem problem = Problem::None;
  std::string name;
};

/// Writes into key what tells body's text from all others, without building it.
void describeText(const StatementBody& body, std::string& key);

GeneratedText generateText(const StatementBody& body);

}  // namespace Quillane::Database
