#pragma once

#include <optional>

#include "host/command/Command.h"

namespace Quillane::Commands {

/// Adds a document without items.
class AddDocumentCommand : public Command {
 public:
  const char* getName() const override { return "document"; }
  const char* getDescription() const override;
  void declareOptions(OptionSet& options) override;
  Outcome run(CommandContext& context) override;

 private:
  Outcome readOptions();
  Outcome setPartner(TarnwellDatabase& database, Host::Document& document) const;

  std::optional<FX::FXString> statusText;
  std::optional<FX::FXString> partnerText;
  std::optional<FX::FXString> partnerNumber;
  std::optional<FX::FXString> dateText;
  int status = 101;  // an outgoing draft
  int partner = 0;   // none
  FX::FXString date;
};

}  // namespace Quillane::Commands
