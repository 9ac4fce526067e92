#pragma once

#include "host/command/Command.h"

namespace Quillane::Commands {

/// Replaces what is recorded for an item by the content of a CSV file.
class RecordCommand : public Command {
 public:
  const char* getName() const override { return "record"; }
  const char* getDescription() const override;
  void declareOptions(OptionSet& options) override;
  Outcome run(CommandContext& context) override;

 private:
  FX::FXString id;
  FX::FXString place;
  FX::FXString file;
};

}  // namespace Quillane::Commands
