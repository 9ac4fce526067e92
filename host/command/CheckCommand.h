#pragma once

#include "host/command/DocumentCommand.h"

namespace Quillane::Commands {

/// Checks a document; refuses when it has an error.
class CheckCommand : public DocumentCommand {
 public:
  const char* getName() const override { return "check"; }
  const char* getDescription() const override;

 protected:
  Outcome runOn(Host::Document& document, CommandContext& context) override;
};

}  // namespace Quillane::Commands
