#pragma once

#include <fx.h>

#include <optional>

#include "host/command/ArticleKind.h"
#include "host/command/OptionSet.h"
#include "host/command/Outcome.h"

class TarnwellDatabase;

namespace Quillane::Commands {

/// The options --product, --service and --suite, of which a call uses one to name an article.
class ArticleChoice {
 public:
  void declareOptions(OptionSet& options);

  /// Reads which article was named. The call is wrong when more than one was.
  Outcome read();

  /// Reads the article that was named, if one was, from the company. Refused when there is no such article.
  Outcome load(TarnwellDatabase& database);

  /// The kind of the article; null when none was named.
  const ArticleKind* getKind() const { return kind; }
  int getId() const { return id; }

  /// What load read.
  const FX::FXString& getName() const { return name; }
  const FX::FXString& getUnit() const { return unit; }
  const FX::FXString& getPrice() const { return price; }

 private:
  std::optional<FX::FXString> texts[kArticleKindCount];
  const ArticleKind* kind = nullptr;  // not owned
  int id = 0;
  FX::FXString name;
  FX::FXString unit;
  FX::FXString price;
};

}  // namespace Quillane::Commands
