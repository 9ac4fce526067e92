// Opening a company when there is no module at all.
#include "host/command/Company.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>

#include "host/command/AddItemCommand.h"
#include "host/command/CheckCommand.h"
#include "host/command/DeleteCommand.h"
#include "host/command/DeriveCommand.h"
#include "host/command/InitCommand.h"
#include "host/command/SaveCommand.h"
#include "host/command/ShowCommand.h"
#include "host/command/StatusCommand.h"
#include "host/command/TextCommand.h"
#include "host/command/XmlCommand.h"
#include "plugin/contract/Statement.h"

using namespace FX;

namespace Quillane::Commands {
namespace {

class CompanyWithoutModules : public testing::Test {
 protected:
  CompanyWithoutModules() {
    std::string name = (std::filesystem::temp_directory_path() / "company-XXXXXX").string();
    folder = mkdtemp(name.data());
    file = (folder + "/company.db").c_str();
  }
  ~CompanyWithoutModules() override { std::filesystem::remove_all(folder); }

  std::string folder;
  FXString file;
  Company company{{}};
};

TEST_F(CompanyWithoutModules, isNotMade) {
  Output output(stdout);
  CommandContext context{company, file, output};
  const Outcome outcome = InitCommand().run(context);
  EXPECT_EQ(outcome.status, Outcome::REFUSED);
  EXPECT_GE(outcome.sentence.find("QuillanePluginItemData"), 0);
  EXPECT_GE(outcome.sentence.find("QUILLANE_PLUGIN_PATH"), 0);
  EXPECT_TRUE(std::filesystem::is_empty(folder));
}

TEST_F(CompanyWithoutModules, isNotBroughtUpToDate) {
  ASSERT_FALSE(company.openUpToDate(file).succeeded());
  company.close();
  EXPECT_FALSE(company.openUpToDate(file).succeeded());
}

TEST_F(CompanyWithoutModules, isIncompleteAsTheHostLeavesIt) {
  ASSERT_FALSE(company.openUpToDate(file).succeeded());
  company.close();
  const Outcome outcome = company.open(file);
  EXPECT_EQ(outcome.status, Outcome::REFUSED);
  EXPECT_GE(outcome.sentence.find("A cég adatai hiányosak"), 0);
}

TEST_F(CompanyWithoutModules, opensForWhatNeedsNoneWhenItIsComplete) {
  ASSERT_FALSE(company.openUpToDate(file).succeeded());
  for (const char* table :
       {"t_itemvariable", "t_invoiceitemdata", "t_productitemdata", "t_suiteitemdata", "t_serviceitemdata"}) {
    Statement create(&company.getDatabase(), FXString("create table ") + table + " (value text)");
    ASSERT_TRUE(create.execute(nullptr, 1));
  }
  company.close();
  EXPECT_TRUE(company.open(file).succeeded());
  EXPECT_EQ(company.requireItemDataModule().status, Outcome::REFUSED);
}

TEST(CommandsOnItemData, askForTheModule) {
  EXPECT_EQ(CheckCommand().getCompanyUse(), Command::COMPANY_WITH_MODULE);
  EXPECT_EQ(TextCommand().getCompanyUse(), Command::COMPANY_WITH_MODULE);
  EXPECT_EQ(XmlCommand().getCompanyUse(), Command::COMPANY_WITH_MODULE);
  EXPECT_EQ(SaveCommand().getCompanyUse(), Command::COMPANY_WITH_MODULE);
  EXPECT_EQ(AddItemCommand().getCompanyUse(), Command::COMPANY_WITH_MODULE);
  EXPECT_EQ(DeriveCommand().getCompanyUse(), Command::COMPANY_WITH_MODULE);
  EXPECT_EQ(StatusCommand().getCompanyUse(), Command::COMPANY_WITH_MODULE);
  EXPECT_EQ(DeleteCommand().getCompanyUse(), Command::COMPANY_WITH_MODULE);
  EXPECT_EQ(ShowCommand().getCompanyUse(), Command::OPEN_COMPANY);
}

TEST_F(CompanyWithoutModules, canBeHeldInMemory) {
  EXPECT_TRUE(company.openInMemory().succeeded());
  EXPECT_TRUE(company.getPlugins().getLoaded().empty());
}

}  // namespace
}  // namespace Quillane::Commands
