// The main window without a display: what its list shows and what its commands do.
#include "host/desktop/MainWindow.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <filesystem>

#include "host/desktop/DocumentWindow.h"
#include "host/desktop/ReportDialog.h"
#include "tests/host/desktop/MainWindowFixture.h"
#include "tests/support/ModalDriver.h"
#include "tests/support/TestCompany.h"
#include "tests/support/ToolkitApplication.h"

using namespace FX;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;

namespace Quillane::Desktop {
namespace {

constexpr int kDraft = 6;            // an outgoing draft that passes the check
constexpr int kIncompleteDraft = 7;  // an outgoing draft that lacks values
constexpr int kOrder = 1;            // other documents were made from it
constexpr int kClosed = 10;

std::vector<std::string> fileNames(const FXString& folder) {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(folder.text()))
    names.push_back(entry.path().filename().native());
  std::sort(names.begin(), names.end());
  return names;
}

// ---- the list ----

TEST_F(MainWindowTest, showsTheDocumentsOfTheCompanyTheNewestFirst) {
  DocumentListPanel& panel = *window->getPanel();
  EXPECT_EQ(panel.countDocuments(), 24);
  EXPECT_EQ(panel.countShown(), 24);
  EXPECT_EQ(panel.getList()->getShownIds().front(), 24);
  EXPECT_EQ(panel.getList()->getShownIds().back(), 1);
  EXPECT_STREQ(window->getTitle().text(), "sample.db – Quillane");
}

TEST_F(MainWindowTest, putsDocumentsWithoutANumberBehindTheNumbers) {
  window->getPanel()->getList()->sortBy(0);
  const std::vector<int> shown = window->getPanel()->getList()->getShownIds();
  EXPECT_EQ(shown.back(), 21);  // the newest draft
  EXPECT_EQ(std::vector<int>(shown.end() - 3, shown.end()), (std::vector<int>{14, 18, 21}));
}

struct SearchCase {
  const char* text;
  std::vector<int> found;
};

class MainWindowSearchTest : public MainWindowTest, public testing::WithParamInterface<SearchCase> {};

TEST_P(MainWindowSearchTest, findsDocuments) {
  search(GetParam().text);
  std::vector<int> shown = window->getPanel()->getList()->getShownIds();
  std::sort(shown.begin(), shown.end());
  EXPECT_EQ(shown, GetParam().found);
  EXPECT_TRUE(window->getPanel()->isSearching());
}

INSTANTIATE_TEST_SUITE_P(, MainWindowSearchTest,
                         testing::Values(SearchCase{"ZÖLDÁG", {13, 15}},          // the partner, in capital letters
                                         SearchCase{"őrségi", {2, 7, 11, 12}},    // in small ones
                                         SearchCase{"  nyomtató  ", {6}},         // an article, blanks aside
                                         SearchCase{"po6-118203", {7}},           // a recorded value
                                         SearchCase{" #7", {7}},                  // what is shown for a number
                                         SearchCase{"kecskeSAJT", {2, 6, 13}}));  // an article

TEST_F(MainWindowTest, showsAllDocumentsAgainWhenTheSearchIsCleared) {
  search("zöldág");
  window->getPanel()->handle(nullptr, FXSEL(SEL_COMMAND, DocumentListPanel::ID_CLEAR_SEARCH), nullptr);
  EXPECT_EQ(window->getPanel()->countShown(), 24);
  EXPECT_FALSE(window->getPanel()->isSearching());
  EXPECT_TRUE(window->getPanel()->getSearchField()->getText().empty());
}

TEST_F(MainWindowTest, opensWhatIsFoundWhenReturnComesBeforeTheSearch) {
  DocumentListPanel& panel = *window->getPanel();
  panel.getSearchField()->setText("PO6-118203");
  panel.handle(nullptr, FXSEL(SEL_CHANGED, DocumentListPanel::ID_SEARCH), nullptr);
  panel.handle(nullptr, FXSEL(SEL_COMMAND, DocumentListPanel::ID_LIST), nullptr);
  ASSERT_THAT(window->getDocumentWindows(), SizeIs(1));
  EXPECT_EQ(window->getDocumentWindows().front()->getDocumentId(), kIncompleteDraft);
}

TEST_F(MainWindowTest, keepsTheSelectionAndTheSearchWhenTheDocumentsAreReadAnew) {
  search("zöldág");
  select({13, 15});
  FXString error;
  ASSERT_NE(company.getDocumentLife(*std::make_unique<Host::DocumentCheck>()).derive(15, 201, error), 0)
      << error.text();
  window->documentsChanged();
  EXPECT_EQ(window->getPanel()->countDocuments(), 25);
  EXPECT_EQ(window->getPanel()->countShown(), 3) << "the new one is of the same partner";
  EXPECT_THAT(window->getPanel()->getSelectedRows(), SizeIs(2));
}

// ---- windows of documents ----

TEST_F(MainWindowTest, offersANewDocumentOfEveryStatusThatIsNotClosed) {
  std::vector<int> statuses;
  for (FXuint i = 0; i < 6; ++i) {
    command(MainWindow::ID_NEW_DOCUMENT + i);
    statuses.push_back(window->getDocumentWindows().back()->getInvoice()->getStatus());
  }
  EXPECT_THAT(statuses, ElementsAre(101, 102, 201, 202, 401, 801));
  command(MainWindow::ID_NEW_DOCUMENT + 6);
  EXPECT_THAT(window->getDocumentWindows(), SizeIs(6));
}

TEST_F(MainWindowTest, opensADocumentInOneWindowOnly) {
  EXPECT_TRUE(window->openDocument(kDraft));
  EXPECT_TRUE(window->openDocument(kDraft));
  ASSERT_THAT(window->getDocumentWindows(), SizeIs(1));
  EXPECT_TRUE(window->getDocumentWindows().front()->closeDocument());
  EXPECT_THAT(window->getDocumentWindows(), IsEmpty());
}

TEST_F(MainWindowTest, saysWhichDocumentCannotBeOpened) {
  const std::vector<std::string> said = answering({sayOk()}, [this] { EXPECT_FALSE(window->openDocument(4711)); });
  EXPECT_THAT(said, ElementsAre(HasSubstr("4711")));
}

TEST_F(MainWindowTest, opensEveryDocumentThatIsSelected) {
  select({kDraft, kClosed, kOrder});
  command(MainWindow::ID_OPEN);
  EXPECT_THAT(window->getDocumentWindows(), SizeIs(3));
}

TEST_F(MainWindowTest, asksBeforeItOpensManyWindows) {
  command(MainWindow::ID_SELECT_ALL);
  const std::vector<std::string> said = answering({sayNo()}, [this] { command(MainWindow::ID_OPEN); });
  EXPECT_THAT(said, ElementsAre(HasSubstr("24")));
  EXPECT_THAT(window->getDocumentWindows(), IsEmpty());
}

// ---- export ----

TEST_F(MainWindowTest, exportsOneDocumentToTheFileThatWasPicked) {
  select({kDraft});
  answering({pickFile(path("one.xml"))}, [this] { command(MainWindow::ID_EXPORT); });
  EXPECT_THAT(readFile(path("one.xml")), HasSubstr("urn:quillane:invoice"));
  EXPECT_THAT(readFile(path("one.xml")), HasSubstr("NB14-5A01")) << "item data are exported, too";
}

TEST_F(MainWindowTest, asksBeforeItReplacesAFile) {
  writeFile(path("one.xml"), "earlier");
  select({kDraft});
  answering({pickFile(path("one.xml")), sayNo()}, [this] { command(MainWindow::ID_EXPORT); });
  EXPECT_EQ(readFile(path("one.xml")), "earlier");
  answering({pickFile(path("one.xml")), sayYes()}, [this] { command(MainWindow::ID_EXPORT); });
  EXPECT_THAT(readFile(path("one.xml")), HasSubstr("<invoice"));
}

TEST_F(MainWindowTest, exportsManyDocumentsIntoAFolderUnderNamesOfTheirOwn) {
  std::filesystem::create_directory(path("out").text());
  select({kDraft, kClosed, 11});
  answering({pickFolder(path("out"))}, [this] { command(MainWindow::ID_EXPORT); });
  EXPECT_THAT(fileNames(path("out")), ElementsAre("Kimenő számla (lezárt) 1.xml", "Kimenő számla (lezárt) 2.xml",
                                                  "Kimenő számla (piszkozat) #6.xml"));
}

TEST_F(MainWindowTest, asksOnceAboutAllFilesThatExist) {
  std::filesystem::create_directory(path("out").text());
  writeFile(path("out/Kimenő számla (lezárt) 1.xml"), "earlier");
  writeFile(path("out/Kimenő számla (lezárt) 2.xml"), "earlier");
  select({kDraft, kClosed, 11});
  const auto pick = pickFolder(path("out"));
  const FXString closed = path("out/Kimenő számla (lezárt) 1.xml");
  const FXString draft = path("out/Kimenő számla (piszkozat) #6.xml");

  const auto said =
      answering({pick, press(FXMessageBox::ID_CLICKED_CANCEL)}, [this] { command(MainWindow::ID_EXPORT); });
  EXPECT_THAT(said.back(), HasSubstr("ennyi: 2."));
  EXPECT_FALSE(FXStat::exists(draft));

  answering({pick, sayNo()}, [this] { command(MainWindow::ID_EXPORT); });
  EXPECT_EQ(readFile(closed), "earlier");
  EXPECT_THAT(readFile(draft), HasSubstr("<invoice"));

  answering({pick, sayYes()}, [this] { command(MainWindow::ID_EXPORT); });
  EXPECT_THAT(readFile(closed), HasSubstr("<invoice"));
}

TEST_F(MainWindowTest, saysWhichDocumentCouldNotBeWritten) {
  select({kDraft});
  const auto said = answering({pickFile("/proc/one.xml"), sayOk()}, [this] { command(MainWindow::ID_EXPORT); });
  EXPECT_THAT(said.back(), HasSubstr("#6: nem írható ide"));
}

TEST_F(MainWindowTest, exportsNothingWhileTheUserStaysInAChangedDocument) {
  window->openDocument(kDraft);
  answering({enterItem(2, "Kiszállítás", "1")},
            [this] { run(*window->getDocumentWindows().front(), DocumentWindow::ID_ADD_ITEM); });
  select({kDraft});
  answering({cancelIt()}, [this] { command(MainWindow::ID_EXPORT); });
  EXPECT_THAT(window->getDocumentWindows(), SizeIs(1));
}

// ---- deleting and closing ----

TEST_F(MainWindowTest, deletesADraftWhenTheUserSaysSo) {
  select({kDraft});
  answering({sayNo()}, [this] { command(MainWindow::ID_DELETE_DOCUMENTS); });
  EXPECT_EQ(count(), 24);
  const auto said = answering({sayYes()}, [this] { command(MainWindow::ID_DELETE_DOCUMENTS); });
  EXPECT_THAT(said, ElementsAre(HasSubstr("Tölgyfa Bútor Kft. #6")));
  EXPECT_EQ(count(), 23);
  EXPECT_EQ(window->getPanel()->countDocuments(), 23);
}

TEST_F(MainWindowTest, closesTheWindowOfADocumentThatIsDeleted) {
  window->openDocument(kDraft);
  select({kDraft});
  answering({sayYes()}, [this] { command(MainWindow::ID_DELETE_DOCUMENTS); });
  EXPECT_THAT(window->getDocumentWindows(), IsEmpty());
  EXPECT_EQ(count(), 23);
}

TEST_F(MainWindowTest, saysWhyAClosedDocumentIsNotDeleted) {
  select({kClosed});
  const auto said = answering({sayYes(), sayOk()}, [this] { command(MainWindow::ID_DELETE_DOCUMENTS); });
  ASSERT_THAT(said, SizeIs(2));
  EXPECT_THAT(said.back(), HasSubstr("lezár"));
  EXPECT_EQ(count(), 24);
}

TEST_F(MainWindowTest, namesEveryDocumentThatWasNotDeletedAmongMany) {
  select({kDraft, kClosed, kOrder});
  std::string sentences;
  const auto read = [&sentences](FXDialogBox& dialog) {
    const auto& report = dynamic_cast<const ReportDialog&>(dialog);
    sentences = report.getSummary().text() + std::string("\n") + report.getSentences().text();
    TestSupport::accept(dialog);
  };
  answering({sayYes(), read}, [this] { command(MainWindow::ID_DELETE_DOCUMENTS); });
  EXPECT_THAT(sentences, HasSubstr("Törölt bizonylatok: 1 / 3."));
  EXPECT_EQ(std::count(sentences.begin(), sentences.end(), '\n'), 2) << sentences;
  EXPECT_EQ(count(), 23);
}

TEST_F(MainWindowTest, closesTheSelectedDraftsAndNamesThoseThatMayNot) {
  const int closedBefore = count(151);
  select({kDraft, kIncompleteDraft, 8, kClosed});
  std::string sentences;
  const auto read = [&sentences](FXDialogBox& dialog) {
    const auto& report = dynamic_cast<const ReportDialog&>(dialog);
    sentences = report.getSummary().text() + std::string("\n") + report.getSentences().text();
    TestSupport::accept(dialog);
  };
  const auto said = answering({sayYes(), read}, [this] { command(MainWindow::ID_CLOSE_DOCUMENTS); });
  EXPECT_THAT(said.front(), HasSubstr("3 piszkozatot")) << "what is closed already does not count";
  EXPECT_THAT(sentences, HasSubstr(" / 3. A többi nem zárható le:"));
  EXPECT_THAT(sentences, HasSubstr("#7"));
  EXPECT_GT(count(151), closedBefore);
  EXPECT_EQ(company.getDatabase().queryScalar("select t_invoicestatus_1 from t_invoice where t_invoice_id=7", 1, -1),
            101);
}

TEST_F(MainWindowTest, closesNoDraftWithoutASelectedOne) {
  select({kClosed});
  answering({}, [this] { command(MainWindow::ID_CLOSE_DOCUMENTS); });
  EXPECT_EQ(count(151), 4);
}

// ---- the company ----

TEST_F(MainWindowTest, opensAnotherCompanyAndClosesTheDocumentsOfTheFirst) {
  window->openDocument(kDraft);
  EXPECT_TRUE(window->makeCompany(path("other.db"), CompanyFile::EMPTY));
  EXPECT_THAT(window->getDocumentWindows(), IsEmpty());
  EXPECT_EQ(window->getPanel()->countDocuments(), 0);
  EXPECT_STREQ(window->getTitle().text(), "other.db – Quillane");
  EXPECT_TRUE(window->openCompany(path("sample.db")));
  EXPECT_EQ(window->getPanel()->countDocuments(), 24);
}

TEST_F(MainWindowTest, keepsTheCompanyWhileTheUserStaysInAChangedDocument) {
  window->openDocument(kDraft);
  answering({enterItem(2, "Kiszállítás", "1")},
            [this] { run(*window->getDocumentWindows().front(), DocumentWindow::ID_ADD_ITEM); });
  answering({cancelIt()}, [this] { EXPECT_FALSE(window->makeCompany(path("other.db"), CompanyFile::EMPTY)); });
  EXPECT_STREQ(companyFile.getFile().text(), path("sample.db").text());
  EXPECT_FALSE(FXStat::exists(path("other.db")));
}

struct BadFile {
  const char* name;
  const char* reason;
};

class MainWindowBadFileTest : public MainWindowTest, public testing::WithParamInterface<BadFile> {};

TEST_P(MainWindowBadFileTest, staysWithTheCompanyWhenAnotherCannotBeOpened) {
  writeFile(path("text.db"), "This is no database, whatever its name says. It is a text of more than a few words.");
  writeFile(path("empty.db"), "");
  const auto said = answering({sayOk()}, [this] { EXPECT_FALSE(window->openCompany(path(GetParam().name))); });
  EXPECT_THAT(said, ElementsAre(HasSubstr(GetParam().reason)));
  EXPECT_STREQ(companyFile.getFile().text(), path("sample.db").text());
  EXPECT_EQ(window->getPanel()->countDocuments(), 24);
  EXPECT_TRUE(window->openDocument(kDraft)) << "and goes on with it";
}

INSTANTIATE_TEST_SUITE_P(, MainWindowBadFileTest,
                         testing::Values(BadFile{"missing.db", "Nincs ilyen cégfájl"}, BadFile{"text.db", "text.db"},
                                         BadFile{"empty.db", "Nem egy cég adatai"}));

TEST_F(MainWindowTest, namesModulesThatCannotBeUsedOnceForEach) {
  writeFile(path("libQuillanePluginBroken.so"), "no module");
  ASSERT_TRUE(window->openCompany(path("sample.db")));
  std::string sentences;
  const auto read = [&sentences](FXDialogBox& dialog) {
    sentences = dynamic_cast<const ReportDialog&>(dialog).getSentences().text();
    TestSupport::accept(dialog);
  };
  answering({read}, [this] { window->tellRejectedModules(); });
  EXPECT_THAT(sentences, HasSubstr("libQuillanePluginBroken.so: "));
  answering({}, [this] { window->tellRejectedModules(); });
}

TEST_F(MainWindowTest, staysWhenTheUserDoesNotLeaveAChangedDocument) {
  window->openDocument(kDraft);
  answering({enterItem(2, "Kiszállítás", "1")},
            [this] { run(*window->getDocumentWindows().front(), DocumentWindow::ID_ADD_ITEM); });
  answering({cancelIt()}, [this] { EXPECT_FALSE(window->closeDocumentWindows()); });
  EXPECT_THAT(window->getDocumentWindows(), SizeIs(1));
}

TEST_F(MainWindowTest, tellsAboutItselfAndItsModules) {
  const auto said = answering({sayOk()}, [this] { command(MainWindow::ID_ABOUT); });
  EXPECT_THAT(said, ElementsAre(HasSubstr("Egyéb tételadatok, 2013.01.02")));
}

}  // namespace
}  // namespace Quillane::Desktop
