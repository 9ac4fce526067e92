#pragma once

#include <fx.h>

#include <optional>

namespace CLI {
class App;
}

namespace Quillane::Commands {

/// What one command can be called with. Targets are filled when the command line is parsed, with the text exactly as it
/// was given, and have to live until then. Descriptions are for the help.
class OptionSet {
 public:
  /// parser is not owned.
  explicit OptionSet(CLI::App& commandParser) : parser(commandParser) {}

  /// An argument without a name of its own, which has to be given.
  void addArgument(const char* name, FX::FXString& target, const char* description);

  /// An option ("--name") with a value that has to be given.
  void addRequiredOption(const char* name, const char* valueName, FX::FXString& target, const char* description);

  /// An option with a value that may be given.
  void addOption(const char* name, const char* valueName, std::optional<FX::FXString>& target, const char* description);

  /// An option without a value.
  void addFlag(const char* name, bool& target, const char* description);

 private:
  CLI::App& parser;
};

}  // namespace Quillane::Commands
