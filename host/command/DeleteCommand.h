#pragma once

#include "host/command/Command.h"

namespace Quillane::Commands {

/// Deletes a document that is not closed, with everything attached to its items.
class DeleteCommand : public Command {
 public:
  const char* getName() const override { return "delete"; }
  const char* getDescription() const override;
  void declareOptions(OptionSet& options) override;
  CompanyUse getCompanyUse() const override { return COMPANY_WITH_MODULE; }
  Outcome run(CommandContext& context) override;

 private:
  FX::FXString id;
};

}  // namespace Quillane::Commands
