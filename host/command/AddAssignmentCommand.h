#pragma once

#include "host/command/AddCommand.h"
#include "host/command/ArticleChoice.h"

namespace Quillane::Commands {

/// Lets an article ask for a field, on outgoing or on incoming documents.
class AddAssignmentCommand : public AddCommand {
 public:
  const char* getName() const override { return "assignment"; }
  const char* getDescription() const override;
  void declareOptions(OptionSet& options) override;

 protected:
  Outcome readOptions() override;
  Outcome insert(TarnwellDatabase& database, int& id) override;

 private:
  Outcome findReferences(TarnwellDatabase& database);

  ArticleChoice article;
  FX::FXString variableText;
  FX::FXString directionName;
  int variable = 0;
  int direction = 0;
};

}  // namespace Quillane::Commands
