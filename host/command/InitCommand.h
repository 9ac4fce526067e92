#pragma once

#include "host/command/Command.h"

namespace Quillane::Commands {

/// Creates the company file, or brings an existing one up to date.
class InitCommand : public Command {
 public:
  const char* getName() const override { return "init"; }
  const char* getDescription() const override;
  void declareOptions(OptionSet& options) override;
  CompanyUse getCompanyUse() const override { return OPENS_ITSELF; }
  Outcome run(CommandContext& context) override;

 private:
  void tell(CommandContext& context, bool created) const;
  Outcome create(CommandContext& context) const;
  Outcome bringUpToDate(Host::Company& company, const FX::FXString& file) const;

  bool sample = false;
};

}  // namespace Quillane::Commands
