#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace Quillane::Database {

/// An SQL text with %name parameters, taken apart once.
struct StatementText {
  std::string sql;                      // as it was given
  std::string native;                   // parameter i (from 0) is written ?i+1
  std::vector<std::string> parameters;  // each name once, in the order of first use
  std::string keyedTable;               // table of an update by key; empty for everything else
};

/// Takes sql apart.
StatementText parseStatement(std::string_view sql);

/// The length of the piece of sql that begins at start: a literal, a quoted name, a comment, a name, a number or a
/// parameter whole, else one byte.
size_t pieceLength(std::string_view sql, size_t start);

/// Whether condition compares the column key with a parameter, from either side.
bool comparesWithParameter(std::string_view condition, std::string_view key);

}  // namespace Quillane::Database
