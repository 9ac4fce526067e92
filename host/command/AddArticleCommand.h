#pragma once

#include <optional>

#include "host/command/AddCommand.h"
#include "host/command/ArticleKind.h"

namespace Quillane::Commands {

/// Adds a product, a service or a suite.
class AddArticleCommand : public AddCommand {
 public:
  AddArticleCommand(const ArticleKind& articleKind, const char* commandDescription)
      : kind(articleKind), description(commandDescription) {}

  const char* getName() const override { return kind.name; }
  const char* getDescription() const override { return description; }
  void declareOptions(OptionSet& options) override;

 protected:
  Outcome readOptions() override;
  Outcome insert(TarnwellDatabase& database, int& id) override;

 private:
  const ArticleKind& kind;
  const char* description;
  FX::FXString name;
  std::optional<FX::FXString> unit;
  std::optional<FX::FXString> typedPrice;
  FX::FXString price = "0";
};

}  // namespace Quillane::Commands
