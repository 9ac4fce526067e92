#pragma once

#include <fx.h>

#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include "host/command/Command.h"

namespace CLI {
class App;
class ParseError;
}  // namespace CLI

namespace Quillane::Commands {

/// The program's command line: knows all commands, finds the one that is called, opens the company for it and runs it.
class CommandLine {
 public:
  CommandLine();
  ~CommandLine();

  /// Runs what the arguments of main ask for; returns the exit status of the program.
  int run(int argc, const char* const* argv);

  CommandLine(const CommandLine&) = delete;
  CommandLine& operator=(const CommandLine&) = delete;

 private:
  void addCommand(CLI::App& parent, std::unique_ptr<Command> command);
  void addRecordCommands();
  Command* findCalled() const;
  int tellParseError(const CLI::ParseError& error) const;
  Outcome findCompanyFile(FX::FXString& file) const;
  Outcome runCommand(Command& command, Host::Company& company, Output& output) const;
  Outcome openFor(const Command& command, Host::Company& company, const FX::FXString& file, const Outcome& found) const;
  int finish(const Outcome& outcome, Output& output) const;

  std::unique_ptr<CLI::App> parser;
  std::vector<std::pair<CLI::App*, std::unique_ptr<Command>>> commands;
  std::optional<FX::FXString> givenFile;
  bool json = false;
  bool traceSql = false;
};

}  // namespace Quillane::Commands
