#pragma once

#include "host/command/DocumentCommand.h"

namespace Quillane::Commands {

/// Moves a document to another status; one that is closed by it gets its number.
class StatusCommand : public DocumentCommand {
 public:
  const char* getName() const override { return "status"; }
  const char* getDescription() const override;
  void declareOptions(OptionSet& options) override;
  Outcome run(CommandContext& context) override;

 protected:
  Outcome runOn(Host::Document& document, CommandContext& context) override;

 private:
  FX::FXString statusText;
  int status = 0;
};

}  // namespace Quillane::Commands
