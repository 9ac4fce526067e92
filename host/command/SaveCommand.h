#pragma once

#include "host/command/DocumentCommand.h"

namespace Quillane::Commands {

/// Loads a document through the entity hooks and saves it.
class SaveCommand : public DocumentCommand {
 public:
  const char* getName() const override { return "save"; }
  const char* getDescription() const override;

 protected:
  Outcome runOn(Host::Document& document, CommandContext& context) override;
};

}  // namespace Quillane::Commands
