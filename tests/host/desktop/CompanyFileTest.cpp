// The company file of the program, and the way back when another cannot be opened.
#include "host/desktop/CompanyFile.h"

#include <gmock/gmock.h>

#include <filesystem>

#include "tests/host/desktop/MainWindowFixture.h"
#include "tests/support/TestCompany.h"

using namespace FX;
using testing::HasSubstr;

namespace Quillane::Desktop {
namespace {

/// Without the window.
class CompanyFileTest : public MainWindowTest {
 protected:
  void SetUp() override {}
  void TearDown() override {}

  FXString error;
};

TEST_F(CompanyFileTest, makesASampleCompanyAndRemembersIt) {
  ASSERT_TRUE(companyFile.make(path("a.db"), CompanyFile::SAMPLE, error)) << error.text();
  EXPECT_EQ(count(), 24);
  EXPECT_STREQ(companyFile.getFile().text(), path("a.db").text());
  EXPECT_STREQ(companyFile.getRememberedFile().text(), path("a.db").text());
}

TEST_F(CompanyFileTest, remembersAWholePath) {
  const std::filesystem::path before = std::filesystem::current_path();
  std::filesystem::current_path(folder);
  const bool made = companyFile.make("a.db", CompanyFile::EMPTY, error);
  std::filesystem::current_path(before);
  ASSERT_TRUE(made) << error.text();
  EXPECT_TRUE(FXPath::isAbsolute(companyFile.getRememberedFile()));
}

TEST_F(CompanyFileTest, leavesAFileThatExistsAlone) {
  writeFile(path("a.db"), "mine");
  EXPECT_FALSE(companyFile.make(path("a.db"), CompanyFile::EMPTY, error));
  EXPECT_THAT(error.text(), HasSubstr("Már van ilyen fájl"));
  EXPECT_EQ(readFile(path("a.db")), "mine");
}

TEST_F(CompanyFileTest, leavesNothingBehindWhenACompanyCannotBeMade) {
  EXPECT_FALSE(companyFile.make(path("nowhere/a.db"), CompanyFile::SAMPLE, error));
  EXPECT_FALSE(error.empty());
  EXPECT_TRUE(companyFile.getFile().empty());
  EXPECT_FALSE(company.isOpen());
}

TEST_F(CompanyFileTest, opensTheEarlierCompanyAgainAfterAFailure) {
  ASSERT_TRUE(companyFile.make(path("a.db"), CompanyFile::SAMPLE, error)) << error.text();
  EXPECT_FALSE(companyFile.open(path("missing.db"), error));
  EXPECT_THAT(error.text(), HasSubstr("missing.db"));
  EXPECT_EQ(count(), 24);
  EXPECT_STREQ(companyFile.getRememberedFile().text(), path("a.db").text());
}

TEST_F(CompanyFileTest, hasNoCompanyWhenTheEarlierOneIsGone) {
  ASSERT_TRUE(companyFile.make(path("a.db"), CompanyFile::EMPTY, error)) << error.text();
  std::filesystem::remove(path("a.db").text());
  EXPECT_FALSE(companyFile.open(path("missing.db"), error));
  EXPECT_FALSE(company.isOpen());
  EXPECT_TRUE(companyFile.getFile().empty());
}

TEST_F(CompanyFileTest, refusesACompanyWhoseItemDataHaveNoModule) {
  ASSERT_TRUE(companyFile.make(path("a.db"), CompanyFile::SAMPLE, error)) << error.text();
  company.close();
  Host::Company without(testAccount(), {path("no-modules")});
  CompanyFile file(testAccount(), without);
  EXPECT_FALSE(file.open(path("a.db"), error));
  EXPECT_THAT(error.text(), HasSubstr("QuillanePluginItemData"));
  EXPECT_FALSE(without.isOpen());
}

TEST_F(CompanyFileTest, putsNewFilesIntoTheDocumentFolderOfTheUser) {
  EXPECT_STREQ(CompanyFile::getDocumentFolder().text(), folder.c_str());
  std::filesystem::create_directory(path("Documents").text());
  EXPECT_STREQ(CompanyFile::getDocumentFolder().text(), path("Documents").text());
  std::filesystem::create_directory(path("Dokumentumok").text());
  EXPECT_STREQ(CompanyFile::getDocumentFolder().text(), path("Dokumentumok").text());
}

}  // namespace
}  // namespace Quillane::Desktop
