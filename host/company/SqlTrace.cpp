// Shows the statements that a program runs, for people who want to know what is going on.
#include "host/company/SqlTrace.h"

#include <nlohmann/json.hpp>
#include <string>

using namespace FX;

namespace Quillane::Host {

namespace {

using Json = nlohmann::ordered_json;

Json toJson(const FXString& text) { return std::string(text.text(), static_cast<std::size_t>(text.length())); }

}  // namespace

void SqlTrace::statementExecuted(const FXString& sql, const std::vector<Binding>& bindings) {
  Json parameters = Json::object();
  for (const Binding& binding : bindings)
    parameters[binding.name.text()] = binding.null ? Json() : toJson(binding.value);
  const Json statement = {{"sql", toJson(sql)}, {"params", parameters}};
  const std::string line = statement.dump(-1, ' ', false, Json::error_handler_t::replace) + "\n";
  std::fwrite(line.data(), 1, line.size(), file);
}

}  // namespace Quillane::Host
