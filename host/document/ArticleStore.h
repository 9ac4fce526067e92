#pragma once

#include <fx.h>

#include <vector>

class TarnwellDatabase;

namespace Quillane::Host {

/// What can stand on a document: a product, a service or a suite.
struct Article {
  int kind = 0;  // 1 product, 2 service, 3 suite
  int id = 0;    // 0 as long as it is not stored
  FX::FXString name;
  FX::FXString unit;
  FX::FXString price;  // in plain notation with a decimal point
};

/// The company's articles. What could not be done comes back as a sentence for the user in error.
class ArticleStore {
 public:
  /// The database is not owned and has to outlive the store.
  explicit ArticleStore(TarnwellDatabase& companyDatabase) : database(companyDatabase) {}

  /// All articles of this kind, by their names.
  bool list(int kind, std::vector<Article>& articles, FX::FXString& error) const;

  /// The article of this kind with this id. False also when there is none.
  bool load(int kind, int id, Article& article, FX::FXString& error) const;

  /// Stores a new or changed article; blanks around its texts are dropped, the price may be given as people type it
  /// ("1 234,5") and is 0 when it is empty, and a new article gets its id. Refuses an empty name, a price that is no
  /// number and a kind that there is not. When it could not be stored the article is as it was.
  bool save(Article& article, FX::FXString& error) const;

  /// The same inside a transaction that is running and that others write in, too. False with a sentence in reason when
  /// the article is refused, without one when a statement failed. What was stored is taken back with the transaction:
  /// the caller puts the article back then.
  bool write(Article& article, FX::FXString& reason) const;

 private:
  TarnwellDatabase& database;
};

}  // namespace Quillane::Host
