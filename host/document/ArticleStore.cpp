// The company's articles: each kind has a table of its own, and all of them have the same columns.
#include "host/document/ArticleStore.h"

#include <libintl.h>

#include "host/document/ResultRows.h"
#include "host/document/Transaction.h"
#include "host/document/TypedNumber.h"
#include "plugin/contract/Database.h"
#include "plugin/contract/Invoice.h"
#include "plugin/contract/Statement.h"

using namespace FX;

namespace Quillane::Host {

namespace {

/// What differs from kind to kind.
struct Kind {
  int code;
  const char* table;
  const char* key;
  const char* byKey;
  const char* listSql;
  const char* loadSql;
};

constexpr Kind kKinds[] = {
    {InvoiceItem::ARTICLE_PRODUCT, "t_product", "t_product_id", "t_product_id=%t_product_id",
     "select t_product_id, name, unit, price from t_product order by fold_case(name), t_product_id",
     "select t_product_id, name, unit, price from t_product where t_product_id=%id"},
    {InvoiceItem::ARTICLE_SERVICE, "t_service", "t_service_id", "t_service_id=%t_service_id",
     "select t_service_id, name, unit, price from t_service order by fold_case(name), t_service_id",
     "select t_service_id, name, unit, price from t_service where t_service_id=%id"},
    {InvoiceItem::ARTICLE_SUITE, "t_suite", "t_suite_id", "t_suite_id=%t_suite_id",
     "select t_suite_id, name, unit, price from t_suite order by fold_case(name), t_suite_id",
     "select t_suite_id, name, unit, price from t_suite where t_suite_id=%id"},
};

const Kind* findKind(int code, FXString& error) {
  for (const Kind& kind : kKinds)
    if (kind.code == code) return &kind;
  error = FXStringFormat(dgettext("quillane", "Nincs %d jelű cikkfajta."), code);
  return nullptr;
}

Article toArticle(int kind, const ResultRows& rows, int row) {
  return {kind, rows.getInt(row, 0), rows.getText(row, 1), rows.getText(row, 2), rows.getText(row, 3)};
}

void bindTexts(Statement& statement, const Article& article) {
  statement.setString("name", article.name);
  statement.setString("unit", article.unit);
  statement.setString("price", article.price);
}

bool insert(TarnwellDatabase& database, const Kind& kind, Article& article) {
  article.id = database.nextKey(kind.table);
  if (article.id <= 0) return false;
  InsertStatement statement(&database, kind.table);
  statement.setInt(kind.key, article.id);
  bindTexts(statement, article);
  return statement.execute(nullptr, 1);
}

bool update(TarnwellDatabase& database, const Kind& kind, const Article& article) {
  UpdateStatement statement(&database, kind.table, kind.byKey);
  statement.setInt(kind.key, article.id);
  bindTexts(statement, article);
  return statement.execute(nullptr, 1);
}

/// Brings what was typed into the form in which it is stored.
bool normalise(Article& article, FXString& error) {
  for (FXString* text : {&article.name, &article.unit, &article.price}) text->trim();
  if (article.name.empty()) {
    error = dgettext("quillane", "Adja meg a megnevezést.");
    return false;
  }
  if (article.price.empty()) article.price = "0";
  FXString reason;
  if (parseTypedNumber(article.price, article.price, reason)) return true;
  error = FXStringFormat(dgettext("quillane", "Az egységár nem jó. %s"), reason.text());
  return false;
}

}  // namespace

bool ArticleStore::list(int kind, std::vector<Article>& articles, FXString& error) const {
  const Kind* found = findKind(kind, error);
  if (!found) return false;
  ResultRows rows;
  Statement query(&database, found->listSql);
  if (!query.execute(&rows, 0)) {
    error = database.getLastError();
    return false;
  }
  articles.clear();
  for (int row = 0; row < rows.getNumRows(); ++row) articles.push_back(toArticle(kind, rows, row));
  return true;
}

bool ArticleStore::load(int kind, int id, Article& article, FXString& error) const {
  const Kind* found = findKind(kind, error);
  if (!found) return false;
  ResultRows rows;
  Statement query(&database, found->loadSql);
  query.setInt("id", id);
  if (!query.execute(&rows, 0)) {
    error = database.getLastError();
    return false;
  }
  if (rows.getNumRows() == 0) {
    error = FXStringFormat(dgettext("quillane", "Nincs #%d azonosítójú cikk."), id);
    return false;
  }
  article = toArticle(kind, rows, 0);
  return true;
}

bool ArticleStore::save(Article& article, FXString& error) const {
  Article saved = article;
  if (!findKind(article.kind, error) || !normalise(saved, error)) return false;
  FXString reason;
  if (!Transaction::run(database, reason, [&](FXString& refusal) { return write(saved, refusal); })) {
    error =
        FXStringFormat(dgettext("quillane", "A(z) „%s” adatai nem tárolhatók. %s"), saved.name.text(), reason.text());
    return false;
  }
  article = saved;
  return true;
}

bool ArticleStore::write(Article& article, FXString& reason) const {
  const Kind* kind = findKind(article.kind, reason);
  if (!kind || !normalise(article, reason)) return false;
  return article.id > 0 ? update(database, *kind, article) : insert(database, *kind, article);
}

}  // namespace Quillane::Host
