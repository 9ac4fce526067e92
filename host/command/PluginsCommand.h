#pragma once

#include "host/command/Command.h"

namespace Quillane::Commands {

/// Lists the loaded modules.
class PluginsCommand : public Command {
 public:
  const char* getName() const override { return "plugins"; }
  const char* getDescription() const override;
  void declareOptions(OptionSet&) override {}
  CompanyUse getCompanyUse() const override { return COMPANY_IF_ANY; }
  Outcome run(CommandContext& context) override;
};

}  // namespace Quillane::Commands
