#include "host/document/PartnerStore.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/TestCompany.h"

using namespace FX;
using testing::HasSubstr;

namespace Quillane::Host {
namespace {

constexpr char kPartnersSql[] = "select t_partner_id, name, address, taxnumber from t_partner order by 1";

class PartnerStoreTest : public testing::Test {
 protected:
  PartnerStoreTest() {
    company.fill("t_partner", {{"t_partner_id", "name", "address", "taxnumber"},
                               {"1", "Zöld Bt.", "Pécs", "1"},
                               {"2", "alma Kft.", "", ""},
                               {"3", "Őrségi Pálinka", "NULL", "NULL"}});
  }

  TestCompany company;
  PartnerStore store{*company.getDB()};
  FXString error;
};

TEST_F(PartnerStoreTest, listsPartnersByTheirNames) {
  std::vector<Partner> partners;
  ASSERT_TRUE(store.list(partners, error)) << error.text();
  ASSERT_EQ(partners.size(), 3u);
  EXPECT_EQ(partners[0].name, "alma Kft.");
  EXPECT_EQ(partners[1].name, "Zöld Bt.");
  EXPECT_EQ(partners[1].address, "Pécs");
  EXPECT_EQ(partners[2].taxNumber, "");
}

TEST_F(PartnerStoreTest, loadsAPartner) {
  Partner partner;
  ASSERT_TRUE(store.load(1, partner, error)) << error.text();
  EXPECT_EQ(partner.id, 1);
  EXPECT_EQ(partner.name, "Zöld Bt.");
  EXPECT_FALSE(store.load(9, partner, error));
  EXPECT_EQ(error, "Nincs #9 azonosítójú partner.");
}

TEST_F(PartnerStoreTest, storesANewPartnerWithoutTheBlanksAroundIt) {
  Partner partner{0, "  Új Kft. ", " Győr\t", " 123 "};
  ASSERT_TRUE(store.save(partner, error)) << error.text();
  EXPECT_EQ(partner.id, 4);
  EXPECT_EQ(company.query(kPartnersSql)[3], (std::vector<std::string>{"4", "Új Kft.", "Győr", "123"}));
}

TEST_F(PartnerStoreTest, storesAChangedPartnerAndNoOther) {
  Partner partner{2, "Körte Kft.", "Eger", ""};
  ASSERT_TRUE(store.save(partner, error)) << error.text();
  const Grid partners = company.query(kPartnersSql);
  EXPECT_EQ(partners.size(), 3u);
  EXPECT_EQ(partners[0][1], "Zöld Bt.");
  EXPECT_EQ(partners[1], (std::vector<std::string>{"2", "Körte Kft.", "Eger", ""}));
}

TEST_F(PartnerStoreTest, takesANameThatAnotherHasAlready) {
  Partner partner{0, "Zöld Bt.", "", ""};
  EXPECT_TRUE(store.save(partner, error)) << error.text();
}

TEST_F(PartnerStoreTest, refusesAnEmptyName) {
  Partner partner{0, "   ", "Győr", ""};
  EXPECT_FALSE(store.save(partner, error));
  EXPECT_EQ(error, "Adja meg a partner nevét.");
  EXPECT_EQ(partner.id, 0);
  EXPECT_EQ(partner.address, "Győr");
  EXPECT_EQ(company.query(kPartnersSql).size(), 3u);
}

TEST_F(PartnerStoreTest, namesThePartnerThatCannotBeStored) {
  Partner gone{9, " Elveszett Kft.", "", ""};
  EXPECT_FALSE(store.save(gone, error));
  EXPECT_THAT(error.text(), HasSubstr("„Elveszett Kft.”"));
  EXPECT_THAT(error.text(), HasSubstr("már nincs meg"));
  EXPECT_EQ(gone.name, " Elveszett Kft.");

  company.run("alter table t_partner rename to t_gone");
  Partner partner{0, "Új Kft.", "", ""};
  EXPECT_FALSE(store.save(partner, error));
  EXPECT_THAT(error.text(), HasSubstr("„Új Kft.”"));
  EXPECT_EQ(partner.id, 0);
  EXPECT_FALSE(company.getDB()->isInTransaction());
  std::vector<Partner> partners;
  EXPECT_FALSE(store.list(partners, error));
  EXPECT_FALSE(store.load(1, partner, error));
}

}  // namespace
}  // namespace Quillane::Host
