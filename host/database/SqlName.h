#pragma once

#include <string>
#include <string_view>

namespace Quillane::Database {

/// Whether byte can begin the name of a column, a table or a parameter. What is beyond ASCII counts as a letter.
inline bool beginsName(char byte) {
  return (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z') || byte == '_' || (byte & 0x80);
}

/// Whether byte can stand inside such a name.
inline bool continuesName(char byte) { return beginsName(byte) || (byte >= '0' && byte <= '9'); }

/// Whether name is made of such bytes only.
bool isPlainName(std::string_view name);

/// name as it has to be written in an SQL text: as it is where that is possible, else in double quotes.
std::string quotedName(std::string_view name);

/// Whether both are the same name to the database: upper and lower case of ASCII letters do not differ.
bool sameName(std::string_view one, std::string_view other);

}  // namespace Quillane::Database
