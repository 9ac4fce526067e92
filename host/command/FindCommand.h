#pragma once

#include "host/command/Command.h"

namespace Quillane::Commands {

/// Finds the documents and items that recorded a value.
class FindCommand : public Command {
 public:
  const char* getName() const override { return "find"; }
  const char* getDescription() const override;
  void declareOptions(OptionSet& options) override;
  Outcome run(CommandContext& context) override;

 private:
  FX::FXString text;
  bool contains = false;
};

}  // namespace Quillane::Commands
