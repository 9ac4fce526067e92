// Builds the texts of insert, update and delete statements.
#include "host/database/GeneratedText.h"

#include <algorithm>
#include <string_view>
#include <vector>

#include "host/database/SqlName.h"
#include "host/database/StatementText.h"

namespace Quillane::Database {

namespace {

// "A=%A", joined by separator.
std::string assignments(const std::vector<std::string_view>& names, std::string_view separator) {
  std::string text;
  for (const std::string_view name : names) {
    if (!text.empty()) text += separator;
    text.append(quotedName(name)).append("=%").append(name);
  }
  return text;
}

std::string insertText(const std::string& table, const std::vector<std::string_view>& names) {
  std::string columns;
  std::string values;
  for (const std::string_view name : names) {
    if (!columns.empty()) {
      columns += ", ";
      values += ", ";
    }
    columns += quotedName(name);
    values.append("%").append(name);
  }
  return "insert into " + quotedName(table) + " (" + columns + ") values (" + values + ")";
}

}  // namespace

void describeText(const StatementBody& body, std::string& key) {
  // The first byte keeps these keys apart from the texts that callers give.
  key.assign(1, static_cast<char>(body.kind));
  key += body.table;
  key += '\0';
  key += body.where;
  for (const BoundValue& value : body) {
    key += '\0';
    key += value.name;
  }
}

GeneratedText generateText(const StatementBody& body) {
  using Kind = StatementBody::Kind;
  using Problem = GeneratedText::Problem;
  GeneratedText built;
  std::vector<std::string> conditions;
  if (body.kind == Kind::Update) conditions = parseStatement(body.where).parameters;

  std::vector<std::string_view> names;
  for (const BoundValue& value : body) {
    if (std::find(conditions.begin(), conditions.end(), value.name) != conditions.end()) continue;
    names.push_back(value.name);
    if (isPlainName(value.name) || built.problem == Problem::BadName) continue;
    built.problem = Problem::BadName;
    built.name = value.name;
  }

  const bool update = body.kind == Kind::Update;
  if (body.kind == Kind::Insert) built.sql = insertText(body.table, names);
  if (update)
    built.sql = "update " + quotedName(body.table) + " set " + assignments(names, ", ") + " where " + body.where;
  if (body.kind == Kind::Delete)
    built.sql = "delete from " + quotedName(body.table) + " where " + assignments(names, " and ");

  if (body.table.empty())
    built.problem = Problem::NoTable;
  else if (update && body.where.find_first_not_of(" \t\r\n\f") == std::string::npos)
    built.problem = Problem::NoCondition;
  else if (names.empty())
    built.problem = body.kind == Kind::Delete ? Problem::NoCondition : Problem::NoColumn;
  return built;
}

}  // namespace Quillane::Database
