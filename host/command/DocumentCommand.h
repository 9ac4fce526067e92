#pragma once

#include <memory>

#include "host/command/Command.h"

namespace Quillane::Commands {

/// A command on one document, which is loaded with everything that the modules attach to its items.
class DocumentCommand : public Command {
 public:
  void declareOptions(OptionSet& options) override;
  CompanyUse getCompanyUse() const override { return COMPANY_WITH_MODULE; }
  Outcome run(CommandContext& context) override;

 protected:
  virtual Outcome runOn(Host::Document& document, CommandContext& context) = 0;

 private:
  FX::FXString id;
};

}  // namespace Quillane::Commands
