#pragma once

#include "host/command/Command.h"

namespace Quillane::Commands {

/// Makes a document from another: a draft with what is still open of it, or the document that cancels it.
class DeriveCommand : public Command {
 public:
  const char* getName() const override { return "derive"; }
  const char* getDescription() const override;
  void declareOptions(OptionSet& options) override;
  CompanyUse getCompanyUse() const override { return COMPANY_WITH_MODULE; }
  Outcome run(CommandContext& context) override;

 private:
  FX::FXString id;
  FX::FXString statusText;
};

}  // namespace Quillane::Commands
