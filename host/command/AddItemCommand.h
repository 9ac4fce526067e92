#pragma once

#include <optional>

#include "host/command/ArticleChoice.h"
#include "host/command/Command.h"

namespace Quillane::Commands {

/// Adds an item at the end of a document.
class AddItemCommand : public Command {
 public:
  const char* getName() const override { return "item"; }
  const char* getDescription() const override;
  void declareOptions(OptionSet& options) override;
  CompanyUse getCompanyUse() const override { return COMPANY_WITH_MODULE; }
  Outcome run(CommandContext& context) override;

 private:
  Outcome readOptions();
  /// What the call leaves open is as the article has it.
  Outcome takeOverArticle(TarnwellDatabase& database);

  FX::FXString documentText;
  ArticleChoice article;
  std::optional<FX::FXString> typedQuantity;
  std::optional<FX::FXString> typedPrice;
  std::optional<FX::FXString> givenName;
  std::optional<FX::FXString> givenUnit;

  int documentId = 0;
  FX::FXString quantity = "1";
  FX::FXString price = "0";
  FX::FXString name;
  FX::FXString unit = "db";
};

}  // namespace Quillane::Commands
