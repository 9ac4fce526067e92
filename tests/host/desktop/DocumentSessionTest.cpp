// A document while it is being edited, with the real module and the sample company.
#include "host/desktop/DocumentSession.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "host/document/DocumentRules.h"
#include "host/document/IssueDate.h"
#include "tests/host/desktop/DocumentWindowFixture.h"
#include "tests/support/TestCompany.h"

using namespace FX;
using testing::HasSubstr;

namespace Quillane::Desktop {
namespace {

using Host::DocumentRules;

constexpr int kGreenDraft = 6;
constexpr int kUnfinishedDraft = 7;
constexpr int kClosedInvoice = 10;

ItemInput product(int id, const char* quantity) {
  ItemInput input;
  input.articleId = id;
  input.name = "Valami";
  input.quantity = quantity;
  input.unit = "db";
  input.price = "10.5";
  return input;
}

class DocumentSessionTest : public testing::Test {
 protected:
  std::unique_ptr<DocumentSession> load(int id) {
    return std::make_unique<DocumentSession>(workplace.getCompany(),
                                             workplace.getCompany().getDocuments().load(id, error));
  }

  std::unique_ptr<DocumentSession> make(int status) {
    return std::make_unique<DocumentSession>(workplace.getCompany(),
                                             workplace.getCompany().getDocuments().make(status, error));
  }

