// Shows the statements that the program runs, for people who want to know what is going on.
#include "host/command/SqlTrace.h"

#include "host/command/Output.h"

using namespace FX;

namespace Quillane::Commands {

void SqlTrace::statementExecuted(const FXString& sql, const std::vector<Binding>& bindings) {
  Output::Json parameters = Output::Json::object();
  for (const Binding& binding : bindings) {
    parameters[binding.name.text()] = binding.null ? Output::Json() : Output::toJson(binding.value);
  }
  const std::string line = Output::toJsonLine({{"sql", Output::toJson(sql)}, {"params", parameters}}) + "\n";
  std::fwrite(line.data(), 1, line.size(), file);
}

}  // namespace Quillane::Commands
