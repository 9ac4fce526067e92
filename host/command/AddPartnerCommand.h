#pragma once

#include <optional>

#include "host/command/AddCommand.h"

namespace Quillane::Commands {

/// Adds a customer or a supplier.
class AddPartnerCommand : public AddCommand {
 public:
  const char* getName() const override { return "partner"; }
  const char* getDescription() const override;
  void declareOptions(OptionSet& options) override;

 protected:
  Outcome readOptions() override;
  Outcome insert(TarnwellDatabase& database, int& id) override;

 private:
  FX::FXString name;
  std::optional<FX::FXString> address;
  std::optional<FX::FXString> taxNumber;
};

}  // namespace Quillane::Commands
