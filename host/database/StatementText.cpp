// Finds the %name parameters of an SQL text, and leaves literals, quoted names and comments alone.
#include "host/database/StatementText.h"

#include <algorithm>

#include "host/database/SqlName.h"

namespace Quillane::Database {

namespace {

// Where the literal, quoted name or comment that begins at start ends (one past its last byte), or start when none
// begins there. What is never closed reaches to the end of the text: the database will complain about it.
size_t skipOpaque(std::string_view sql, size_t start) {
  const auto upTo = [sql](size_t position, size_t length) {
    return position == std::string_view::npos ? sql.size() : position + length;
  };
  switch (sql[start]) {
    case '\'':
    case '"':
    case '`':
      // A doubled quote ends one piece and begins the next, which comes to the same.
      return upTo(sql.find(sql[start], start + 1), 1);
    case '[':
      return upTo(sql.find(']', start + 1), 1);
    case '-':
      return sql.substr(start, 2) == "--" ? upTo(sql.find('\n', start), 1) : start;
    case '/':
      return sql.substr(start, 2) == "/*" ? upTo(sql.find("*/", start + 2), 2) : start;
    default:
      return start;
  }
}

size_t skipName(std::string_view sql, size_t start) {
  while (start < sql.size() && continuesName(sql[start])) ++start;
  return start;
}

// The next piece of an SQL text.
struct Token {
  enum class Kind { Opaque, Name, Parameter, Other };
  Kind kind;
  std::string_view text;  // of a parameter: with its percent sign
};

Token nextToken(std::string_view sql, size_t start) {
  size_t end = skipOpaque(sql, start);
  if (end > start) return {Token::Kind::Opaque, sql.substr(start, end - start)};
  // A number is read like a name, so that no name begins in the middle of one.
  if (continuesName(sql[start])) return {Token::Kind::Name, sql.substr(start, skipName(sql, start) - start)};
  if (sql[start] == '%' && start + 1 < sql.size() && beginsName(sql[start + 1])) {
    end = skipName(sql, start + 1);
    return {Token::Kind::Parameter, sql.substr(start, end - start)};
  }
  return {Token::Kind::Other, sql.substr(start, 1)};
}

bool isBlank(std::string_view token) { return token.find_first_not_of(" \t\r\n\f") == std::string_view::npos; }

}  // namespace

StatementText parseStatement(std::string_view sql) {
  StatementText parsed;
  parsed.sql = sql;
  parsed.native.reserve(sql.size());
  auto& names = parsed.parameters;
  for (size_t at = 0; at < sql.size();) {
    const Token token = nextToken(sql, at);
    at += token.text.size();
    if (token.kind != Token::Kind::Parameter) {
      parsed.native += token.text;
      continue;
    }
    const std::string_view name = token.text.substr(1);
    const auto found = std::find(names.begin(), names.end(), name);
    parsed.native += '?';
    parsed.native += std::to_string(found - names.begin() + 1);
    if (found == names.end()) names.emplace_back(name);
  }
  return parsed;
}

size_t pieceLength(std::string_view sql, size_t start) { return nextToken(sql, start).text.size(); }

bool comparesWithParameter(std::string_view condition, std::string_view key) {
  // The last three pieces that are no blanks: something, an equals sign, something.
  Token left{Token::Kind::Other, {}};
  Token middle = left;
  const auto isKey = [key](const Token& token) { return token.kind == Token::Kind::Name && sameName(token.text, key); };
  for (size_t at = 0; at < condition.size();) {
    const Token right = nextToken(condition, at);
    at += right.text.size();
    if (isBlank(right.text)) continue;
    if (middle.text == "=" && ((isKey(left) && right.kind == Token::Kind::Parameter) ||
                               (left.kind == Token::Kind::Parameter && isKey(right))))
      return true;
    left = middle;
    middle = right;
  }
  return false;
}

}  // namespace Quillane::Database