  TestWorkplace workplace;
  FXString error;
  bool stored = false;
};

TEST_F(DocumentSessionTest, beginsANewDocumentToday) {
  const auto session = make(DocumentRules::OUTGOING_DRAFT);
  EXPECT_EQ(session->getDocument().getIssueDate(), Host::todayAsIssueDate());
  EXPECT_FALSE(session->isStored());
  EXPECT_FALSE(session->isChanged());
}

TEST_F(DocumentSessionTest, leavesTheDateOfAStoredDocumentAlone) {
  EXPECT_EQ(load(kGreenDraft)->getDocument().getIssueDate(), "2025-03-11");
}

TEST_F(DocumentSessionTest, givesAnItemWhatWasEntered) {
  const auto session = load(kGreenDraft);
  session->insertItem(1, product(2, "3"));
  EXPECT_EQ(session->countItems(), 7);
  const ItemInput input = session->getInput(1);
  EXPECT_EQ(input.articleKind, InvoiceItem::ARTICLE_PRODUCT);
  EXPECT_EQ(input.articleId, 2);
  EXPECT_EQ(input.name, "Valami");
  EXPECT_EQ(input.quantity, "3");
  EXPECT_EQ(input.unit, "db");
  EXPECT_EQ(input.price, "10.5");
  EXPECT_TRUE(session->isChanged());
  session->runCheck(nullptr);
  EXPECT_GT(session->countErrors(), 0) << "the new item has its fields, and they are empty";
}

TEST_F(DocumentSessionTest, letsTheFindingsGoBeforeAnItem) {
  const auto session = load(kUnfinishedDraft);
  session->runCheck(nullptr);
  ASSERT_GT(session->getMessages().no(), 0);
  session->removeItem(0);
  EXPECT_EQ(session->getMessages().no(), 0);
  session->runCheck(nullptr);
  ASSERT_GT(session->getMessages().no(), 0);
  session->changeItem(0, product(2, "1"));
  EXPECT_EQ(session->getMessages().no(), 0);
}

TEST_F(DocumentSessionTest, knowsWhetherAnotherArticleWouldCostValues) {
  const auto session = load(kGreenDraft);
  ItemInput input = session->getInput(0);
  input.quantity = "9";
  EXPECT_FALSE(session->wouldLoseValues(0, input)) << "it is the same article";
  input.articleId = 2;
  EXPECT_TRUE(session->wouldLoseValues(0, input));
  EXPECT_FALSE(session->wouldLoseValues(4, input)) << "nothing is recorded for this article";
  session->insertItem(0, product(1, "1"));
  EXPECT_FALSE(session->wouldLoseValues(0, input)) << "nothing is recorded yet";
}

TEST_F(DocumentSessionTest, isNotChangedByAnItemThatSaysTheSame) {
  const auto session = load(kGreenDraft);
  ItemInput input = session->getInput(0);
  session->changeItem(0, input);
  EXPECT_FALSE(session->isChanged());
  input.price = "1";
  session->changeItem(0, input);
  EXPECT_TRUE(session->isChanged());
}

TEST_F(DocumentSessionTest, loadsWhatItSavedAnew) {
  const auto session = load(kGreenDraft);
  const Host::Document* before = &session->getDocument();
  const int version = before->getVersion();
  session->insertItem(6, product(6, "1"));
  ASSERT_TRUE(session->save(stored, error)) << error.text();
  EXPECT_TRUE(stored);
  EXPECT_EQ(session->getDocument().getVersion(), version + 1);
  EXPECT_EQ(session->countItems(), 7);
  EXPECT_FALSE(session->isChanged());
  session->moveItem(6, 0);
  ASSERT_TRUE(session->save(stored, error)) << "and may be saved again: " << error.text();
  EXPECT_EQ(session->getInput(0).name, "Valami");
}

TEST_F(DocumentSessionTest, isAsItWasWhenASaveIsRefused) {
  const auto session = load(kUnfinishedDraft);
  const auto other = load(kUnfinishedDraft);
  other->markChanged();
  ASSERT_TRUE(other->save(stored, error));
  session->insertItem(2, product(6, "4"));
  session->runCheck(nullptr);
  const Host::Document* document = &session->getDocument();
  const int messages = session->getMessages().no();
  EXPECT_FALSE(session->save(stored, error));
  EXPECT_FALSE(stored);
  EXPECT_THAT(error.text(), HasSubstr("#7"));
  EXPECT_EQ(&session->getDocument(), document);
  EXPECT_EQ(session->countItems(), 3);
  EXPECT_EQ(session->getMessages().no(), messages);
  EXPECT_TRUE(session->isChanged());
}

TEST_F(DocumentSessionTest, neverCountsAClosedDocumentAsChanged) {
  const auto session = load(kClosedInvoice);
  session->markChanged();
  EXPECT_TRUE(session->isReadOnly());
  EXPECT_FALSE(session->isChanged());
}

TEST_F(DocumentSessionTest, staysAsItWasWhenAStatusIsRefused) {
  const auto session = load(kUnfinishedDraft);
  session->runCheck(nullptr);
  EXPECT_FALSE(session->changeStatus(DocumentRules::OUTGOING_CLOSED, error));
  EXPECT_THAT(error.text(), HasSubstr("nem zárható le"));
  EXPECT_FALSE(session->isReadOnly());
  EXPECT_EQ(session->countItems(), 2);
}

TEST_F(DocumentSessionTest, saysWhyAFileCannotBeWritten) {
  const auto session = load(kClosedInvoice);
  EXPECT_FALSE(session->exportXml("/nowhere/at/all.xml", error));
  EXPECT_THAT(error.text(), HasSubstr("/nowhere/at/all.xml"));
  EXPECT_THAT(error.text(), HasSubstr(session->getDocument().getDisplayText().text()));
}

TEST_F(DocumentSessionTest, leavesTheEarlierFileAloneWhenTheNewOneCannotBeWritten) {
  const std::filesystem::path folder = std::filesystem::temp_directory_path() / "quillane-session-export";
  std::filesystem::remove_all(folder);
  std::filesystem::create_directories(folder / "one.xml.part");  // where it would be written first
  std::ofstream(folder / "one.xml") << "earlier";
  const auto session = load(kClosedInvoice);
  EXPECT_FALSE(session->exportXml((folder / "one.xml").c_str(), error));
  std::string text;
  std::getline(std::ifstream(folder / "one.xml"), text);
  EXPECT_EQ(text, "earlier");

  std::filesystem::remove(folder / "one.xml.part");
  EXPECT_TRUE(session->exportXml((folder / "one.xml").c_str(), error)) << error.text();
  EXPECT_GT(std::filesystem::file_size(folder / "one.xml"), 100u);
  EXPECT_FALSE(std::filesystem::exists(folder / "one.xml.part"));
  std::filesystem::remove_all(folder);
}

TEST_F(DocumentSessionTest, keepsAnEmptyDocumentWhenItLetsGo) {
  const auto session = load(kUnfinishedDraft);
  session->runCheck(nullptr);
  session->release();
  EXPECT_EQ(session->countItems(), 0);
  EXPECT_EQ(session->getMessages().no(), 0);
  EXPECT_FALSE(session->isChanged());
}

TEST(LockedCompany, keepsWhatWasEntered) {
  const std::filesystem::path file = std::filesystem::temp_directory_path() / "quillane-locked.db";
  std::filesystem::remove(file);
  {
    TestWorkplace workplace(file.string());
    FXString error;
    const std::unique_ptr<TarnwellDatabase> otherProgram(TarnwellDatabase::open(file.c_str(), error));
    DocumentSession session(workplace.getCompany(), workplace.getCompany().getDocuments().load(kGreenDraft, error));
    session.insertItem(0, product(6, "1"));
    ASSERT_TRUE(otherProgram->begin());
    bool stored = true;
    EXPECT_FALSE(session.save(stored, error));
    EXPECT_FALSE(stored);
    EXPECT_THAT(error.text(), HasSubstr("#6"));
    EXPECT_EQ(session.countItems(), 7);
    EXPECT_TRUE(session.isChanged());
    otherProgram->rollback();
    EXPECT_TRUE(session.save(stored, error)) << error.text();
    EXPECT_EQ(session.countItems(), 7);
  }
  std::filesystem::remove(file);
}

}  // namespace
}  // namespace Quillane::Desktop
