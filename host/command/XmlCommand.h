#pragma once

#include "host/command/DocumentCommand.h"

namespace Quillane::Commands {

/// Writes the document's XML, also when JSON is asked for.
class XmlCommand : public DocumentCommand {
 public:
  const char* getName() const override { return "xml"; }
  const char* getDescription() const override;

 protected:
  Outcome runOn(Host::Document& document, CommandContext& context) override;
};

}  // namespace Quillane::Commands
