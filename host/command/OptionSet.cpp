// Arguments and options of commands, declared with CLI11. Every value is taken as text: what it means is the command's
// to say, in the user's language.
#include "host/command/OptionSet.h"

#include <CLI/CLI.hpp>

using namespace FX;

namespace Quillane::Commands {

namespace {

template <class Target>
CLI::Option* addText(CLI::App& parser, const char* name, Target& target, const char* description) {
  return parser.add_option_function<std::string>(
      name, [&target](const std::string& text) { target = FXString(text.data(), static_cast<FXint>(text.size())); },
      description);
}

}  // namespace

void OptionSet::addArgument(const char* name, FXString& target, const char* description) {
  addText(parser, name, target, description)->required()->type_name("");
}

void OptionSet::addRequiredOption(const char* name, const char* valueName, FXString& target, const char* description) {
  addText(parser, name, target, description)->required()->type_name(valueName);
}

void OptionSet::addOption(const char* name, const char* valueName, std::optional<FXString>& target,
                          const char* description) {
  addText(parser, name, target, description)->type_name(valueName);
}

void OptionSet::addFlag(const char* name, bool& target, const char* description) {
  parser.add_flag(name, target, description);
}

}  // namespace Quillane::Commands
