#pragma once

#include <optional>

#include "host/command/AddCommand.h"

namespace Quillane::Commands {

/// Adds a field that articles can ask for.
class AddVariableCommand : public AddCommand {
 public:
  const char* getName() const override { return "variable"; }
  const char* getDescription() const override;
  void declareOptions(OptionSet& options) override;

 protected:
  Outcome readOptions() override;
  Outcome insert(TarnwellDatabase& database, int& id) override;

 private:
  FX::FXString name;
  FX::FXString typeName;
  bool perUnit = false;
  bool mandatory = false;
  std::optional<FX::FXString> choices;
  int type = 0;
};

}  // namespace Quillane::Commands
