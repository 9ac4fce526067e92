// Opening a company, with the real module and without any.
#include "host/company/Company.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "host/company/SampleCompany.h"
#include "host/document/DocumentCheck.h"
#include "plugin/contract/Statement.h"
#include "tests/support/StatementLog.h"
#include "tests/support/TestCompany.h"

using namespace FX;
using testing::HasSubstr;

namespace Quillane::Host {
namespace {

const std::vector<FXString> kModuleFolders = {QUILLANE_MODULE_FOLDER};

class CompanyTest : public testing::Test {
 protected:
  CompanyTest() {
    std::string name = (std::filesystem::temp_directory_path() / "company-XXXXXX").string();
    folder = mkdtemp(name.data());
    file = (folder + "/company.db").c_str();
  }
  ~CompanyTest() override {
    testAccount().setDB(nullptr);
    std::filesystem::remove_all(folder);
  }

  /// Makes a file that the module's tables are missing in.
  void makeIncompleteFile() {
    Company bare(testAccount(), {});
    ASSERT_FALSE(bare.openUpToDate(file, error));
  }

  void makeFile() {
    Company made(testAccount(), kModuleFolders);
    ASSERT_TRUE(made.openUpToDate(file, error)) << error.text();
  }

  int count(Company& company, const char* table) {
    return company.getDatabase().queryScalar(FXString("select count(*) from ") + table, 1, -1);
  }

