#pragma once

#include "host/command/Command.h"

namespace Quillane::Commands {

/// Shows a document with its items and the values recorded for them, as they are stored.
class ShowCommand : public Command {
 public:
  const char* getName() const override { return "show"; }
  const char* getDescription() const override;
  void declareOptions(OptionSet& options) override;
  Outcome run(CommandContext& context) override;

 private:
  FX::FXString id;
};

}  // namespace Quillane::Commands
