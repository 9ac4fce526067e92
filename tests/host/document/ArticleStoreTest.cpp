#include "host/document/ArticleStore.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/TestCompany.h"

using namespace FX;
using testing::HasSubstr;

namespace Quillane::Host {
namespace {

constexpr int kProduct = 1;
constexpr int kService = 2;
constexpr int kSuite = 3;

class ArticleStoreTest : public testing::Test {
 protected:
  ArticleStoreTest() {
    const Grid::value_type columns = {"name", "unit", "price"};
    company.fill("t_product", {columns, {"Szelep", "db", "1234.5"}, {"csap", "db", "10"}});
    company.fill("t_service", {columns, {"Szerelés", "óra", "12000"}});
    company.fill("t_suite", {columns, {"Készlet", "készlet", "NULL"}});
  }

  std::string save(Article article) { return store.save(article, error) ? "" : error.text(); }

  TestCompany company;
  ArticleStore store{*company.getDB()};
  FXString error;
};

TEST_F(ArticleStoreTest, listsTheArticlesOfAKindByTheirNames) {
  std::vector<Article> articles;
  ASSERT_TRUE(store.list(kProduct, articles, error)) << error.text();
  ASSERT_EQ(articles.size(), 2u);
  EXPECT_EQ(articles[0].name, "csap");
  EXPECT_EQ(articles[1].name, "Szelep");
  EXPECT_EQ(articles[1].kind, kProduct);
  EXPECT_EQ(articles[1].id, 1);
  EXPECT_EQ(articles[1].price, "1234.5");
  ASSERT_TRUE(store.list(kSuite, articles, error));
  ASSERT_EQ(articles.size(), 1u);
  EXPECT_EQ(articles[0].price, "");
}

TEST_F(ArticleStoreTest, loadsAnArticle) {
  Article article;
  ASSERT_TRUE(store.load(kService, 1, article, error)) << error.text();
  EXPECT_EQ(article.kind, kService);
  EXPECT_EQ(article.unit, "óra");
  EXPECT_FALSE(store.load(kService, 9, article, error));
  EXPECT_EQ(error, "Nincs #9 azonosítójú cikk.");
}

TEST_F(ArticleStoreTest, storesANewArticleAsItWasTyped) {
  Article article{kService, 0, " Festés ", " m² ", " 1 234,50 "};
  ASSERT_TRUE(store.save(article, error)) << error.text();
  EXPECT_EQ(article.id, 2);
  EXPECT_EQ(article.price, "1234.5");
  EXPECT_EQ(company.query("select t_service_id, name, unit, price from t_service")[1],
            (std::vector<std::string>{"2", "Festés", "m²", "1234.5"}));
}

TEST_F(ArticleStoreTest, storesAChangedArticleInItsOwnTable) {
  EXPECT_EQ(save({kSuite, 1, "Nagy készlet", "készlet", "5"}), "");
  EXPECT_EQ(company.query("select name, price from t_suite"), (Grid{{"Nagy készlet", "5"}}));
  EXPECT_EQ(company.query("select name from t_product where t_product_id=1"), (Grid{{"Szelep"}}));
}

TEST_F(ArticleStoreTest, takesNoPriceForZero) {
  EXPECT_EQ(save({kProduct, 0, "Ajándék", "db", ""}), "");
  EXPECT_EQ(company.query("select price from t_product where name='Ajándék'"), (Grid{{"0"}}));
}

TEST_F(ArticleStoreTest, refusesWhatCannotBeAnArticle) {
  EXPECT_EQ(save({kProduct, 0, "  ", "db", "1"}), "Adja meg a megnevezést.");
  EXPECT_EQ(save({kProduct, 0, "Cső", "db", "sok"}), "Az egységár nem jó. Ez nem szám: „sok”.");
  EXPECT_EQ(save({4, 0, "Cső", "db", "1"}), "Nincs 4 jelű cikkfajta.");
  EXPECT_EQ(company.query("select count(*) from t_product"), (Grid{{"2"}}));
}

TEST_F(ArticleStoreTest, leavesAnArticleAsItWasThatCannotBeStored) {
  Article article{kProduct, 9, " Elveszett ", "db", "1 000"};
  EXPECT_FALSE(store.save(article, error));
  EXPECT_THAT(error.text(), HasSubstr("„Elveszett”"));
  EXPECT_EQ(article.name, " Elveszett ");
  EXPECT_EQ(article.price, "1 000");

  company.run("alter table t_product rename to t_gone");
  article.id = 0;
  EXPECT_FALSE(store.save(article, error));
  EXPECT_EQ(article.id, 0);
  std::vector<Article> articles;
  EXPECT_FALSE(store.list(kProduct, articles, error));
  EXPECT_FALSE(store.load(kProduct, 1, article, error));
}

TEST_F(ArticleStoreTest, knowsThreeKinds) {
  std::vector<Article> articles;
  Article article;
  EXPECT_FALSE(store.list(0, articles, error));
  EXPECT_FALSE(store.load(4, 1, article, error));
  EXPECT_EQ(error, "Nincs 4 jelű cikkfajta.");
}

}  // namespace
}  // namespace Quillane::Host