  std::string folder;
  FXString file;
  FXString error;
};

TEST_F(CompanyTest, isMadeAndOpenedAgain) {
  makeFile();
  Company company(testAccount(), kModuleFolders);
  ASSERT_TRUE(company.open(file, error)) << error.text();
  EXPECT_EQ(company.getRefusal(), Company::NONE);
  EXPECT_TRUE(company.isOpen());
  EXPECT_TRUE(company.requireItemDataModule(error));
  EXPECT_EQ(count(company, "t_itemvariable"), 1);
}

TEST_F(CompanyTest, worksOnDocumentsWithTheModule) {
  Company company(testAccount(), kModuleFolders);
  ASSERT_TRUE(company.openInMemory(error)) << error.text();
  ASSERT_TRUE(SampleCompany::fill(company.getDatabase(), error)) << error.text();
  {
    const std::unique_ptr<Document> document = company.getDocuments().load(7, error);
    ASSERT_TRUE(document) << error.text();
    DocumentCheck check;
    company.getPlugins().addHooksTo(check);
    check.run(*document, DocumentCheck::kKeyPrefix);
    EXPECT_GT(check.countErrors(), 0);
  }
  DocumentCheck check;
  EXPECT_TRUE(company.getDocumentLife(check).remove(7, error)) << error.text();
}

TEST_F(CompanyTest, opensOneCompanyAfterTheOther) {
  makeFile();
  Company company(testAccount(), kModuleFolders);
  ASSERT_TRUE(company.openInMemory(error)) << error.text();
  ASSERT_TRUE(SampleCompany::fill(company.getDatabase(), error));
  ASSERT_TRUE(company.open(file, error)) << error.text();
  EXPECT_EQ(count(company, "t_partner"), 0);
  EXPECT_EQ(company.getPlugins().getLoaded().size(), 1u);
}

TEST_F(CompanyTest, isNotOpenAfterARefusal) {
  Company company(testAccount(), kModuleFolders);
  ASSERT_TRUE(company.openInMemory(error));
  EXPECT_FALSE(company.open(file, error));
  EXPECT_FALSE(company.isOpen());
  EXPECT_TRUE(company.getPlugins().getLoaded().empty());
}

TEST_F(CompanyTest, isRefusedWithoutAFile) {
  Company company(testAccount(), kModuleFolders);
  EXPECT_FALSE(company.open(file, error));
  EXPECT_EQ(error, "Nincs ilyen cégfájl: " + file + ".");
  EXPECT_EQ(company.getRefusal(), Company::NO_FILE);
  EXPECT_FALSE(std::filesystem::exists(file.text()));
}

TEST_F(CompanyTest, isRefusedInADatabaseOfSomethingElse) {
  {
    Company other(testAccount(), {});
    std::unique_ptr<TarnwellDatabase> database(TarnwellDatabase::open(file, error));
    ASSERT_TRUE(Statement(database.get(), "create table recipe (name text)").execute(nullptr, 1));
  }
  Company company(testAccount(), kModuleFolders);
  EXPECT_FALSE(company.open(file, error));
  EXPECT_EQ(error, "Nem egy cég adatai vannak benne: " + file + ".");
  EXPECT_EQ(company.getRefusal(), Company::NO_COMPANY);
  EXPECT_FALSE(company.openUpToDate(file, error));
  EXPECT_THAT(error.text(), HasSubstr("nem lesz módosítva"));
  EXPECT_EQ(company.getRefusal(), Company::NO_COMPANY);
}

TEST_F(CompanyTest, isRefusedInWhatIsNoDatabase) {
  std::ofstream(file.text()) << "This is a letter and no database, long enough to be looked at.";
  Company company(testAccount(), kModuleFolders);
  EXPECT_FALSE(company.open(file, error));
  EXPECT_THAT(error.text(), HasSubstr("nem adatbázis"));
  EXPECT_EQ(company.getRefusal(), Company::FAILED);
}

TEST_F(CompanyTest, isNotBroughtUpToDateWithoutTheModule) {
  Company company(testAccount(), {});
  for (int attempt = 0; attempt < 2; ++attempt) {
    EXPECT_FALSE(company.openUpToDate(file, error));
    EXPECT_EQ(company.getRefusal(), Company::MODULE_MISSING);
    EXPECT_THAT(error.text(), HasSubstr("QuillanePluginItemData"));
  }
}

TEST_F(CompanyTest, isIncompleteWithoutTheModulesTables) {
  makeIncompleteFile();
  Company company(testAccount(), {});
  EXPECT_FALSE(company.open(file, error));
  EXPECT_EQ(error, "A cég adatai hiányosak: " + file + ".");
  EXPECT_EQ(company.getRefusal(), Company::INCOMPLETE);
}

TEST_F(CompanyTest, opensWithoutTheModuleWhenItIsComplete) {
  makeFile();
  Company company(testAccount(), {});
  EXPECT_TRUE(company.open(file, error)) << error.text();
  EXPECT_FALSE(company.requireItemDataModule(error));
  EXPECT_THAT(error.text(), HasSubstr("QUILLANE_PLUGIN_PATH"));
}

TEST_F(CompanyTest, canBeHeldInMemory) {
  Company company(testAccount(), {});
  EXPECT_TRUE(company.openInMemory(error));
  EXPECT_TRUE(company.getPlugins().getLoaded().empty());
}

TEST_F(CompanyTest, namesFilesThatAreNoModulesOnceForEachOpening) {
  std::ofstream(folder + "/libQuillanePluginLetter.so") << "no library";
  Company company(testAccount(), {folder.c_str()});
  for (int attempt = 0; attempt < 2; ++attempt) {
    EXPECT_TRUE(company.openInMemory(error));
    EXPECT_EQ(company.getPlugins().getRejected().size(), 1u);
  }
}

TEST_F(CompanyTest, letsItsStatementsBeSeen) {
  StatementLog log;
  Company company(testAccount(), {});
  company.setObserver(&log);
  ASSERT_TRUE(company.openInMemory(error));
  count(company, "t_partner");
  EXPECT_THAT(log.take().back(), HasSubstr("select count(*) from t_partner"));
}

TEST_F(CompanyTest, isFilledWithTheSampleOnlyOnce) {
  Company company(testAccount(), kModuleFolders);
  ASSERT_TRUE(company.openInMemory(error));
  ASSERT_TRUE(SampleCompany::fill(company.getDatabase(), error)) << error.text();
  const int partners = count(company, "t_partner");
  EXPECT_GT(partners, 0);
  EXPECT_FALSE(SampleCompany::fill(company.getDatabase(), error));
  EXPECT_THAT(error.text(), HasSubstr("már vannak adatok"));
  EXPECT_EQ(count(company, "t_partner"), partners);
}

TEST_F(CompanyTest, isNotFilledByHalf) {
  Company company(testAccount(), {});  // without the module's tables the script cannot be run to its end
  ASSERT_TRUE(company.openInMemory(error));
  EXPECT_FALSE(SampleCompany::fill(company.getDatabase(), error));
  EXPECT_NE(error, "");
  EXPECT_EQ(count(company, "t_partner"), 0);
}

}  // namespace
}  // namespace Quillane::Host
