// What is executed, as texts.
#include "tests/support/StatementLog.h"

#include <utility>

using namespace FX;

void StatementLog::statementExecuted(const FXString& sql, const std::vector<Binding>& bindings) {
  std::string statement(sql.text(), static_cast<std::size_t>(sql.length()));
  statement += "\n    ";
  const char* separator = "";
  for (const Binding& binding : bindings) {
    statement += separator;
    statement += binding.name.text();
    statement += binding.null ? "=NULL" : "='" + std::string(binding.value.text()) + "'";
    separator = ", ";
  }
  statements.push_back(statement);
}

std::vector<std::string> StatementLog::take() { return std::exchange(statements, {}); }
