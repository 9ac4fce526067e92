// Names of tables and columns: which can be written bare, and how the others are quoted.
#include "host/database/SqlName.h"

#include <algorithm>
#include <array>

namespace Quillane::Database {

namespace {

// The words that cannot be the name of a table or a column unless they are quoted; sorted.
constexpr std::string_view kReservedWords[] = {"add",
                                               "all",
                                               "alter",
                                               "and",
                                               "as",
                                               "autoincrement",
                                               "between",
                                               "case",
                                               "cast",
                                               "check",
                                               "collate",
                                               "commit",
                                               "constraint",
                                               "create",
                                               "current_date",
                                               "current_time",
                                               "current_timestamp",
                                               "default",
                                               "deferrable",
                                               "delete",
                                               "distinct",
                                               "drop",
                                               "else",
                                               "escape",
                                               "except",
                                               "exists",
                                               "foreign",
                                               "from",
                                               "group",
                                               "having",
                                               "if",
                                               "in",
                                               "index",
                                               "insert",
                                               "intersect",
                                               "into",
                                               "is",
                                               "isnull",
                                               "join",
                                               "limit",
                                               "not",
                                               "nothing",
                                               "notnull",
                                               "null",
                                               "on",
                                               "or",
                                               "order",
                                               "primary",
                                               "raise",
                                               "references",
                                               "returning",
                                               "select",
                                               "set",
                                               "table",
                                               "then",
                                               "to",
                                               "transaction",
                                               "union",
                                               "unique",
                                               "update",
                                               "using",
                                               "values",
                                               "when",
                                               "where"};

char lowered(char byte) { return byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte - 'A' + 'a') : byte; }

bool isReserved(std::string_view name) {
  std::string word(name);
  std::transform(word.begin(), word.end(), word.begin(), lowered);
  return std::binary_search(std::begin(kReservedWords), std::end(kReservedWords), word);
}

}  // namespace

bool isPlainName(std::string_view name) {
  return !name.empty() && beginsName(name.front()) && std::all_of(name.begin(), name.end(), continuesName);
}

std::string quotedName(std::string_view name) {
  if (isPlainName(name) && !isReserved(name)) return std::string(name);
  std::string quoted = "\"";
  for (const char byte : name) {
    if (byte == '"') quoted += '"';
    quoted += byte;
  }
  return quoted += '"';
}

bool sameName(std::string_view one, std::string_view other) {
  return one.size() == other.size() &&
         std::equal(one.begin(), one.end(), other.begin(), [](char a, char b) { return lowered(a) == lowered(b); });
}

}  // namespace Quillane::Database
