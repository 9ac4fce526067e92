// The script of the sample; what the sample holds is tested with the command that makes it.
#include "host/company/SampleCompany.h"

#include <gtest/gtest.h>

#include <string>

using namespace FX;

namespace Quillane::Host {
namespace {

TEST(SampleCompanyScript, isTakenApartAtTheEndsOfLines) {
  const std::vector<FXString> statements =
      SampleCompany::splitScript("-- a; b\ninsert 1;\n\ninsert\n ';',\n 2;\n-- end\n");
  ASSERT_EQ(statements.size(), 2u);
  EXPECT_STREQ(statements[0].text(), "-- a; b\ninsert 1");
  EXPECT_STREQ(statements[1].text(), "insert\n ';',\n 2");
}

TEST(SampleCompanyScript, mayBeEmpty) { EXPECT_TRUE(SampleCompany::splitScript("").empty()); }

TEST(SampleCompanyScript, fillsTheTablesOfTheHostAndOfTheItemData) {
  std::string tables;
  for (const FXString& statement : SampleCompany::getStatements()) {
    const std::string text = statement.text();
    const size_t name = text.find("insert into ") + 12;
    tables += text.substr(name, text.find_first_of(" \n(", name) - name) + " ";
  }
  EXPECT_EQ(tables,
            "t_partner t_product t_service t_suite t_itemvariable t_productitemdata t_serviceitemdata t_suiteitemdata "
            "t_invoice t_invoiceitem t_invoiceitemdata ");
}

}  // namespace
}  // namespace Quillane::Host
