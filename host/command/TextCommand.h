#pragma once

#include "host/command/DocumentCommand.h"

namespace Quillane::Commands {

/// Writes the printable text of each item's data.
class TextCommand : public DocumentCommand {
 public:
  const char* getName() const override { return "text"; }
  const char* getDescription() const override;

 protected:
  Outcome runOn(Host::Document& document, CommandContext& context) override;
};

}  // namespace Quillane::Commands
