// What commands do when there is no module at all.
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
#include "tests/support/TestCompany.h"

using namespace FX;

namespace Quillane::Commands {
namespace {

TEST(CommandsWithoutModules, makeNoCompany) {
  std::string folder = (std::filesystem::temp_directory_path() / "company-XXXXXX").string();
  ASSERT_NE(mkdtemp(folder.data()), nullptr);
  Host::Company company(testAccount(), {});
  Output output(stdout);
  CommandContext context{company, (folder + "/company.db").c_str(), output};
  const Outcome outcome = InitCommand().run(context);
  EXPECT_EQ(outcome.status, Outcome::REFUSED);
  EXPECT_GE(outcome.sentence.find("QuillanePluginItemData"), 0);
  EXPECT_GE(outcome.sentence.find("QUILLANE_PLUGIN_PATH"), 0);
  EXPECT_TRUE(std::filesystem::is_empty(folder));
  std::filesystem::remove_all(folder);
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

}  // namespace
}  // namespace Quillane::Commands
