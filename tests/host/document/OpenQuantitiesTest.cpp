#include "host/document/OpenQuantities.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/TestCompany.h"

using namespace FX;
using testing::HasSubstr;

namespace Quillane::Host {
namespace {

struct Taken {
  int status;
  std::string quantity;
};

/// A document 1 with one item 1, and what other documents say about it.
class OpenQuantitiesTest : public testing::Test {
 protected:
  /// What is open of quantity after all that was taken and given back, in outgoing invoices; "none" when nothing is,
  /// "refused" when it cannot be reckoned.
  std::string open(const std::string& quantity, const std::vector<Taken>& taken,
                   DocumentRules::Family family = {101, 151, 152}) {
    company.run("delete from t_invoice");
    company.fill("t_invoice", {{"t_invoice_id", "t_invoicestatus_1"}, {"1", "451"}});
    company.fill("t_invoiceitem",
                 {{"t_invoiceitem_id", "t_invoice_1", "name", "quantity"}, {"1", "1", "Kazán", quantity}});
    int id = 1;
    for (const Taken& one : taken) {
      const std::string key = std::to_string(++id);
      company.fill("t_invoice", {{"t_invoice_id", "t_invoicestatus_1"}, {key, std::to_string(one.status)}});
      company.fill("t_invoiceitem", {{"t_invoice_1", "t_invoiceitem_1", "quantity"}, {key, "1", one.quantity}});
    }
    Document document;
    document.setId(1);
    DocumentItem* item = document.addItem();
    item->setId(1);
    item->setName("Kazán");
    item->setQuantityText(quantity.c_str());
    OpenQuantities quantities;
    error.clear();
    if (!quantities.read(*company.getDB(), document, family, error)) return "refused";
    return quantities.hasOpen(*item) ? quantities.getOpen(*item).text() : "none";
  }

  TestCompany company;
  FXString error;
};

TEST_F(OpenQuantitiesTest, subtractsWhatWasTakenAndAddsWhatWasGivenBack) {
  struct Case {
    const char* quantity;
    std::vector<Taken> taken;
    const char* open;
  };
  const Case cases[] = {
      {"5", {}, "5"},
      {"5", {{151, "2"}}, "3"},
      {"5", {{151, "2"}, {151, "3"}}, "none"},
      {"5", {{151, "2"}, {151, "3"}, {152, "2"}}, "2"},
      {"5", {{151, "2"}, {152, "2"}}, "5"},
      {"0.3", {{151, "0.1"}, {151, "0.2"}}, "none"},
      {"0.3", {{151, "0.1"}}, "0.2"},
      {"1", {{151, "0.9999"}}, "0.0001"},
      {"1", {{151, "0.999999999"}}, "0.000000001"},
      {"100", {{151, "0.1"}, {151, "0.1"}, {151, "0.1"}}, "99.7"},
      {"1000000", {{151, "1"}}, "999999"},
      {"1000000", {}, "1000000"},
      {"999999999999999", {{151, "1"}}, "999999999999998"},
      {"5", {{151, "6"}}, "none"},  // more was taken than there was
      {"0", {}, "none"},
      {"-2", {}, "-2"},  // a return
      {"-2", {{151, "-1.5"}}, "-0.5"},
      {"-2", {{151, "-2"}}, "none"},
      {"-2", {{151, "-3"}}, "none"},
      {"1 234,5", {{151, "1 000,25"}}, "234.25"},  // as a person typed them in another program
      {"öt", {}, "none"},                          // no number: counts as 0
      {"", {}, "none"},
      {"5", {{151, "kettő"}, {151, ""}, {151, "1"}}, "4"},
  };
  for (const Case& one : cases) EXPECT_EQ(open(one.quantity, one.taken), one.open) << one.quantity;
}

TEST_F(OpenQuantitiesTest, countsTheDocumentsOfTheFamilyAlone) {
  const std::vector<Taken> all = {{101, "1"}, {102, "1"},    {151, "2"}, {152, "0.5"}, {201, "1"},   {202, "1"},
                                  {251, "4"}, {252, "0.25"}, {401, "1"}, {451, "8"},   {452, "0.1"}, {801, "1"}};
  EXPECT_EQ(open("100", all, {101, 151, 152}), "98.5");
  EXPECT_EQ(open("100", all, {201, 251, 252}), "96.25");
  EXPECT_EQ(open("100", all, {401, 451, 452}), "92.1");
}

TEST_F(OpenQuantitiesTest, refusesWhatItCannotReckonExactly) {
  EXPECT_EQ(open("100000000000000", {{151, "0.00000000000001"}}), "refused");
  EXPECT_THAT(error.text(), HasSubstr("„Kazán”"));
  EXPECT_EQ(open("100000000000000", {{151, "0.01"}}), "refused") << "the rest would have too many digits to be stored";
  EXPECT_EQ(open("10000000000000", {{151, "0.01"}}), "9999999999999.99");
  EXPECT_EQ(open("999999999999999", {{152, "999999999999999"}}), "refused");
  EXPECT_EQ(open("0.00000000000001", {{152, "0.99999999999999"}, {152, "10000000"}}), "refused")
      << "the decimals that became zeros are reckoned with all the same";
}

TEST_F(OpenQuantitiesTest, knowsNothingOfOtherDocumentsItems) {
  EXPECT_EQ(open("5", {}), "5");
  Document document;
  document.setId(1);
  OpenQuantities quantities;
  ASSERT_TRUE(quantities.read(*company.getDB(), document, {101, 151, 152}, error));
  DocumentItem stranger;
  stranger.setId(99);
  stranger.setQuantityText("5");
  EXPECT_FALSE(quantities.hasOpen(stranger));
  EXPECT_EQ(quantities.getOpen(stranger), "0");
}

TEST_F(OpenQuantitiesTest, saysWhyItCannotRead) {
  company.run("alter table t_invoiceitem rename to t_gone");
  Document document;
  document.setId(1);
  OpenQuantities quantities;
  EXPECT_FALSE(quantities.read(*company.getDB(), document, {101, 151, 152}, error));
  EXPECT_THAT(error.text(), HasSubstr("t_invoiceitem"));
}

}  // namespace
}  // namespace Quillane::Host
